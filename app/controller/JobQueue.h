#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <array>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "JobState.h"

namespace decant {

class ConversionJob;

// The list of jobs and the rule that exactly one runs: order, counts, what is tried next. It never
// sticks: after every event it runs a job or none can run. Main thread.
class JobQueue final : public QObject {
  Q_OBJECT

 public:
  explicit JobQueue(QObject *parent = nullptr);
  ~JobQueue() override;

  // In list order; owned by the queue.
  [[nodiscard]] const QList<ConversionJob *> &taskArray() const { return m_taskArray; }
  // Position in taskArray, -1 when the job is not in it. Logarithmic.
  [[nodiscard]] qsizetype indexOf(const ConversionJob &job) const;
  // Constant time.
  [[nodiscard]] int jobCountWithState(JobState state) const;
  // The one that runs; null while none does. Constant time.
  [[nodiscard]] const ConversionJob *convertingJob() const;
  [[nodiscard]] bool paused() const { return m_paused; }
  // Whether a job that arrives now may be started at once.
  [[nodiscard]] bool mayStartNew() const { return mayStart() && !m_held; }
  // Between `hold` and `release`.
  [[nodiscard]] bool held() const { return m_held; }

  // Puts a job at the top, or at the bottom.
  void insert(std::unique_ptr<ConversionJob> job, bool atBottom);
  // The same, but the job is started first, before it stands in the list. False when it did not
  // launch.
  bool insertStarted(std::unique_ptr<ConversionJob> job, bool atBottom);
  // Takes a job out; it is deleted when the running handler is done.
  void take(ConversionJob &job);
  // Keeps counts and indexes; called after each change of a job's state. A job that comes to
  // convert while another does pauses the other. Logarithmic, whatever the state.
  void stateChanged(ConversionJob &job, JobState before);

  // Does nothing while paused or while a job converts. Else resumes or starts the first paused or
  // queued job in list order; one that does not launch is passed over and the next is tried, each
  // once. A job that has been tried for this event already is left out.
  void startNextJobInQueue(const ConversionJob *alreadyTried = nullptr);
  // The same after an event that is nobody's wish to go on: a job that was paused by itself stays
  // so, and none is started beside it.
  void startNextQueuedJob();
  // Lifts or sets the paused mark, without touching jobs.
  void setPaused(bool paused);
  // Pauses the queue and starts no queued job any more. Whoever lifts the mark resumes what had
  // been started before; when that has ended, the mark is back.
  void hold();
  // Ends that; the mark stays until somebody lifts it.
  void release();
  // Pauses every converting job.
  void pauseConverting();
  // Removes these jobs, and starts the next one after the last of them: none of them is started
  // only because those before it have gone. Jobs that have left the list by then are passed over.
  void remove(const QList<ConversionJob *> &jobs);
  // Removes every finished job, likewise.
  void clean();
  // Removes every job, the first first, for good: nothing is started any more.
  void removeAll();

 Q_SIGNALS:
  void aboutToInsert(qsizetype index);
  void inserted(qsizetype index);
  void aboutToRemove(qsizetype index);
  void removed(qsizetype index);
  // Counts or length have changed.
  void countsChanged();
  void pausedChanged(bool paused);
  // A start ended without launching and left the job queued for want of room. It is in the list and
  // may be removed from here.
  void jobHadNoRoom(decant::ConversionJob *job);

 private:
  // Jobs are numbered so that list order is the order of their numbers: smaller ones stand further
  // up.
  using Number = qint64;
  struct Entry {
    Number number = 0;
    JobState state = JobStateQueued;  // as the indexes know it
    std::unique_ptr<ConversionJob> job;
  };
  using Index = std::map<Number, ConversionJob *>;

  [[nodiscard]] Index &index(JobState state) { return m_byState.at(static_cast<size_t>(state)); }
  [[nodiscard]] bool mayStart() const;
  void tryRunnable(std::unordered_set<Number> &tried);
  bool launch(ConversionJob &job);
  [[nodiscard]] const Index::value_type *nextRunnable(Number after);
  [[nodiscard]] QList<ConversionJob *> jobsInState(JobState state);

  std::unordered_map<const ConversionJob *, Entry> m_entries;
  std::array<Index, jobStateCount> m_byState;
  QList<ConversionJob *> m_taskArray;
  // Jobs that were taken out and go together when the running handler is done: each by itself would
  // cost a look through all that wait for the same.
  class Leaving;
  QPointer<Leaving> m_leaving;
  Number m_top = 0;
  Number m_bottom = 1;
  bool m_paused = false;
  bool m_held = false;
  bool m_starting = false;
  bool m_askedAgain = false;
  int m_holds = 0;  // while above 0, nothing is started
};

}  // namespace decant
