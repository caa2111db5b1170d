#pragma once

#include <QObject>
#include <memory>

#include "ScratchProgram.h"

// A test class whose functions each get a scratch program of their own, with the settings
// registered.
class ProgramTest : public QObject {
  Q_OBJECT

 protected Q_SLOTS:
  void init();
  void cleanup();

 protected:
  std::unique_ptr<ScratchProgram> m_program;
};
