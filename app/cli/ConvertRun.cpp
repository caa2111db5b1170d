#include "ConvertRun.h"

#include <QPointer>

#include "AppDelegate.h"
#include "ConversionJob.h"
#include "Diagnosis.h"
#include "SignalWatcher.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

constexpr std::chrono::seconds progressInterval{1};
// What is left is reckoned from what is done: of less than this it says nothing.
constexpr double leastTellingPercent = 1;

QString sourceOf(const ConversionJob &job) {
  return job.fileInfo().fileURL.toLocalFile();
}

QString kindOf(const ConversionJob &job) {
  switch (job.startOutcome()) {
    case StartOutcome::toolMissing:
      return u"toolMissing"_s;
    case StartOutcome::noRoom:
      return u"noRoom"_s;
    case StartOutcome::destinationRefused:
      return u"refused"_s;
    default:
      return {};
  }
}

// What the window's arrow would tell of a failed job.
FileFailure failureOf(const ConversionJob &job) {
  const QString kind = kindOf(job);
  if (!kind.isNull() && job.startAlert())
    return {kind, job.startAlert()->title, job.startAlert()->message};
  const Diagnosis diagnosis = job.diagnosis();
  return {failureKindName(diagnosis.kind), diagnosis.title, diagnosis.text};
}

}  // namespace

ConvertRun::ConvertRun(AppDelegate &delegate, ConvertInput input, std::optional<int> audioTrack,
                       ConvertReporter &reporter)
    : m_delegate(delegate),
      m_reporter(reporter),
      m_feeder(delegate.intake(), std::move(input), audioTrack) {
  connect(&m_feeder, &IntakeFeeder::shown, this, &ConvertRun::queueShown);
  connect(&m_feeder, &IntakeFeeder::refused, this, &ConvertRun::refuse);
  connect(&m_feeder, &IntakeFeeder::exhausted, this, &ConvertRun::checkEnd);
  connect(&m_delegate.queue(), &JobQueue::inserted, this, &ConvertRun::adopt);
  connect(&m_delegate.queue(), &JobQueue::jobHadNoRoom, this,
          [this](ConversionJob *job) { jobFailed(*job); });
  connect(&m_delegate.disposal(), &SourceDisposal::idle, this, &ConvertRun::checkEnd);
  connect(&m_ledger, &AlertLedger::quiet, this, &ConvertRun::checkEnd);
  connect(&m_ledger, &AlertLedger::allTold, this, &ConvertRun::allTold);
  connect(&m_unknownProgress, &QTimer::timeout, this, &ConvertRun::reportUnknownProgress);
  m_unknownProgress.setInterval(progressInterval);
}

ConvertResult ConvertRun::run() {
  SignalWatcher watcher;
  connect(&watcher, &SignalWatcher::interrupted, this, &ConvertRun::interrupt);
  m_unknownProgress.start();
  nextSoon();
  m_loop.exec();
  end();
  return m_result;
}

void ConvertRun::tellSettings(const QStringList &complaints) {
  for (const QString &complaint : complaints)
    m_reporter.alerted({}, ostrak::apptitledAlert(complaint, {}));
  m_ledger.remember({}, complaints.join(u'\n'));
}

void ConvertRun::queueShown() {
  const std::optional<AppDelegate::Admission> admission = m_delegate.addToQueue();
  if (admission == AppDelegate::Admission::added) {
    m_ledger.probeEnded();
    tellHeld(false);
    nextSoon();
  } else if (!admission) {
    refuse(m_feeder.current(), refusedFailure(worded(u"There is no folder to write to."_s)));
  } else {
    // The words are on their way as an alert; takeAlert goes on from there.
    m_awaitedKind =
        *admission == AppDelegate::Admission::notWritable ? u"notWritable"_s : u"refused"_s;
  }
}

void ConvertRun::refuse(const QString &source, const FileFailure &failure) {
  m_awaitedKind = QString();
  m_ledger.remember(source, failure.text);
  ++m_result.failed;
  m_reporter.failed({0, source}, failure);
  m_ledger.probeEnded();
  tellHeld(true);
  nextSoon();
}

// The delegate starts a job before it is in the list, so it may have come further already.
void ConvertRun::adopt(qsizetype index) {
  ConversionJob &job = *m_delegate.queue().taskArray().at(index);
  const JobLabel label{++m_lastNumber, sourceOf(job)};
  m_jobs.insert(&job, {label});
  m_numbers.insert(label.source, label.job);
  m_reporter.queued(label);
  connect(&job, &ConversionJob::stateChanged, this, [this, &job] { stateChanged(job); });
  connect(&job, &ConversionJob::progressChanged, this, [this, &job] { progressChanged(job); });
  stateChanged(job);
}

void ConvertRun::stateChanged(ConversionJob &job) {
  // What an interrupted child leaves is not the job's failure.
  if (SignalWatcher::received() != 0 || !m_jobs.contains(&job)) return;
  Known &known = m_jobs[&job];
  if (known.hasEnded) return;
  switch (job.state()) {
    case JobStateConverting:
      if (!known.hasStarted) m_reporter.started(known.label);
      known.hasStarted = true;
      break;
    case JobStateFinished:
      ++m_result.finished;
      m_reporter.finished(known.label, job.fileInfo().destinationURL.toLocalFile(),
                          job.elapsedSeconds());
      retire(job);
      break;
    case JobStateFailed:
      jobFailed(job);
      break;
    default:
      break;
  }
}

void ConvertRun::jobFailed(ConversionJob &job) {
  const auto known = m_jobs.constFind(&job);
  if (known == m_jobs.cend() || known->hasEnded) return;
  const FileFailure failure = failureOf(job);
  m_ledger.remember(known->label.source, failure.text);
  if (job.startAlert()) m_ledger.remember(known->label.source, job.startAlert()->message);
  ++m_result.failed;
  m_reporter.failed(known->label, failure);
  retire(job);
}

// The job leaves the queue once its own handler is done: with it goes what a failed one has left,
// and a long run needs no more memory than a short one.
void ConvertRun::retire(ConversionJob &job) {
  m_jobs[&job].hasEnded = true;
  const auto leave = [this, &job, alive = QPointer(&job)] {
    m_jobs.remove(&job);
    if (alive) alive->remove();
    checkEnd();
  };
  QMetaObject::invokeMethod(this, leave, Qt::QueuedConnection);
}

void ConvertRun::progressChanged(const ConversionJob &job) {
  const auto known = m_jobs.constFind(&job);
  if (known == m_jobs.cend() || known->hasEnded || job.state() != JobStateConverting) return;
  const std::optional<double> eta =
      job.progress() >= leastTellingPercent ? std::optional(job.etaSeconds()) : std::nullopt;
  m_reporter.progress(known->label, job.progress(), eta);
}

// A movie of unknown length never gets further, but the run is seen to be alive.
void ConvertRun::reportUnknownProgress() {
  for (auto job = m_jobs.cbegin(); job != m_jobs.cend(); ++job) {
    const bool unknown = job.key()->fileInfo().runtimeSeconds.value_or(0) <= 0;
    if (unknown && !job->hasEnded && job.key()->state() == JobStateConverting)
      m_reporter.progress(job->label, {}, {});
  }
}

bool ConvertRun::takeAlert(const ostrak::Alert &alert) {
  if (m_ledger.isTold(alert)) return true;
  const QString source = m_feeder.current();
  if (!m_awaitedKind.isNull() && alert.subject == source) {
    refuse(source, {m_awaitedKind, alert.title, alert.message});
    return true;
  }
  const bool isOfProbed = alert.subject.isNull() ? alert.problemReport : alert.subject == source;
  if (m_delegate.intake().isScanning() && isOfProbed)
    m_held.append(alert);
  else
    m_reporter.alerted(labelOf(alert.subject), alert);
  return true;
}

// Alerts about a file are told once it is known what becomes of it. The report about a file that
// could not be read says what its failure says.
void ConvertRun::tellHeld(bool refused) {
  const QList<ostrak::Alert> held = std::exchange(m_held, {});
  for (const ostrak::Alert &alert : held) {
    if (m_ledger.isTold(alert) || (refused && alert.problemReport)) continue;
    m_reporter.alerted(labelOf(alert.subject), alert);
  }
}

JobLabel ConvertRun::labelOf(const QString &source) const {
  return {m_numbers.value(source), source};
}

void ConvertRun::nextSoon() {
  QMetaObject::invokeMethod(&m_feeder, &IntakeFeeder::next, Qt::QueuedConnection);
}

bool ConvertRun::isOver() const {
  return m_feeder.isExhausted() && m_jobs.isEmpty() && m_ledger.isQuiet() &&
         m_delegate.disposal().isIdle();
}

void ConvertRun::checkEnd() {
  if (isOver()) m_ledger.askEnd();
}

void ConvertRun::allTold() {
  // A disposal may have begun meanwhile; its end looks again.
  if (!isOver()) return;
  m_hasEnded = true;
  m_loop.quit();
}

void ConvertRun::interrupt(int signal) {
  m_result.signal = signal;
  m_feeder.stop();
  m_loop.quit();
}

void ConvertRun::end() {
  m_feeder.stop();
  m_unknownProgress.stop();
  m_delegate.queue().disconnect(this);
  m_result.aborted = !m_hasEnded && m_result.signal == 0;
  m_delegate.applicationWillTerminate();
  ConversionJob::finishStopping();
  if (m_result.aborted && !m_held.isEmpty()) {
    const ostrak::Alert why = m_held.takeLast();
    ++m_result.failed;
    m_reporter.failed({0, m_feeder.current()}, {u"refused"_s, why.title, why.message});
  }
  m_reporter.summary(m_result.finished, m_result.failed);
}

}  // namespace decant
