#pragma once

#include <QUrl>
#include <functional>
#include <memory>

#include "ConversionJob.h"
#include "Destinations.h"
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
};

// The application controller: owns queue, intake and disposal and carries events between them. Each of its
// operations is a line or two into one of these. Main thread.
class AppDelegate final : public ostrak::VKApplicationDelegate, public JobController {
  Q_OBJECT
  Q_PROPERTY(QString addButtonTitle READ addButtonTitle NOTIFY pauseTextsChanged)

 public:
  explicit AppDelegate(AppServices services, QObject *parent = nullptr);
  ~AppDelegate() override;

  // Start-up steps that the terminal and the window share: counts a launch, repairs the settings.
  void applicationWillFinishLaunching();

  [[nodiscard]] JobQueue &queue() { return m_queue; }
  [[nodiscard]] Intake &intake() { return m_intake; }
  [[nodiscard]] SourceDisposal &disposal() { return m_disposal; }

  // Queue.
  // A job for the record that intake shows, with the chosen track, writing to `destination`.
  [[nodiscard]] std::unique_ptr<ConversionJob> makeJob(const QUrl &destination);
  // Admits a job. One whose destination is not writable, or is a source, is dropped and the user told.
  enum class Admission { added, notWritable, destinationIsSource };
  Admission addJob(std::unique_ptr<ConversionJob> job);
  void cleanClicked();
  [[nodiscard]] QString windowTitle() const;
  [[nodiscard]] QString addButtonTitle() const;
  // Whether quitting may go ahead; asks when a job converts.
  [[nodiscard]] bool applicationShouldTerminate();
  void applicationWillTerminate();
  [[nodiscard]] const ClaimedNames &claimedNames() const { return m_claimed; }

  // JobController.
  void pauseContinueClicked(bool sender) override;
  void removeJob(ConversionJob &job) override;
  [[nodiscard]] int jobCountWithState(JobState state) const override;
  void startNextJobInQueue() override;
  void increaseUsages(bool countOne, bool allowFeedbackNow) override;
  void terminate() override;
  [[nodiscard]] ConversionSettings conversionSettings() const override;
  [[nodiscard]] CompletionSettings completionSettings() const override;
  [[nodiscard]] QUrl claimUniqueDestination(const QUrl &wanted) override;
  void disposeOfSource(const ConversionJob &job, bool deleteOutright) override;
  void jobStateChanged(ConversionJob &job, JobState before) override;

 Q_SIGNALS:
  void windowTitleChanged(const QString &title);
  void pauseTextsChanged();

 private:
  AppServices m_services;
  ClaimedNames m_claimed;
  JobQueue m_queue;
  Intake m_intake;
  SourceDisposal m_disposal;
  bool m_quitWhenIdle = false;
};

}  // namespace decant
