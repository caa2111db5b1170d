#include "JobQueue.h"

#include <QScopedValueRollback>
#include <algorithm>
#include <limits>
#include <vector>

#include "ConversionJob.h"

namespace decant {

class JobQueue::Leaving final : public QObject {
 public:
  // The queue owns it: where no event loop runs any more, it goes with the queue.
  explicit Leaving(JobQueue *queue) : QObject(queue) {}
  std::vector<std::unique_ptr<ConversionJob>> jobs;
};

JobQueue::JobQueue(QObject *parent) : QObject(parent) {}

JobQueue::~JobQueue() = default;

qsizetype JobQueue::indexOf(const ConversionJob &job) const {
  const auto found = m_entries.find(&job);
  if (found == m_entries.end()) return -1;
  const auto numberOf = [this](const ConversionJob *other) { return m_entries.at(other).number; };
  const auto place =
      std::ranges::lower_bound(m_taskArray, found->second.number, std::ranges::less(), numberOf);
  return place - m_taskArray.begin();
}

int JobQueue::jobCountWithState(JobState state) const {
  return static_cast<int>(m_byState.at(static_cast<size_t>(state)).size());
}

const ConversionJob *JobQueue::convertingJob() const {
  const Index &converting = m_byState.at(static_cast<size_t>(JobStateConverting));
  return converting.empty() ? nullptr : converting.begin()->second;
}

void JobQueue::insert(std::unique_ptr<ConversionJob> job, bool atBottom) {
  ConversionJob *const inserted_ = job.get();
  const Number number = atBottom ? m_bottom++ : m_top--;
  const JobState state = inserted_->state();
  const qsizetype place = atBottom ? m_taskArray.size() : 0;
  Q_EMIT aboutToInsert(place);
  m_entries.emplace(inserted_, Entry{number, state, std::move(job)});
  index(state).emplace(number, inserted_);
  m_taskArray.insert(place, inserted_);
  Q_EMIT inserted(place);
  Q_EMIT countsChanged();
}

bool JobQueue::insertStarted(std::unique_ptr<ConversionJob> job, bool atBottom) {
  ConversionJob &started = *job;
  StartOutcome outcome{};
  {
    // What the start tells its listeners may ask for the next job; this one has not had its turn
    // yet.
    const QScopedValueRollback hold(m_holds, m_holds + 1);
    outcome = started.start();
    insert(std::move(job), atBottom);
    if (outcome == StartOutcome::noRoom) Q_EMIT jobHadNoRoom(&started);
  }
  return outcome == StartOutcome::launched;
}

void JobQueue::take(ConversionJob &job) {
  const qsizetype place = indexOf(job);
  if (place < 0) return;
  Q_EMIT aboutToRemove(place);
  const auto found = m_entries.find(&job);
  index(found->second.state).erase(found->second.number);
  if (!m_leaving) {
    m_leaving = new Leaving(this);
    m_leaving->deleteLater();
  }
  m_leaving->jobs.push_back(std::move(found->second.job));
  m_entries.erase(found);
  m_taskArray.removeAt(place);
  Q_EMIT removed(place);
  Q_EMIT countsChanged();
}

void JobQueue::stateChanged(ConversionJob &job, JobState) {
  const auto found = m_entries.find(&job);
  if (found == m_entries.end()) return;
  Entry &entry = found->second;
  const JobState now = job.state();
  if (now == entry.state) return;
  index(entry.state).erase(entry.number);
  index(now).emplace(entry.number, &job);
  entry.state = now;
  if (now == JobStateConverting) {
    for (ConversionJob *other : jobsInState(JobStateConverting)) {
      if (other != &job) other->pause();
    }
  }
  Q_EMIT countsChanged();
}

bool JobQueue::mayStart() const {
  return !m_paused && m_holds == 0 && jobCountWithState(JobStateConverting) == 0;
}

void JobQueue::startNextJobInQueue(const ConversionJob *alreadyTried) {
  if (m_starting) {
    // From inside a start: the round under way looks once more instead of a second one below it.
    m_askedAgain = true;
    return;
  }
  const QScopedValueRollback starting(m_starting, true);
  std::unordered_set<Number> tried;
  const auto known = m_entries.find(alreadyTried);
  if (known != m_entries.end()) tried.insert(known->second.number);
  size_t triedBefore = 0;
  do {
    m_askedAgain = false;
    triedBefore = tried.size();
    tryRunnable(tried);
  } while (m_askedAgain && tried.size() > triedBefore);
  if (m_held && convertingJob() == nullptr) setPaused(true);
}

void JobQueue::startNextQueuedJob() {
  if (jobCountWithState(JobStatePaused) == 0) startNextJobInQueue();
}

void JobQueue::tryRunnable(std::unordered_set<Number> &tried) {
  Number last = std::numeric_limits<Number>::min();
  while (mayStart()) {
    const Index::value_type *const next = nextRunnable(last);
    if (next == nullptr) return;
    last = next->first;
    ConversionJob &job = *next->second;
    if (tried.insert(last).second && launch(job)) return;
  }
}

bool JobQueue::launch(ConversionJob &job) {
  if (job.state() == JobStatePaused) {
    // Its tool may have ended while it stood still, and the job has not heard of it yet.
    job.continue_();
    return job.state() == JobStateConverting;
  }
  const StartOutcome outcome = job.start();
  if (outcome == StartOutcome::noRoom) Q_EMIT jobHadNoRoom(&job);
  return outcome == StartOutcome::launched;
}

const JobQueue::Index::value_type *JobQueue::nextRunnable(Number after) {
  const Index::value_type *first = nullptr;
  for (const JobState state : {JobStateQueued, JobStatePaused}) {
    if (m_held && state == JobStateQueued) continue;
    const auto found = index(state).upper_bound(after);
    if (found != index(state).end() && (first == nullptr || found->first < first->first))
      first = &*found;
  }
  return first;
}

QList<ConversionJob *> JobQueue::jobsInState(JobState state) {
  QList<ConversionJob *> jobs;
  for (const auto &[number, job] : index(state))
    jobs.append(job);
  return jobs;
}

void JobQueue::setPaused(bool paused) {
  if (m_paused == paused) return;
  m_paused = paused;
  Q_EMIT pausedChanged(paused);
}

void JobQueue::hold() {
  m_held = true;
  setPaused(true);
}

void JobQueue::release() {
  m_held = false;
}

void JobQueue::pauseConverting() {
  for (ConversionJob *job : jobsInState(JobStateConverting))
    job->pause();
}

void JobQueue::remove(const QList<ConversionJob *> &jobs) {
  {
    const QScopedValueRollback hold(m_holds, m_holds + 1);
    for (ConversionJob *job : jobs) {
      if (m_entries.contains(job)) job->remove();
    }
  }
  startNextJobInQueue();
}

void JobQueue::clean() {
  remove(jobsInState(JobStateFinished));
}

void JobQueue::removeAll() {
  ++m_holds;
  const QList<ConversionJob *> jobs = m_taskArray;
  for (ConversionJob *job : jobs) {
    if (indexOf(*job) >= 0) job->remove();
  }
}

}  // namespace decant
