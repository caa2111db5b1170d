#pragma once

#include <QList>
#include <QObject>
#include <array>
#include <map>
#include <memory>
#include <unordered_map>

#include "JobState.h"

namespace decant {

class ConversionJob;

// The list of jobs and the rule that exactly one runs: order, counts, what is tried next. It never sticks:
// after every event it runs a job or none can run. Main thread.
class JobQueue final : public QObject {
  Q_OBJECT

 public:
  explicit JobQueue(QObject *parent = nullptr);
  ~JobQueue() override;

  // In list order; owned by the queue.
  [[nodiscard]] const QList<ConversionJob *> &taskArray() const { return m_taskArray; }
  // Position in taskArray, -1 when the job is not in it. Logarithmic.
  [[nodiscard]] qsizetype indexOf(const ConversionJob &job) const;
  [[nodiscard]] int jobCountWithState(JobState state) const;
  [[nodiscard]] bool paused() const { return m_paused; }

  // Puts a job at the top, or at the bottom.
  void insert(std::unique_ptr<ConversionJob> job, bool atBottom);
  // Takes a job out; it is deleted when the running handler is done.
  void take(ConversionJob &job);
  // Keeps counts and the index of runnable jobs; called after each change of a job's state.
  void stateChanged(ConversionJob &job, JobState before);

  // Does nothing while paused or while a job converts. Else resumes or starts the first paused or queued
  // job in list order; one that does not launch is passed over and the next is tried, each once.
  void startNextJobInQueue();
  // Lifts or sets the paused mark, without touching jobs.
  void setPaused(bool paused);
  // Pauses every converting job.
  void pauseConverting();
  // Removes every finished job.
  void clean();
  // Removes every job, the first first.
  void removeAll();

 Q_SIGNALS:
  void aboutToInsert(qsizetype index);
  void inserted(qsizetype index);
  void aboutToRemove(qsizetype index);
  void removed(qsizetype index);
  void countsChanged();
  void pausedChanged(bool paused);
  // A start ended without launching and left the job queued for want of room.
  void jobHadNoRoom(decant::ConversionJob *job);

 private:
  // Jobs are numbered so that list order is the order of their numbers: smaller ones stand further up.
  std::unordered_map<const ConversionJob *, qint64> m_numbers;
  std::map<qint64, ConversionJob *> m_runnable;  // queued and paused
  QList<ConversionJob *> m_taskArray;
  std::array<int, jobStateCount> m_counts{};
  qint64 m_top = 0;
  qint64 m_bottom = 1;
  bool m_paused = false;
  bool m_starting = false;
};

}  // namespace decant
