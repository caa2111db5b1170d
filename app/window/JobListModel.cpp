#include "JobListModel.h"

#include "ConversionJob.h"
#include "JobQueue.h"

using namespace Qt::StringLiterals;

namespace decant {

JobListModel::JobListModel(JobQueue &queue, QObject *parent)
    : QAbstractListModel(parent), m_queue(queue) {
  connect(&queue, &JobQueue::aboutToInsert, this, [this](qsizetype index) {
    beginInsertRows({}, static_cast<int>(index), static_cast<int>(index));
  });
  connect(&queue, &JobQueue::inserted, this, [this](qsizetype index) {
    endInsertRows();
    follow(*m_queue.taskArray().at(index));
  });
  connect(&queue, &JobQueue::aboutToRemove, this, [this](qsizetype index) {
    beginRemoveRows({}, static_cast<int>(index), static_cast<int>(index));
  });
  connect(&queue, &JobQueue::removed, this, [this] { endRemoveRows(); });
  for (ConversionJob *job : queue.taskArray())
    follow(*job);
}

JobListModel::~JobListModel() = default;

int JobListModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(m_queue.taskArray().size());
}

// What may be cut off in the row, and where the output goes.
QString JobListModel::toolTip(const ConversionJob &job) {
  const QStringList lines{job.fileInfo().fileName, job.stateInfoString(),
                          job.fileInfo().destinationURL.toLocalFile()};
  return lines.join(u'\n').toHtmlEscaped().replace(u"\n"_s, u"<br>"_s);
}

QVariant JobListModel::data(const QModelIndex &index, int role) const {
  const ConversionJob *job = jobAt(index);
  if (!job) return {};
  switch (role) {
    case NameRole:
      return job->fileInfo().fileName;
    case StateRole:
      return static_cast<int>(job->state());
    case StatusRole:
      return job->stateInfoString();
    case ShorterStatusRole:
      return shorterStateInfoStrings(job->statusFacts());
    case ProgressRole:
      return job->progress();
    case FastRole:
      return job->fastmode();
    case Qt::ToolTipRole:
      return toolTip(*job);
    case Qt::AccessibleTextRole: {
      const QString text = job->fileInfo().fileName + u", "_s + job->stateInfoString();
      return text;
    }
    default:
      return {};
  }
}

ConversionJob *JobListModel::jobAt(const QModelIndex &index) const {
  if (!index.isValid() || !checkIndex(index)) return nullptr;
  return m_queue.taskArray().at(index.row());
}

void JobListModel::follow(ConversionJob &job) {
  connect(&job, &ConversionJob::stateInfoStringChanged, this, [this, &job] { jobChanged(job); });
}

void JobListModel::jobChanged(const ConversionJob &job) {
  const qsizetype row = m_queue.indexOf(job);
  if (row < 0) return;
  const QModelIndex index = createIndex(static_cast<int>(row), 0);
  Q_EMIT dataChanged(index, index);
}

}  // namespace decant
