#include <QPointer>
#include <QScopedValueRollback>

#include "Alerts.h"
#include "AppDelegate.h"
#include "Exceptions.h"
#include "Sandbox.h"
#include "Settings.h"

namespace decant {

// From a record that is shown to a job in the queue.

std::unique_ptr<ConversionJob> AppDelegate::makeJob(const QUrl &destination) {
  if (!m_intake.fileInfo()) return nullptr;
  MKVFileInfo record = *m_intake.fileInfo();
  record.destinationURL = destination;
  auto job = std::make_unique<ConversionJob>(std::move(record), m_intake.audioTrackIndex(), *this,
                                             m_services.jobs);
  job->presetSpeedInfo();
  return job;
}

std::optional<Admission> AppDelegate::addToQueue() {
  if (!m_intake.fileInfo()) return {};
  if (m_intake.state() == Intake::State::Asking) return {};
  // The answer may come long after this has returned.
  const auto admission = std::make_shared<std::optional<Admission>>();
  const auto chosen = [app = QPointer(this), admission](const auto &destination) {
    if (!app) return;
    // All may be over; then no other file gets its turn either.
    if (!app->m_terminated) app->m_intake.setAsking(false);
    if (destination) *admission = app->addShownTo(*destination);
  };
  m_intake.setAsking(true);
  try {
    m_services.destination(*m_intake.fileInfo(), m_claimed, chosen);
  } catch (...) {
    m_intake.setAsking(false);
    throw;
  }
  return *admission;
}

// Here and not at the event loop's edge: the toolkit does not clean up after what is thrown through
// the delivery of a click, and what is queued must go on.
std::optional<Admission> AppDelegate::addToQueueOrTell() {
  try {
    return addToQueue();
  } catch (const ostrak::Exception &exception) {
    ostrak::postFeedback(exception.name(), exception.reason());
    return {};
  }
}

std::optional<Admission> AppDelegate::addShownTo(const Destination &destination) {
  // It may have been skipped since it was asked about.
  std::unique_ptr<ConversionJob> job = m_terminated ? nullptr : makeJob(destination.url);
  if (!job) {
    letGo(destination);
    return {};
  }
  job->setReplacesDestination(destination.replaces);
  job->setSecurityURL(destination.securityURL);
  return addJob(std::move(job));
}

void AppDelegate::letGo(const Destination &destination) {
  const QString granted = destination.securityURL.toLocalFile();
  if (!granted.isEmpty()) m_services.jobs.sandbox.stopAccess(granted);
}

Admission AppDelegate::addJob(std::unique_ptr<ConversionJob> job) {
  ClaimedNames::Files files;
  const Admission admission = admissionOf(*job, m_claimed, files);
  if (admission != Admission::added) {
    ostrak::postAlert(refusalAlert(*job, admission));
    leaveShown();
    return admission;
  }
  const ConversionJob *tried = nullptr;
  const bool filesWait = !m_intake.importFiles().isEmpty();
  {
    const QScopedValueRollback admitting(m_admitting, true);
    m_claimed.claim(files);
    m_claimants.insert(job.get());
    m_gate.jobAdded(*job, files.source);
    if (files.source) m_disposal.keep(*files.source);
    // An earlier success asked for the end; this job's own will ask again.
    m_quitWanted = false;
    const bool atBottom = settingBool("InsertJobsAtBottom");
    if (m_queue.mayStartNew() && !filesWait) {
      tried = job.get();
      m_queue.insertStarted(std::move(job), atBottom);
    } else {
      m_queue.insert(std::move(job), atBottom);
    }
    leaveShown();
    updateWindowTitle();
    m_intake.clearFileInfo();
  }
  if (!filesWait) m_queue.startNextJobInQueue(tried);
  return admission;
}

// A record can be queued, or refused, once more while intake is at the next file already; that one
// is not to be lost with it.
void AppDelegate::leaveShown() {
  if (!m_intake.isScanning()) m_intake.cancelAdd();
}

// Nothing waits behind the last record, and the user may look at it for hours: what is queued does
// not wait for that.
void AppDelegate::recordShown() {
  if (m_terminated) return;
  Q_EMIT rebuildDestinationPopUp();
  if (settingBool("AutoAdd") && addToQueueOrTell()) return;
  if (m_intake.importFiles().isEmpty()) m_queue.startNextQueuedJob();
}

void AppDelegate::intakeDrained() {
  if (m_admitting) return;
  m_queue.startNextQueuedJob();
  quitWhenIdle();
}

}  // namespace decant
