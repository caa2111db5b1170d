#pragma once

#include <QObject>
#include <QString>
#include <optional>

#include "ConvertInput.h"
#include "ConvertReporter.h"
#include "Intake.h"

namespace decant {

// Gives the files to intake one at a time, so that the first conversion starts after the first
// probe and later probes run beside it. Main thread.
class IntakeFeeder final : public QObject {
  Q_OBJECT

 public:
  // `intake` outlives this. `audioTrack` is a stream index that every movie has to have.
  IntakeFeeder(Intake &intake, ConvertInput input, std::optional<int> audioTrack,
               QObject *parent = nullptr);

  // Goes on with the next file; called once to begin and once after each `shown` and `refused`.
  void next();
  // No further file is given to intake.
  void stop() { m_stopped = true; }
  // The file that intake has now; null before the first and after the last.
  [[nodiscard]] const QString &current() const { return m_current; }
  [[nodiscard]] bool isExhausted() const { return m_exhausted; }

 Q_SIGNALS:
  // Intake shows the record of `source`, the track is chosen: it is to be queued now.
  void shown(const QString &source);
  // `source` does not become a job.
  void refused(const QString &source, const decant::FileFailure &failure);
  // There is no file left.
  void exhausted();

 private:
  void probed();
  [[nodiscard]] bool chooseTrack();

  Intake &m_intake;
  ConvertInput m_input;
  std::optional<int> m_audioTrack;
  qsizetype m_next = 0;
  QString m_current;
  bool m_stopped = false;
  bool m_exhausted = false;
};

// The words of a refusing outcome: its last alert.
[[nodiscard]] FileFailure failureOfOutcome(const ProbeOutcome &outcome, bool toolMissing);
// Reads files as the probe does, and pairs this subtitle file with each.
[[nodiscard]] Prober proberWithSubtitle(const QString &subtitle);

}  // namespace decant
