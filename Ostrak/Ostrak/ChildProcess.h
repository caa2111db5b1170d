#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>

class QProcess;

namespace ostrak {

// Everything needed to start a child.
struct ChildSetup {
  QString executable;  // absolute path; no search is made
  QStringList arguments;
  QStringList removedEnvironment;  // names of variables that the child does not inherit
  bool inheritInput = false;       // else its standard input is /dev/null
};

// Everything known at its end. The four ways to end are told apart.
struct ChildResult {
  enum class End {
    FailedToStart,  // `error` says why
    Exited,         // `exitStatus` is its own
    Signalled,      // died by `signal`, without being asked by us
    Stopped         // ended because `stop` was called, whatever it answered
  };
  End end = End::FailedToStart;
  int exitStatus = -1;
  int signal = 0;
  QString error;
  // The system refused to make a process at all (no memory, too many processes).
  bool processRefused = false;

  [[nodiscard]] bool succeeded() const { return end == End::Exited && exitStatus == 0; }
};

// How long the rungs of the ladder for stopping wait; injected so that tests need not.
struct StopDelays {
  std::chrono::milliseconds grace{5000};  // between SIGTERM and SIGKILL
};

// One run of one external tool, standard output and standard error merged into one stream. It ends
// exactly once: `done` comes once for every `start`, whatever order the toolkit reports things in,
// after the last output. The child dies with the program, even when that is killed with SIGKILL,
// provided the starting thread lives as long as the child. Descriptors are closed in the child.
//
// Used on one thread, which needs an event loop, or waitForDone. A receiver of its signals that
// wants it gone calls deleteLater.
class ChildProcess final : public QObject {
  Q_OBJECT

 public:
  explicit ChildProcess(StopDelays delays = {}, QObject *parent = nullptr);
  // Kills and reaps a child that still runs; `done` does not come any more.
  ~ChildProcess() override;

  // Starts the child; at most once per object. A failed start is told through `done`, from the
  // event loop or from waitForDone, never from inside this call.
  void start(const ChildSetup &setup);
  [[nodiscard]] bool isRunning() const;
  [[nodiscard]] qint64 processId() const;

  void suspend();  // SIGSTOP
  void resume();   // SIGCONT
  // The ladder: SIGTERM (and SIGCONT, so that a stopped child hears it), then SIGKILL after the
  // grace. Returns at once; the end comes through `done`.
  void stop();
  // Without the ladder, and without a word: `done` does not come any more. Blocks until the child
  // has ended, or the time is over. True when it ended.
  bool kill(std::chrono::milliseconds timeout);

  // Blocks without an event loop until the child has ended, or the time is over (-1: for ever).
  // True when it ended; `done` and `output` come from inside the call.
  bool waitForDone(std::chrono::milliseconds timeout = std::chrono::milliseconds(-1));

 Q_SIGNALS:
  // A piece of what the child printed, cut anywhere.
  void output(const QByteArray &bytes);
  void started();
  // Comes once, after the last `output`. What a grandchild prints later into the same pipe is lost.
  void done(const ostrak::ChildResult &result);

 private:
  struct Private;
  std::unique_ptr<Private> d;
};

// Runs a child to its end on the calling thread. It is stopped early when `giveUp`, asked several
// times a second, answers true. With a deadline a child that is still running then is stopped by
// the ladder. `output` gets all that was printed.
[[nodiscard]] ChildResult runChild(
    const ChildSetup &setup, QByteArray &output,
    std::chrono::milliseconds deadline = std::chrono::milliseconds(-1), StopDelays delays = {},
    const std::function<bool()> &giveUp = {});

}  // namespace ostrak
