#include "ChildProcess.h"

#include <fcntl.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QPointer>
#include <QProcess>
#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <optional>

#include "ChildLaunch.h"
#include "Descriptor.h"
#include "StopLadder.h"

namespace ostrak {
using namespace Qt::StringLiterals;

namespace {

// QProcess gives the reason as a text only, at the end of its own.
bool isRefusal(const QString &error) {
  constexpr std::array refusals{EAGAIN, ENOMEM, EMFILE, ENFILE};
  return std::ranges::any_of(
      refusals, [&error](int number) { return error.endsWith(qt_error_string(number)); });
}

// What a start needs for a moment; QProcess itself gives no usable reason when it runs out.
bool areDescriptorsFree() {
  constexpr int needed = 12;
  std::array<Descriptor, needed> some;
  return std::ranges::all_of(some, [](Descriptor &one) {
    one = Descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    return static_cast<bool>(one);
  });
}

}  // namespace

struct ChildProcess::Private {
  enum class State { Idle, Running, Failed, Done };

  Private(ChildProcess &q, StopDelays delays)
      : owner(q), ladder(delays.grace, [this](int signal) { send(signal); }) {}

  void send(int signal) {
    const pid_t pid = static_cast<pid_t>(process.processId());
    if (pid > 0) ::kill(pid, signal);
  }

  // Emits what has been printed; false when a receiver has deleted the owner.
  [[nodiscard]] bool readOutput() {
    const QPointer<ChildProcess> alive(&owner);
    const QByteArray bytes = process.readAllStandardOutput();
    if (!bytes.isEmpty()) Q_EMIT owner.output(bytes);
    return !alive.isNull();
  }

  void fail(const QString &error) {
    result.end = ChildResult::End::FailedToStart;
    result.error = error;
    result.processRefused = isRefusal(error);
    state = State::Failed;
    QMetaObject::invokeMethod(
        &owner, [this] { announce(); }, Qt::QueuedConnection);
  }

  void finish(int code, QProcess::ExitStatus how) {
    ladder.leave();
    if (const std::optional<int> error = launch->failure()) {
      fail(qt_error_string(*error));
      return;
    }
    if (!readOutput()) return;
    const bool byItself = how == QProcess::NormalExit;
    if (byItself) {
      result.exitStatus = code;
    } else {
      result.signal = code;
    }
    if (ladder.wasClimbed()) {
      result.end = ChildResult::End::Stopped;
    } else {
      result.end = byItself ? ChildResult::End::Exited : ChildResult::End::Signalled;
    }
    announce();
  }

  void announce() {
    if (state == State::Done) return;
    state = State::Done;
    const ChildResult copy = result;
    Q_EMIT owner.done(copy);
  }

  ChildProcess &owner;
  std::optional<ChildLaunch> launch;
  QProcess process;
  StopLadder ladder;
  State state = State::Idle;
  ChildResult result;
};

ChildProcess::ChildProcess(StopDelays delays, QObject *parent)
    : QObject(parent), d(std::make_unique<Private>(*this, delays)) {
  connect(&d->process, &QProcess::started, this, [this] {
    if (!d->launch->failure()) Q_EMIT started();
  });
  connect(&d->process, &QProcess::readyReadStandardOutput, this,
          [this] { std::ignore = d->readOutput(); });
  connect(&d->process, &QProcess::finished, this,
          [this](int code, QProcess::ExitStatus how) { d->finish(code, how); });
  // Every other error is followed by `finished`.
  connect(&d->process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) d->fail(d->process.errorString());
  });
}

ChildProcess::~ChildProcess() {
  constexpr std::chrono::seconds longest{30};
  kill(longest);
}

void ChildProcess::start(const ChildSetup &setup) {
  if (d->state != Private::State::Idle) return;
  if (!QDir::isAbsolutePath(setup.executable)) {
    d->fail(u"the tool has no absolute path: "_s + setup.executable);
    return;
  }
  d->state = Private::State::Running;
  d->process.setProcessChannelMode(QProcess::MergedChannels);
  if (setup.inheritInput) {
    d->process.setInputChannelMode(QProcess::ForwardedInputChannel);
  } else {
    d->process.setStandardInputFile(QProcess::nullDevice());
  }
  d->launch.emplace(setup);
  if (!d->launch->isReady() || !areDescriptorsFree()) {
    d->fail(qt_error_string(EMFILE));
    return;
  }
  d->process.setChildProcessModifier([launch = &*d->launch] { launch->becomeTool(); });
  d->process.start(setup.executable, {}, QIODevice::ReadOnly);
}

bool ChildProcess::isRunning() const {
  return d->state == Private::State::Running;
}

qint64 ChildProcess::processId() const {
  return d->process.processId();
}

void ChildProcess::suspend() {
  d->send(SIGSTOP);
}

void ChildProcess::resume() {
  d->send(SIGCONT);
}

void ChildProcess::stop() {
  if (isRunning()) d->ladder.climb();
}

bool ChildProcess::kill(std::chrono::milliseconds timeout) {
  d->ladder.leave();
  d->process.disconnect(this);
  if (d->process.state() == QProcess::NotRunning) return true;
  d->process.kill();
  return d->process.waitForFinished(static_cast<int>(timeout.count()));
}

bool ChildProcess::waitForDone(std::chrono::milliseconds timeout) {
  const QDeadlineTimer deadline =
      timeout.count() < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(timeout);
  if (d->state == Private::State::Idle) return false;
  const QPointer<ChildProcess> alive(this);
  while (d->state == Private::State::Running) {
    const QDeadlineTimer until = std::min(deadline, d->ladder.nextRung());
    d->process.waitForFinished(static_cast<int>(until.remainingTime()));
    if (!alive) return true;
    d->ladder.takeDueRung();
    if (deadline.hasExpired()) break;
  }
  if (d->state == Private::State::Failed) d->announce();
  return !alive || d->state == Private::State::Done;
}

namespace {

// Whether the child ended before the deadline and before `giveUp` answered true.
bool waitPatiently(ChildProcess &child, std::chrono::milliseconds deadline,
                   const std::function<bool()> &giveUp) {
  if (!giveUp) return child.waitForDone(deadline);
  constexpr std::chrono::milliseconds slice{100};
  const QDeadlineTimer timer =
      deadline.count() < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(deadline);
  while (!timer.hasExpired()) {
    if (child.waitForDone(slice)) return true;
    if (giveUp()) return false;
  }
  return false;
}

}  // namespace

ChildResult runChild(const ChildSetup &setup, QByteArray &output,
                     std::chrono::milliseconds deadline, StopDelays delays,
                     const std::function<bool()> &giveUp) {
  ChildResult result;
  ChildProcess child(delays);
  QObject::connect(&child, &ChildProcess::output, &child,
                   [&output](const QByteArray &bytes) { output += bytes; });
  QObject::connect(&child, &ChildProcess::done, &child,
                   [&result](const ChildResult &end) { result = end; });
  child.start(setup);
  if (!waitPatiently(child, deadline, giveUp)) {
    child.stop();
    child.waitForDone();
  }
  return result;
}

}  // namespace ostrak
