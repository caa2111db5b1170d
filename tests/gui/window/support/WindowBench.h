#pragma once

#include <QStringList>
#include <memory>

#include "Clock.h"
#include "FakeProber.h"
#include "FileRevealer.h"
#include "LauncherProgress.h"
#include "Notifier.h"
#include "ProgramLauncher.h"
#include "Sandbox.h"
#include "Scenario.h"
#include "ScratchProgram.h"
#include "SingleInstance.h"
#include "SleepInhibitor.h"
#include "TrashCan.h"
#include "Volumes.h"
#include "WindowProgram.h"

class QAction;
class QDialog;
class QFileDialog;

// The whole program with its window in a scratch folder, on recording services. Movies are probed
// by `prober`; they are converted by the scripted tool, by their names: "…slow.mkv" runs until
// `letGo`, "…fail.mkv" fails, "…hang.mkv" never ends, every other one succeeds at once. Alerts are
// recorded, not shown. Everything waits for `open`, so that a test can lay settings in.
class WindowBench final {
 public:
  WindowBench();
  ~WindowBench();
  WindowBench(const WindowBench &) = delete;
  WindowBench &operator=(const WindowBench &) = delete;

  // Starts the program with these files and shows its window.
  [[nodiscard]] bool open(const QStringList &paths = {});
  // Ends the program, and with it everything that it shows; `open` starts it anew on the same
  // folders.
  void close();

  // A file in the scratch folder; its path. Folders are made.
  [[nodiscard]] QString movie(const QString &name) const;
  [[nodiscard]] QString folder(const QString &name) const;
  [[nodiscard]] QString path(const QString &name) const { return program.path(name); }

  [[nodiscard]] decant::MainWindow &window() { return *m_desktop->window(); }
  [[nodiscard]] decant::WindowProgram &desktop() { return *m_desktop; }
  [[nodiscard]] decant::AppDelegate &app() { return m_desktop->app(); }
  [[nodiscard]] decant::Intake &intake() { return app().intake(); }
  [[nodiscard]] decant::JobQueue &queue() { return app().queue(); }
  [[nodiscard]] int count(decant::JobState state) { return app().jobCountWithState(state); }
  // File names of the sources, in list order.
  [[nodiscard]] QStringList names();

  // The object of this name in the window or its preferences; null when there is none.
  template <typename Object>
  [[nodiscard]] Object *find(const QString &name) {
    return window().findChild<Object *>(name);
  }
  // Presses the button, and uses the action, of this name as a person does; false when it is not
  // there, hidden or disabled.
  bool click(const QString &name);
  bool trigger(const QString &name);
  // Picks an entry of the menu of this name.
  bool pick(const QString &name, int index);

  // Drags these files over the window and, when they are welcome, drops them. Returns whether they
  // were.
  bool drop(const QStringList &paths);
  // Opens the movie and waits until it is shown.
  [[nodiscard]] bool show(const QString &name);
  // Opens the movies, queues each next to its source, and waits until intake is idle.
  [[nodiscard]] bool queueUp(const QStringList &names);
  // Puts this many waiting jobs into the paused queue, without files.
  void fill(int count);
  // The panel for files that is up; null when there is none.
  [[nodiscard]] QFileDialog *panel();
  // Answers it with this path, or cancels it; false when none comes up.
  bool answerPanel(const QString &path);
  bool cancelPanel();
  // Adds a folder by the command of the menu of this name; three of them, "a", "b" and "c", by that
  // of the preferences, which open for it.
  [[nodiscard]] bool addFolder(const QString &menuName, const QString &folderName);
  [[nodiscard]] bool addThreeFolders();

  void letGo() const { (void)scenario.release(QStringLiteral("go")); }
  [[nodiscard]] QList<ostrak::Alert> &presented() { return program.presenter().presented; }
  // The messages of the alerts so far.
  [[nodiscard]] QStringList told();

  ScratchProgram program;
  Scenario scenario;
  FakeProber prober;
  RecordingSleepInhibitor sleepInhibitor;
  RecordingNotifier notifier;
  RecordingFileRevealer revealer;
  RecordingLauncherProgress launcher;
  RecordingSingleInstance instance;
  RecordingProgramLauncher programs;
  FakeVolumes volumes;
  SystemClock clock;
  FakeSandbox sandbox;
  RecordingTrashCan trashCan;
  int quits = 0;

 private:
  [[nodiscard]] decant::AppServices services();
  std::unique_ptr<decant::JobServices> m_jobs;
  std::unique_ptr<decant::WindowProgram> m_desktop;
};
