#pragma once

#include <QAbstractListModel>

#include "JobState.h"

namespace decant {

class ConversionJob;
class JobQueue;

// The queue as a list for views: one row a job, in the queue's order. An update of a job repaints
// its row only. Main thread.
class JobListModel final : public QAbstractListModel {
  Q_OBJECT

 public:
  enum Role {
    NameRole = Qt::DisplayRole,
    StateRole = Qt::UserRole,  // JobState
    StatusRole,                // the status line
    ShorterStatusRole,         // lines for less room, shorter and shorter
    ProgressRole,              // percent
    FastRole                   // the sound is copied
  };

  // `queue` outlives the model.
  explicit JobListModel(JobQueue &queue, QObject *parent = nullptr);
  ~JobListModel() override;

  [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
  // The job of a row; null for an index that is not of this model.
  [[nodiscard]] ConversionJob *jobAt(const QModelIndex &index) const;

 private:
  [[nodiscard]] static QString toolTip(const ConversionJob &job);
  void follow(ConversionJob &job);
  void jobChanged(const ConversionJob &job);

  JobQueue &m_queue;
};

}  // namespace decant
