#pragma once

#include <QObject>
#include <memory>

#include "AlertDialog.h"
#include "ScratchProgram.h"

// A test class whose functions each get a scratch program that shows its alerts as dialogs.
class AlertTest : public QObject {
  Q_OBJECT

 protected Q_SLOTS:
  void init();
  void cleanup();

 protected:
  std::unique_ptr<ScratchProgram> m_program;

 private:
  ostrak::WindowAlertPresenter m_presenter;
};
