#pragma once

#include <QStringList>
#include <memory>

#include "AppDelegate.h"
#include "Clock.h"
#include "FileRevealer.h"
#include "KeyboardModifiers.h"
#include "Notifier.h"
#include "Sandbox.h"
#include "Scenario.h"
#include "ScratchProgram.h"
#include "SleepInhibitor.h"
#include "TrashCan.h"
#include "UrlOpener.h"
#include "Volumes.h"

// A program with its controller in a scratch folder. Movies are probed without a tool; they are
// converted by the scripted one, by their names: "…slow.mkv" runs until `letGo`, "…fail.mkv" fails,
// every other one succeeds at once, "…hang.mkv" never ends. A movie "…bad.mkv" is refused by the
// probe. None needs the one-second test.
class ControllerProgram final {
 public:
  ControllerProgram();
  ~ControllerProgram();

  // What the controller is made with, and a new controller made with something else.
  [[nodiscard]] decant::AppServices services();
  void restart(decant::AppServices services);

  // A movie file in the scratch folder; its path.
  [[nodiscard]] QString movie(const QString &name) const;
  [[nodiscard]] QString path(const QString &name) const { return program.path(name); }
  [[nodiscard]] decant::MKVFileInfo record(const QString &source, const QString &destination) const;
  // A job next to its source, or for a given destination, not admitted yet.
  [[nodiscard]] std::unique_ptr<decant::ConversionJob> job(const QString &source,
                                                           const QString &destination = {});
  // Makes the movie and admits its job; null when it was not admitted.
  decant::ConversionJob *add(const QString &name);

  [[nodiscard]] decant::JobQueue &queue() { return controller->queue(); }
  [[nodiscard]] decant::Intake &intake() { return controller->intake(); }
  [[nodiscard]] int count(decant::JobState state) const {
    return controller->jobCountWithState(state);
  }
  // File names of the sources, in list order.
  [[nodiscard]] QStringList names();
  // Lets all "slow" movies finish.
  void letGo() const { (void)scenario.release(QStringLiteral("go")); }
  // File names in the order in which their conversions were called.
  [[nodiscard]] QStringList converted() const;

  ScratchProgram program;
  Scenario scenario;
  RecordingSleepInhibitor sleepInhibitor;
  RecordingNotifier notifier;
  RecordingFileRevealer revealer;
  FakeVolumes volumes;
  SystemClock clock;
  FakeSandbox sandbox;
  RecordingTrashCan trashCan;
  int quits = 0;
  std::unique_ptr<decant::AppDelegate> controller;

 private:
  [[nodiscard]] decant::JobServices jobServices();
  decant::JobServices m_jobServices;
};
