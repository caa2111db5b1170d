#pragma once

#include <QList>
#include <QObject>
#include <QSemaphore>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>

#include "File.h"

class TrashCan;

namespace decant {

// What has to be true before a source may go, and where it is to go.
struct DisposalRequest {
  QString source;
  std::optional<ostrak::FileIdentity> identity;  // of the source, as it was when its job was queued
  QStringList destinations;                      // every file that was made of it
  std::optional<int> runtimeSeconds;             // of the source, by its probe
  bool deleteOutright = false;                   // else it is moved to the Trash
};

// Seconds that a file plays, or -1.
using DurationReader = std::function<qint32(const QUrl &file)>;

// Disposes of sources after a success: only when the output is there, on the disk, and within 2 s
// or 2 % as long as the source; else the source stays and the log says why. One that should have
// gone and could not be moved is told to the user. The checks run on a worker, one after the other.
// Main thread.
class SourceDisposal final : public QObject {
  Q_OBJECT

 public:
  // `trashCan` must live until this object is gone. Its end leaves a check that is under way, and
  // the source with it, and waits only for a move, at most two seconds.
  explicit SourceDisposal(TrashCan &trashCan, QObject *parent = nullptr);
  ~SourceDisposal() override;

  void dispose(const DisposalRequest &request);
  // A job will read this source once more: a wish for it that waits, or whose checks are under way,
  // is dropped. A move that has begun is not stopped.
  void keep(const ostrak::FileIdentity &source);
  [[nodiscard]] bool isIdle() const { return m_waiting.isEmpty() && !m_running; }

 Q_SIGNALS:
  // A source is gone, or stays for the reason given (null when it went).
  void disposed(const QString &source, const QString &whyKept);
  void idle();

 private:
  class Work;
  static QString checkAndDispose(const DisposalRequest &request, TrashCan &trashCan, Work &work);
  void next();
  void done(const QString &source, const QString &whyKept);

  TrashCan &m_trashCan;
  QList<DisposalRequest> m_waiting;
  std::shared_ptr<QSemaphore> m_finished;
  std::shared_ptr<Work> m_work;                  // on the request that runs
  std::optional<ostrak::FileIdentity> m_source;  // of that request
  bool m_running = false;
};

// Why the source must stay; null when it may go. Blocks (syncs the output, probes its length):
// worker.
[[nodiscard]] QString whyKeepSource(const DisposalRequest &request);
[[nodiscard]] QString whyKeepSource(const DisposalRequest &request, const DurationReader &duration);
// Whether an output of `output` seconds is as long as its source: within 2 s or 2 %.
[[nodiscard]] bool isAsLong(std::optional<int> source, int output);

}  // namespace decant
