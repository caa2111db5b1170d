#include "JobRun.h"

namespace decant {

JobRun::JobRun(Parts parts, const Clock &clock)
    : m_child(parts.stopDelays),
      m_assertion(std::move(parts.assertion)),
      m_progressFile(std::move(parts.progressFile)),
      m_progress(m_progressFile.path()),
      m_output(std::move(parts.output)),
      m_watch(clock) {
  m_timer.setInterval(parts.progressInterval);
  connect(&m_timer, &QTimer::timeout, this, &JobRun::readProgress);
  connect(&m_child, &ostrak::ChildProcess::output, this,
          [this](const QByteArray &bytes) { m_collector.add(bytes); });
  connect(&m_child, &ostrak::ChildProcess::done, this, &JobRun::childDone);
}

JobRun::~JobRun() = default;

void JobRun::launch(const ostrak::ChildSetup &setup) {
  m_child.start(setup);
  m_timer.start();
}

void JobRun::pause() {
  m_timer.stop();
  m_child.suspend();
  m_watch.pause();
  m_assertion.reset();
}

void JobRun::resume(std::unique_ptr<SleepAssertion> assertion) {
  m_timer.start();
  m_child.resume();
  m_watch.resume();
  m_assertion = std::move(assertion);
}

void JobRun::stop() {
  m_timer.stop();
  m_assertion.reset();
  m_child.stop();
}

void JobRun::waitForEnd() {
  m_child.waitForDone();
}

bool JobRun::abandon() {
  constexpr std::chrono::seconds longest{1};
  return !m_ended && m_child.kill(longest);
}

void JobRun::letGo() {
  m_timer.stop();
  m_assertion.reset();
  m_progressFile.remove();
}

void JobRun::readProgress() {
  const std::optional<double> seconds = m_progress.read();
  if (seconds) Q_EMIT position(*seconds);
}

void JobRun::childDone(const ostrak::ChildResult &result) {
  m_timer.stop();
  m_watch.pause();
  m_collector.finish({});
  m_result = result;
  m_ended = true;
  Q_EMIT ended();
}

}  // namespace decant
