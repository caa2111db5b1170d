#include "ConversionJob.h"

#include "ConversionMethod.h"
#include "ConversionTool.h"
#include "CutOffSource.h"
#include "Defaults.h"
#include "FailureExplanation.h"
#include "FileRevealer.h"
#include "JobController.h"
#include "JobNotification.h"
#include "JobRun.h"
#include "KeyboardModifiers.h"
#include "Logging.h"
#include "Notifier.h"
#include "Ostrak.h"
#include "RunPreparation.h"
#include "Sandbox.h"
#include "StatusText.h"
#include "StoppingRun.h"
#include "Text.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

const QString convertedFileCountKey = u"convertedFileCount"_s;

QString sleepReason() {
  return ostrak::localized(u"Converting MKV file."_s);
}

// For the log.
QString howItEnded(const ostrak::ChildResult &result) {
  if (!result.error.isEmpty()) return result.error;
  if (result.signal != 0) return ostrak::makeString(u"signal %i"_s, result.signal);
  if (result.exitStatus != 0) return ostrak::makeString(u"status %i"_s, result.exitStatus);
  return u"status 0, but the output is not complete"_s;
}

}  // namespace

ConversionJob::ConversionJob(MKVFileInfo fileInfo, quint64 audioTrackIndex, JobController &ad,
                             const JobServices &services)
    : m_fileInfo(std::move(fileInfo)),
      m_audioTrackIndex(audioTrackIndex),
      m_ad(ad),
      m_services(services) {}

ConversionJob::~ConversionJob() {
  // Nobody removed it: the program ends in a hurry, and still leaves neither child nor partial
  // output.
  if (m_run) StoppingRun::finish(std::move(m_run));
  stopAccess();
}

StatusFacts ConversionJob::statusFacts() const {
  return {m_state, m_fileInfo.audioTrackInformation, m_audioTrackIndex, m_progress,
          elapsedSeconds()};
}

QString ConversionJob::stateInfoString() const {
  return decant::stateInfoString(statusFacts());
}

double ConversionJob::elapsedSeconds() const {
  return m_run ? m_run->elapsedSeconds() : m_elapsedSeconds;
}

double ConversionJob::etaSeconds() const {
  return decant::etaSeconds(m_progress, elapsedSeconds());
}

void ConversionJob::setDestinationURL(const QUrl &destination) {
  m_fileInfo.destinationURL = destination;
}

void ConversionJob::presetSpeedInfo() {
  setFastmode(m_ad.conversionSettings());
}

void ConversionJob::setReplacesDestination(bool agreed) {
  m_replaced = agreed ? lookAtFile(destination()) : std::nullopt;
}

bool ConversionJob::replacesDestination() const {
  return m_replaced && lookAtFile(destination()) == m_replaced;
}

StartOutcome ConversionJob::start() {
  if (m_state != JobStateQueued || m_removed) return StartOutcome::notQueued;
  // Handed to the run at the launch, let go on every other way out.
  auto assertion = m_services.sleepInhibitor.inhibit(sleepReason());
  m_startAlert.reset();
  const ConversionSettings settings = m_ad.conversionSettings();
  setFastmode(settings);
  PreparedRun prepared = prepareRun(
      {m_fileInfo, m_audioTrackIndex, replacesDestination(), settings}, m_ad, m_services);
  m_startOutcome = prepared.outcome;
  if (m_startOutcome != StartOutcome::launched) return refuse(m_startOutcome, prepared.obstacle);

  m_fileInfo.destinationURL = prepared.destinationURL;
  m_arguments = prepared.arguments;
  m_run = std::make_unique<JobRun>(
      JobRun::Parts{std::move(assertion), std::move(prepared.progressFile),
                    std::move(prepared.output), m_services.stopDelays, m_services.progressInterval},
      m_services.clock);
  connect(m_run.get(), &JobRun::position, this, [this](double seconds) {
    if (const auto percent = progressPercent(seconds, m_fileInfo.runtimeSeconds))
      setProgress(*percent);
  });
  // Queued, because the completion frees the run.
  connect(m_run.get(), &JobRun::ended, this, &ConversionJob::taskFinished, Qt::QueuedConnection);
  m_run->launch(conversionTool(m_services.toolPath, m_arguments));
  setState(JobStateConverting);
  m_ad.pauseContinueClicked(false);
  return StartOutcome::launched;
}

StartOutcome ConversionJob::refuse(StartOutcome outcome, const QString &message) {
  tellStartFailure(message);
  if (outcome == StartOutcome::sourceRemoved) m_jobOutput = QString::fromLatin1(userRemovedMarker);
  if (outcome != StartOutcome::noRoom) {
    m_finishedError = true;
    setState(JobStateFailed);
  }
  return outcome;
}

void ConversionJob::tellStartFailure(const QString &message) {
  m_startAlert = std::make_unique<ostrak::Alert>(alertAbout(message));
  ostrak::postAlert(*m_startAlert);
}

void ConversionJob::pause() {
  if (m_state != JobStateConverting || !m_run || m_run->hasEnded()) return;
  m_run->pause();
  setState(JobStatePaused);
}

void ConversionJob::continue_() {
  if (m_removed) return;
  if (m_state == JobStateQueued) {
    if (!m_ad.mayStartQueued()) return;
    const StartOutcome outcome = start();
    m_ad.pauseContinueClicked(false);
    if (outcome != StartOutcome::launched && m_ad.jobCountWithState(JobStateConverting) == 0)
      m_ad.startNextJobInQueue();
  } else if (m_state == JobStatePaused && m_run && !m_run->hasEnded()) {
    m_run->resume(m_services.sleepInhibitor.inhibit(sleepReason()));
    setState(JobStateConverting);
    m_ad.pauseContinueClicked(false);
  }
}

void ConversionJob::remove() {
  if (m_removed) return;
  m_removed = true;
  if (m_run) {
    StoppingRun::begin(std::move(m_run));
  } else if (m_partialOutput) {
    m_partialOutput->remove();
  }
  stopAccess();
  m_ad.removeJob(*this);
  if (m_ad.jobCountWithState(JobStateConverting) == 0) m_ad.startNextJobInQueue();
}

void ConversionJob::finishStopping() {
  StoppingRun::finishAll();
}

QList<const OwnFile *> ConversionJob::abandonStopping() {
  return StoppingRun::abandonAll();
}

const OwnFile *ConversionJob::abandon() {
  if (m_run) return m_run->abandon() ? &m_run->output() : nullptr;
  return m_partialOutput.get();
}

void ConversionJob::reveal() {
  if (m_state == JobStateFailed) {
    explainFailure();
  } else {
    m_services.revealer.reveal(m_services.keyboard.shiftHeld() ? source() : destination());
  }
}

void ConversionJob::revealSource() {
  m_services.revealer.reveal(source());
}

// The steps of an end, in their documented order. The job outlives this handler even when it is
// removed within.
void ConversionJob::taskFinished() {
  if (!m_run || !m_run->hasEnded()) return;
  const std::unique_ptr<JobRun> run = std::move(m_run);
  run->letGo();
  m_jobOutput = run->outputText();
  m_elapsedSeconds = run->elapsedSeconds();
  const bool complete = run->result().succeeded() && !saysUnfinishedFile(m_jobOutput) &&
                        ostrak::fileSize(m_fileInfo.destinationURL) > 0;
  if (complete) {
    succeed();
  } else {
    fail(*run);
  }
  setProgress(100);
  if (m_ad.jobCountWithState(JobStateConverting) == 0) m_ad.startNextJobInQueue();
  tellEnd();
}

void ConversionJob::succeed() {
  const bool cutOff = saysSourceIsCutOff(m_jobOutput);
  // Before the end is told: nobody may wait for alerts after it.
  if (cutOff) tellOfCutOffSource(source());
  // Nobody asks any more, and a long queue has many that are finished.
  m_jobOutput.clear();
  m_arguments.clear();
  m_finishedOK = true;
  setState(JobStateFinished);
  const CompletionSettings settings = m_ad.completionSettings();
  if (settings.AutoClean) remove();
  if (settings.AutoRemove && !cutOff) m_ad.disposeOfSource(*this, settings.AutoRemoveType != 0);
}

void ConversionJob::fail(JobRun &run) {
  m_partialOutput = std::make_unique<OwnFile>(std::move(run.output()));
  m_partialOutput->seal();
  if (ostrak::fileSize(destination()) == 0) m_partialOutput->remove();
  if (run.result().end == ostrak::ChildResult::End::FailedToStart) {
    m_jobOutput = run.result().error;
    // It looked like a program and is none; a system that makes no process is another matter.
    if (!run.result().processRefused) {
      m_startOutcome = StartOutcome::toolMissing;
      tellStartFailure(toolMissingText(m_services.toolPath, m_fileInfo));
    }
  }
  ostrak::tk_log_level(3, u"Error: converting %@ failed: %@"_s, source(), howItEnded(run.result()));
  m_finishedError = true;
  setState(JobStateFailed);
  const Diagnosis found = diagnosis();
  if (found.kind != FailureKind::noSpace) return;
  ostrak::Alert alert = alertAbout(found.text);
  alert.title = found.title;
  ostrak::postAlert(alert);
}

void ConversionJob::tellEnd() {
  m_services.notifier.post(endNotification(ostrak::tk ? ostrak::tk->appName() : QString(),
                                           m_fileInfo, m_state == JobStateFailed));
  ostrak::setDefaultInt(convertedFileCountKey, ostrak::defaultInt(convertedFileCountKey) + 1);
  m_ad.increaseUsages(true, true);
  if (m_ad.completionSettings().QuitAfterConversion &&
      m_ad.jobCountWithState(JobStateConverting) == 0 &&
      m_ad.jobCountWithState(JobStateFailed) == 0)
    m_ad.terminate();
}

ostrak::Alert ConversionJob::alertAbout(const QString &message) const {
  ostrak::Alert alert = ostrak::apptitledAlert(message, {ostrak::localized(u"OK"_s)});
  alert.subject = source();
  return alert;
}

Diagnosis ConversionJob::diagnosis() const {
  return diagnose({m_jobOutput, m_arguments, m_ad.conversionSettings().DisableBuiltinSubtitles,
                   !m_fileInfo.subtitleTrackIDs.isEmpty(), !m_fileInfo.subtitleFileURL.isEmpty()});
}

void ConversionJob::explainFailure() {
  const bool neverRan = m_startOutcome == StartOutcome::toolMissing ||
                        m_startOutcome == StartOutcome::destinationRefused;
  if (neverRan && m_startAlert) {
    ostrak::postAlert(*m_startAlert);
    return;
  }
  explainFailedRun(diagnosis(), {source(), m_arguments, m_jobOutput, m_fileInfo.description()},
                   m_services.urlOpener);
}

void ConversionJob::setState(JobState state) {
  if (state == m_state) return;
  const JobState before = m_state;
  m_state = state;
  m_ad.jobStateChanged(*this, before);
  Q_EMIT stateChanged();
  Q_EMIT stateInfoStringChanged();
}

void ConversionJob::setProgress(double percent) {
  if (percent == m_progress) return;
  m_progress = percent;
  Q_EMIT progressChanged();
  Q_EMIT stateInfoStringChanged();
}

void ConversionJob::setFastmode(const ConversionSettings &settings) {
  const auto &tracks = m_fileInfo.audioTrackInformation;
  if (m_audioTrackIndex >= quint64(tracks.size())) return;
  const bool fastmode =
      conversionMethodOf(tracks.at(qsizetype(m_audioTrackIndex)), settings) == ConversionMethodCopy;
  if (fastmode == m_fastmode) return;
  m_fastmode = fastmode;
  Q_EMIT fastmodeChanged();
}

void ConversionJob::stopAccess() {
  const QUrl folder = std::exchange(m_fileInfo.securityURL, {});
  if (!folder.isEmpty()) m_services.sandbox.stopAccess(folder.toLocalFile());
}

QString ConversionJob::source() const {
  return m_fileInfo.fileURL.toLocalFile();
}

QString ConversionJob::destination() const {
  return m_fileInfo.destinationURL.toLocalFile();
}

}  // namespace decant
