#pragma once

#include <QObject>
#include <QTimer>
#include <memory>

#include "ChildProcess.h"
#include "OutputCollector.h"
#include "OwnFile.h"
#include "ProgressReader.h"
#include "SleepInhibitor.h"
#include "Stopwatch.h"

namespace decant {

// Everything that a conversion needs only while its child runs: the child, its output so far, the
// timer and file of its progress, and the assertion that holds off sleep. Main thread.
class JobRun final : public QObject {
  Q_OBJECT

 public:
  struct Parts {
    std::unique_ptr<SleepAssertion> assertion;
    OwnFile progressFile;
    OwnFile output;
    ostrak::StopDelays stopDelays;
    std::chrono::milliseconds progressInterval{1000};
  };

  JobRun(Parts parts, const Clock &clock);
  // Kills a child that still runs and leaves its files.
  ~JobRun() override;

  void launch(const ostrak::ChildSetup &setup);
  void pause();
  void resume(std::unique_ptr<SleepAssertion> assertion);
  // Begins to end the child by the ladder; `ended` tells when it is gone.
  void stop();
  // Blocks until the child has ended; `ended` comes from inside.
  void waitForEnd();
  // Kills the child without a word and waits for that only briefly. True when the output is left
  // unfinished and nobody writes to it any more.
  [[nodiscard]] bool abandon();

  [[nodiscard]] bool hasEnded() const { return m_ended; }
  [[nodiscard]] const ostrak::ChildResult &result() const { return m_result; }
  [[nodiscard]] QString outputText() const { return m_collector.text(); }
  [[nodiscard]] double elapsedSeconds() const { return m_watch.seconds(); }
  // What the run writes; may be moved away once it has ended.
  [[nodiscard]] OwnFile &output() { return m_output; }

  // Lets go what only a run in progress needs: timer, assertion and progress file.
  void letGo();

 Q_SIGNALS:
  // How far the output is, in seconds of the movie.
  void position(double seconds);
  // Comes once. A receiver that frees the run does so when its handler is done.
  void ended();

 private:
  void readProgress();
  void childDone(const ostrak::ChildResult &result);

  ostrak::ChildProcess m_child;
  QTimer m_timer;
  std::unique_ptr<SleepAssertion> m_assertion;
  OwnFile m_progressFile;
  ProgressReader m_progress;
  OutputCollector m_collector;
  OwnFile m_output;
  Stopwatch m_watch;
  ostrak::ChildResult m_result;
  bool m_ended = false;
};

}  // namespace decant
