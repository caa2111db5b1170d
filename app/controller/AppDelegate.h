#pragma once

#include <QUrl>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_set>

#include "Admission.h"
#include "ConversionJob.h"
#include "Destination.h"
#include "Destinations.h"
#include "DisposalGate.h"
#include "Intake.h"
#include "JobController.h"
#include "JobQueue.h"
#include "SourceDisposal.h"
#include "VKApplicationDelegate.h"

class TrashCan;

namespace decant {

// The services and facts that the controller is made with; all outlive it.
struct AppServices {
  JobServices jobs;
  TrashCan &trashCan;
  QStringList preferredLanguages;  // three-letter codes
  std::function<void()> quit;      // ends the event loop
  Prober prober = &probeFile;
  // Where a record goes; empty means next to its source.
  DestinationChooser destination = {};
};

// The application controller: owns queue, intake and disposal and carries events between them. Each
// of its operations is a line or two into one of these. Main thread.
class AppDelegate final : public ostrak::VKApplicationDelegate, public JobController {
  Q_OBJECT
  Q_PROPERTY(QString addButtonTitle READ addButtonTitle NOTIFY pauseTextsChanged)
  Q_PROPERTY(QString windowTitle READ windowTitle NOTIFY windowTitleChanged)

 public:
  // Registers the settings.
  explicit AppDelegate(AppServices services, QObject *parent = nullptr);
  // Ends what applicationWillTerminate has not ended yet.
  ~AppDelegate() override;

  // Start-up steps that the terminal and the window share: counts a launch, sweeps progress files
  // that a killed program has left, repairs the settings, tells once about stored values that are
  // out of range.
  void applicationWillFinishLaunching();

  [[nodiscard]] JobQueue &queue() { return m_queue; }
  [[nodiscard]] Intake &intake() { return m_intake; }
  [[nodiscard]] SourceDisposal &disposal() { return m_disposal; }

  // Queue.
  // A job for the record that intake shows, with the chosen track, writing to `destination`; null
  // when no record is shown.
  [[nodiscard]] std::unique_ptr<ConversionJob> makeJob(const QUrl &destination);
  // Admits a job. One whose destination is not writable, or is a source, is dropped and the user
  // told. A destination that another job has claimed is made unique.
  using Admission = decant::Admission;
  Admission addJob(std::unique_ptr<ConversionJob> job);
  // Makes a job of the shown record once its destination is chosen; a record without one stays
  // shown. Nothing when no record is shown, when no folder may be used, and while the user is
  // asked. Throws an ostrak::Exception when the destination is gone.
  std::optional<Admission> addToQueue();
  // The same, but a destination that is gone is told, and the record stays shown.
  std::optional<Admission> addToQueueOrTell();
  void cleanClicked();
  [[nodiscard]] QString windowTitle() const;
  [[nodiscard]] QString addButtonTitle() const;
  // Whether quitting may go ahead; asks when a job converts.
  [[nodiscard]] bool applicationShouldTerminate();
  // Flushes the settings and removes every job. Once; whoever ends the event loop calls it.
  void applicationWillTerminate();
  [[nodiscard]] const ClaimedNames &claimedNames() const { return m_claimed; }

  // JobController.
  void pauseContinueClicked(bool sender) override;
  void removeJob(ConversionJob &job) override;
  [[nodiscard]] int jobCountWithState(JobState state) const override;
  void startNextJobInQueue() override;
  [[nodiscard]] bool mayStartQueued() override;
  void increaseUsages(bool countOne, bool allowFeedbackNow) override;
  // Quits once intake and disposal are idle, unless something fails or runs by then.
  void terminate() override;
  [[nodiscard]] ConversionSettings conversionSettings() const override;
  [[nodiscard]] CompletionSettings completionSettings() const override;
  [[nodiscard]] QUrl claimUniqueDestination(const QUrl &wanted) override;
  [[nodiscard]] bool isSource(const QString &path) const override;
  void disposeOfSource(const ConversionJob &job, bool deleteOutright) override;
  void jobStateChanged(ConversionJob &job, JobState before) override;

 Q_SIGNALS:
  void windowTitleChanged(const QString &title);
  void pauseTextsChanged();
  // The user wants the queue to go on while it is held: whoever holds it says why, or releases it.
  void heldQueueWanted();
  // A new record is shown: the destination menu is to be filled again and goes back to its default.
  void rebuildDestinationPopUp();
  // The hint about the faster style is due; speedHintShown() when it has been dismissed.
  void speedHintDue();
  // The stored folders are to be checked now, between the repairs of their index.
  void bookmarkCheckDue();

 private:
  [[nodiscard]] std::optional<Admission> addShownTo(const Destination &destination);
  // Stops the access to a folder that no job will use.
  void letGo(const Destination &destination);
  void leaveShown();
  void updateWindowTitle();
  void recordShown();
  void intakeDrained();
  void releaseNames(const ConversionJob &job);
  void keepNames(const ConversionJob &job);
  void releaseKeptNames();
  void checkDisposals();
  void disposeOfReady();
  void quitWhenIdle();
  void deleteUnfinished();

  AppServices m_services;
  ClaimedNames m_claimed;
  std::unordered_set<const ConversionJob *> m_claimants;  // whose names are in m_claimed
  QStringList m_keptNames;  // also there, of ended jobs whose sources are to go
  DisposalGate m_gate;
  SourceDisposal m_disposal;
  Intake m_intake;
  JobQueue m_queue;  // last, so that its jobs go first
  bool m_admitting = false;
  bool m_disposalCheckDue = false;
  bool m_quitWanted = false;
  bool m_terminated = false;
};

}  // namespace decant
