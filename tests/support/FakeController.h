#pragma once

#include <QList>
#include <QStringList>
#include <functional>

#include "ConversionJob.h"
#include "File.h"
#include "JobController.h"

// Stands in for the application controller of a job: remembers what it was called with, in order,
// and plays the queue only as far as a test lays it in. Owns no job.
class FakeController final : public decant::JobController {
 public:
  struct Change {
    decant::JobState before;
    decant::JobState now;
    bool operator==(const Change &) const = default;
  };

  void pauseContinueClicked(bool sender) override { note(sender ? "clicked" : "started"); }
  void removeJob(decant::ConversionJob &job) override {
    note("removeJob");
    jobs.removeAll(&job);
  }
  [[nodiscard]] int jobCountWithState(decant::JobState state) const override {
    int count = 0;
    for (const decant::ConversionJob *job : jobs)
      count += job->state() == state;
    return count;
  }
  void startNextJobInQueue() override {
    note("startNextJobInQueue");
    if (onStartNext) onStartNext();
  }
  bool mayStartQueued() override { return true; }
  void increaseUsages(bool countOne, bool allowFeedbackNow) override {
    note(countOne && allowFeedbackNow ? "increaseUsages 1 1" : "increaseUsages");
  }
  void terminate() override { note("terminate"); }
  [[nodiscard]] decant::ConversionSettings conversionSettings() const override { return settings; }
  [[nodiscard]] decant::CompletionSettings completionSettings() const override {
    return completion;
  }
  [[nodiscard]] QUrl claimUniqueDestination(const QUrl &wanted) override {
    note("claimUniqueDestination");
    const QUrl unique = ostrak::uniqueFile(wanted);
    if (onClaim) onClaim(unique.toLocalFile());
    return unique;
  }
  [[nodiscard]] bool isSource(const QString &path) const override {
    for (const QString &source : otherSources)
      if (ostrak::isSameFile(path, source)) return true;
    return false;
  }
  void disposeOfSource(const decant::ConversionJob &, bool deleteOutright) override {
    note(deleteOutright ? "deleteSource" : "trashSource");
  }
  void jobStateChanged(decant::ConversionJob &job, decant::JobState before) override {
    changes.append({before, job.state()});
    note(QByteArray("state ") + QByteArray::number(job.state()));
    if (onStateChanged) onStateChanged(job);
  }

  QList<decant::ConversionJob *> jobs;  // in the queue
  decant::ConversionSettings settings;
  decant::CompletionSettings completion;
  QStringList otherSources;  // paths of what other jobs read
  QStringList calls;
  QList<Change> changes;
  std::function<void()> onStartNext;
  // Sees each claimed name before the job makes its file.
  std::function<void(const QString &path)> onClaim;
  std::function<void(decant::ConversionJob &)> onStateChanged;

 private:
  void note(const QByteArray &call) { calls.append(QString::fromLatin1(call)); }
};
