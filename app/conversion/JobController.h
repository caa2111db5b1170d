#pragma once

#include <QUrl>

#include "ConversionSettings.h"
#include "JobState.h"

namespace decant {

class ConversionJob;

// What a job calls back into: the controller that owns the queue. Main thread.
class JobController {
 public:
  virtual ~JobController() = default;

  // A job has started or resumed (`sender` false), or the user has clicked (`sender` true).
  virtual void pauseContinueClicked(bool sender) = 0;
  // Takes the job out of the queue. The job is deleted later, never below its own handler.
  virtual void removeJob(ConversionJob &job) = 0;
  [[nodiscard]] virtual int jobCountWithState(JobState state) const = 0;
  virtual void startNextJobInQueue() = 0;
  // Whether a queued job may be started because the user wants it, in a paused queue, too. False
  // when none can be at all; then this has been told.
  [[nodiscard]] virtual bool mayStartQueued() = 0;
  virtual void increaseUsages(bool countOne, bool allowFeedbackNow) = 0;
  virtual void terminate() = 0;

  // Read afresh from the settings store.
  [[nodiscard]] virtual ConversionSettings conversionSettings() const = 0;
  [[nodiscard]] virtual CompletionSettings completionSettings() const = 0;

  // A free destination name for a job that is about to start and whose name is taken by now: made
  // unique among files and claimed names, and claimed.
  [[nodiscard]] virtual QUrl claimUniqueDestination(const QUrl &wanted) = 0;
  // Whether the file at `path` is the source of any job in the queue, compared by device and inode.
  [[nodiscard]] virtual bool isSource(const QString &path) const = 0;
  // Disposes of a source once it is safe (AutoRemove): only when the output is there, synced and as
  // long.
  virtual void disposeOfSource(const ConversionJob &job, bool deleteOutright) = 0;

  // Told after each change, so that counts are kept as they go.
  virtual void jobStateChanged(ConversionJob &job, JobState before) = 0;
};

}  // namespace decant
