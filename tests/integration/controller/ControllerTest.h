#pragma once

#include <QObject>
#include <QStringList>
#include <memory>

#include "ControllerProgram.h"

// A test class whose functions each get a program with its controller.
class ControllerTest : public QObject {
  Q_OBJECT

 protected Q_SLOTS:
  void init();
  void cleanup();

 protected:
  // Admits a job, as far as it may be.
  decant::AppDelegate::Admission admit(const QString &source, const QString &destination);
  // The user's click on the button of the queue.
  void pauseClick();
  // The messages that were presented.
  [[nodiscard]] QStringList told() const;

  std::unique_ptr<ControllerProgram> m_p;
};
