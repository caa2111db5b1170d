#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <memory>

#include "Alerts.h"
#include "Countdown.h"
#include "ProgramLauncher.h"
#include "ScratchProgram.h"
#include "SingleInstance.h"
#include "VKAppMovedHandler.h"

// A test class whose functions each get a bundle in "top/mid/bundle" that is watched. Who starts
// programs, and how long three seconds are, is the test's business.
class AppMovedTest : public QObject {
  Q_OBJECT

 public:
  AppMovedTest();
  ~AppMovedTest() override;

 protected Q_SLOTS:
  void init();
  void cleanup();

 private:
  class Launcher;
  void note(const QString &what);

  RecordingSingleInstance m_instance;
  std::unique_ptr<Launcher> m_launcher;

 protected:
  // Below the scratch folder, as are the names of the next three.
  [[nodiscard]] QString path(const QString &name) const { return m_program->path(name); }
  void make(const QString &folder) const;
  void write(const QString &name) const;
  void move(const QString &from, const QString &to) const;

  void start(const QString &executable);
  [[nodiscard]] QList<ostrak::Alert> &presented() { return m_program->presenter().presented; }
  // Lets the three seconds pass; what is told comes first.
  void verifyTold();
  void verifyCouldNotRestart();

  std::unique_ptr<ScratchProgram> m_program;
  std::unique_ptr<ostrak::VKAppMovedHandler> m_handler;
  ManualCountdown *m_countdown = nullptr;  // the handler's
  QStringList m_notes;                     // what happened, in order
  int m_holds = 0;
  bool m_mayQuit = true;
  bool m_starts = true;
};
