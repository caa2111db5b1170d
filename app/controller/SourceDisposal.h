#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class TrashCan;

namespace decant {

// What has to be true before a source may go, and where it is to go.
struct DisposalRequest {
  QString source;
  QString destination;
  std::optional<int> runtimeSeconds;  // of the source, by its probe
  bool deleteOutright = false;        // else it is moved to the Trash
};

// Disposes of sources after a success: only when the output is there, on the disk, and within 2 s or 2 %
// as long as the source; else the source stays and the log says why. The checks run on a worker, one
// after the other. Main thread.
class SourceDisposal final : public QObject {
  Q_OBJECT

 public:
  explicit SourceDisposal(TrashCan &trashCan, QObject *parent = nullptr);
  ~SourceDisposal() override;

  void dispose(const DisposalRequest &request);
  [[nodiscard]] bool isIdle() const { return m_pending == 0; }

 Q_SIGNALS:
  void idle();

 private:
  TrashCan &m_trashCan;
  int m_pending = 0;
};

// Why the source must stay; null when it may go. Blocks (syncs the output, probes its length): worker.
[[nodiscard]] QString whyKeepSource(const DisposalRequest &request);
// Whether an output of `output` seconds is as long as its source: within 2 s or 2 %.
[[nodiscard]] bool isAsLong(std::optional<int> source, int output);

}  // namespace decant
