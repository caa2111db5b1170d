#pragma once

#include <QEventLoop>
#include <QObject>

#include "AlertLedger.h"
#include "Destinations.h"
#include "DryRunReporter.h"
#include "IntakeFeeder.h"

namespace decant {

// What a dry run needs to know.
struct DryRunSetup {
  QString toolPath;
  QString progressFolder;
  QString tempFolder;  // where the one-second test may write
  QStringList preferredLanguages;
  DestinationChoice destination;
  std::optional<int> audioTrack;
};

// Probes every file, decides all that a conversion decides, and prints the argument lists. Makes no
// file that stays. Main thread; runs the event loop.
class DryRun final : public QObject {
  Q_OBJECT

 public:
  DryRun(DryRunSetup setup, ConvertInput input, DryRunReporter &reporter);

  // The exit status.
  [[nodiscard]] int run();
  // Takes every alert of the run; for the presenter.
  [[nodiscard]] bool takeAlert(const ostrak::Alert &alert);

 private:
  void plan();
  [[nodiscard]] PlannedJob plannedJob(MKVFileInfo record) const;
  void refuse(const QString &source, const FileFailure &failure);
  void nextSoon();
  void checkEnd();

  DryRunSetup m_setup;
  DryRunReporter &m_reporter;
  Intake m_intake;
  IntakeFeeder m_feeder;
  ClaimedNames m_claimed;
  QEventLoop m_loop;
  AlertLedger m_ledger;
  bool m_anyRefused = false;
  bool m_hasEnded = false;
  int m_signal = 0;
};

}  // namespace decant
