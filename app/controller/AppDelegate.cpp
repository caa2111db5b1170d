#include "AppDelegate.h"

#include <QMetaMethod>
#include <QMetaObject>
#include <utility>

#include "Alerts.h"
#include "Defaults.h"
#include "Dispatch.h"
#include "Exceptions.h"
#include "Format.h"
#include "LaunchFixups.h"
#include "Ostrak.h"
#include "OwnFile.h"
#include "ProgressFiles.h"
#include "Sandbox.h"
#include "Settings.h"
#include "Text.h"
#include "Url.h"
#include "WindowTexts.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;
using ostrak::makeString;
using ostrak::tk;

namespace {

bool isEnd(JobState state) {
  return state == JobStateFinished || state == JobStateFailed;
}

QString destinationPath(const ConversionJob &job) {
  return job.fileInfo().destinationURL.toLocalFile();
}

}  // namespace

AppDelegate::AppDelegate(AppServices services, QObject *parent)
    : VKApplicationDelegate(parent),
      m_services(std::move(services)),
      m_disposal(m_services.trashCan),
      m_intake(m_services.preferredLanguages, m_services.prober) {
  if (!m_services.destination) m_services.destination = fixedDestination({});
  m_claimed.protectWaiting([this] {
    return ClaimedNames::Waiting{m_intake.importFiles(), m_intake.currentPath()};
  });
  registerSettings();
  ostrak::setFatalCleanup([this] { deleteUnfinished(); });
  connect(&m_queue, &JobQueue::countsChanged, this, &AppDelegate::updateWindowTitle);
  connect(&m_queue, &JobQueue::pausedChanged, this, &AppDelegate::pauseTextsChanged);
  connect(&m_queue, &JobQueue::pausedChanged, this, &AppDelegate::updateWindowTitle);
  connect(&m_intake, &Intake::drained, this, &AppDelegate::intakeDrained);
  connect(&m_intake, &Intake::refused, this, &AppDelegate::updateWindowTitle);
  connect(&m_intake, &Intake::probed, this, &AppDelegate::recordShown);
  connect(&m_disposal, &SourceDisposal::idle, this, &AppDelegate::releaseKeptNames);
  connect(&m_disposal, &SourceDisposal::idle, this, &AppDelegate::quitWhenIdle);
}

AppDelegate::~AppDelegate() {
  ostrak::setFatalCleanup({});
  applicationWillTerminate();
}

void AppDelegate::applicationWillFinishLaunching() {
  increaseUsages(false, false);
  sweepProgressFiles(tk->docDir());
  repairRetiredValues();
  if (speedHintIsDue()) Q_EMIT speedHintDue();
  migrateDestinationIndex();
  Q_EMIT bookmarkCheckDue();
  repairDestinationIndex();
  const QStringList complaints = storedValueComplaints();
  if (!complaints.isEmpty())
    ostrak::postAlert(ostrak::apptitledAlert(complaints.join(u'\n'), {localized(u"OK"_s)}));
}

void AppDelegate::cleanClicked() {
  m_queue.clean();
}

void AppDelegate::updateWindowTitle() {
  // A command line has no title, and a long queue many changes.
  static const QMetaMethod signal = QMetaMethod::fromSignal(&AppDelegate::windowTitleChanged);
  if (isSignalConnected(signal)) Q_EMIT windowTitleChanged(windowTitle());
}

QString AppDelegate::windowTitle() const {
  return windowTitleText(m_queue.paused(), m_queue.taskArray().size(),
                         jobCountWithState(JobStateQueued));
}

QString AppDelegate::addButtonTitle() const {
  return addButtonText(m_queue.paused());
}

bool AppDelegate::applicationShouldTerminate() {
  if (jobCountWithState(JobStateConverting) == 0) return true;
  const int answer = ostrak::alert_apptitled(
      localized(u"Conversion is in progresss. Are you sure you want to quit?"_s),
      localized(u"Quit"_s), localized(u"Cancel"_s));
  return answer == ostrak::firstButton;
}

void AppDelegate::applicationWillTerminate() {
  if (m_terminated) return;
  m_terminated = true;
  tk->userDefaults().synchronize();
  m_queue.removeAll();
  ConversionJob::finishStopping();
}

// On a worker: a share that has gone would never let go of who deletes there.
void AppDelegate::deleteUnfinished() {
  QList<const OwnFile *> files = ConversionJob::abandonStopping();
  for (ConversionJob *job : m_queue.taskArray()) {
    if (const OwnFile *file = job->abandon()) files.append(file);
  }
  constexpr float longest = 2;  // seconds
  const auto remove = [files] {
    for (const OwnFile *file : files)
      file->remove();
  };
  std::ignore = ostrak::dispatch_sync_back_timeout(remove, longest);
}

void AppDelegate::pauseContinueClicked(bool sender) {
  if (m_queue.paused()) {
    m_queue.setPaused(false);
    if (!sender) return;
    m_queue.startNextJobInQueue();
    // Held, and nothing that had been started before was there to go on.
    if (m_queue.paused() && mayStartQueued()) pauseContinueClicked(true);
  } else if (sender) {
    m_queue.pauseConverting();
    m_queue.setPaused(true);
  } else {
    updateWindowTitle();
  }
}

void AppDelegate::removeJob(ConversionJob &job) {
  releaseNames(job);
  m_gate.jobLeft(job);
  m_queue.take(job);
  checkDisposals();
}

// Once: another job may have claimed the same names since.
void AppDelegate::releaseNames(const ConversionJob &job) {
  if (m_claimants.erase(&job) > 0) m_claimed.release(destinationPath(job));
}

// What comes of a source that is to go stands in the output alone until that has been seen, also
// when the job leaves the list before.
void AppDelegate::keepNames(const ConversionJob &job) {
  if (m_claimants.erase(&job) > 0) m_keptNames.append(destinationPath(job));
}

// A disposal that waits for another job on its source looks at all outputs when its time comes, and
// until then that job protects the source.
void AppDelegate::releaseKeptNames() {
  if (m_disposalCheckDue || !m_disposal.isIdle()) return;
  const QStringList names = std::exchange(m_keptNames, {});
  for (const QString &name : names)
    m_claimed.release(name);
}

int AppDelegate::jobCountWithState(JobState state) const {
  return m_queue.jobCountWithState(state);
}

void AppDelegate::startNextJobInQueue() {
  m_queue.startNextJobInQueue();
}

bool AppDelegate::mayStartQueued() {
  if (m_queue.held()) Q_EMIT heldQueueWanted();
  return !m_queue.held();
}

void AppDelegate::increaseUsages(bool countOne, bool allowFeedbackNow) {
  const QString text = makeString(
      localized(
          u"You have now used [APPNAME] more than 20 times, successfully converting %li MKVs to MP4s."_s),
      ostrak::defaultInt(u"convertedFileCount"_s));
  increaseUsagesBy(countOne ? 1 : 0, 10, 20, text, allowFeedbackNow, false);
}

void AppDelegate::terminate() {
  m_quitWanted = true;
  quitWhenIdle();
}

void AppDelegate::quitWhenIdle() {
  if (!m_quitWanted || !m_intake.isIdle() || !m_disposal.isIdle() || m_gate.hasReady()) return;
  m_quitWanted = false;
  // What arrived meanwhile may run by now; its end asks again.
  if (!completionSettings().QuitAfterConversion || jobCountWithState(JobStateConverting) > 0 ||
      jobCountWithState(JobStateFailed) > 0)
    return;
  m_services.quit();
}

ConversionSettings AppDelegate::conversionSettings() const {
  return readConversionSettings();
}

CompletionSettings AppDelegate::completionSettings() const {
  return readCompletionSettings();
}

QUrl AppDelegate::claimUniqueDestination(const QUrl &wanted) {
  const QString path = wanted.toLocalFile();
  const QString unique = m_claimed.uniqueName(path);
  m_claimed.move(path, unique);
  return ostrak::fileURL(unique);
}

bool AppDelegate::isSource(const QString &path) const {
  return m_claimed.isSource(path);
}

void AppDelegate::disposeOfSource(const ConversionJob &job, bool deleteOutright) {
  m_gate.wish(job, deleteOutright);
  checkDisposals();
}

void AppDelegate::jobStateChanged(ConversionJob &job, JobState before) {
  m_queue.stateChanged(job, before);
  if (isEnd(before) || !isEnd(job.state())) return;
  const bool failed = job.state() == JobStateFailed;
  if (failed || !completionSettings().AutoRemove)
    releaseNames(job);
  else
    keepNames(job);
  m_gate.jobEnded(job, failed);
  checkDisposals();
}

// A success tells its end, its leaving and its wish one after the other; what follows from them is
// seen when all have been told.
void AppDelegate::checkDisposals() {
  if (m_disposalCheckDue) return;
  m_disposalCheckDue = true;
  QMetaObject::invokeMethod(this, &AppDelegate::disposeOfReady, Qt::QueuedConnection);
}

void AppDelegate::disposeOfReady() {
  m_disposalCheckDue = false;
  const QList<DisposalRequest> ready = m_gate.takeReady();
  for (const DisposalRequest &request : ready)
    m_disposal.dispose(request);
  releaseKeptNames();
}

}  // namespace decant
