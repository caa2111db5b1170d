#pragma once

#include <QEventLoop>
#include <QHash>
#include <QList>
#include <QObject>
#include <QTimer>

#include "AlertLedger.h"
#include "Alerts.h"
#include "ConvertReporter.h"
#include "IntakeFeeder.h"

namespace decant {

class AppDelegate;
class ConversionJob;

// What came of a run.
struct ConvertResult {
  int finished = 0;
  int failed = 0;
  int signal = 0;        // that interrupted it; 0 for none
  bool aborted = false;  // the system can't go on
};

// One run over all files: feeds intake, queues what it shows, numbers the jobs and reports every
// event in order. Main thread; runs the event loop.
class ConvertRun final : public QObject {
  Q_OBJECT

 public:
  // All references outlive this. The delegate's jobs go to the bottom of its queue.
  ConvertRun(AppDelegate &delegate, ConvertInput input, std::optional<int> audioTrack,
             ConvertReporter &reporter);

  // Until every file has its end, or a signal came. Then no child runs and no partial output is
  // left.
  [[nodiscard]] ConvertResult run();
  // Tells of stored settings that are not used, each by itself; the alert that has them all is not
  // told again. Before `run`.
  void tellSettings(const QStringList &complaints);
  // Takes every alert of the run; for the presenter.
  [[nodiscard]] bool takeAlert(const ostrak::Alert &alert);

 private:
  // A job that is in the queue.
  struct Known {
    JobLabel label;
    bool hasStarted = false;
    bool hasEnded = false;
  };

  void queueShown();
  void refuse(const QString &source, const FileFailure &failure);
  void adopt(qsizetype index);
  void stateChanged(ConversionJob &job);
  void progressChanged(const ConversionJob &job);
  void jobFailed(ConversionJob &job);
  void jobFailed(ConversionJob &job, const FileFailure &failure);
  void retire(ConversionJob &job);
  void reportUnknownProgress();

  void tellHeld(bool refused);
  [[nodiscard]] JobLabel labelOf(const QString &source) const;

  void nextSoon();
  void checkEnd();
  void allTold();
  [[nodiscard]] bool isOver() const;
  void interrupt(int signal);
  void end();

  AppDelegate &m_delegate;
  ConvertReporter &m_reporter;
  IntakeFeeder m_feeder;
  QEventLoop m_loop;
  QTimer m_unknownProgress;
  ConvertResult m_result;
  QHash<const ConversionJob *, Known> m_jobs;
  QHash<QString, int> m_numbers;  // the last job of each source
  int m_lastNumber = 0;
  QString m_awaitedKind;        // of a refusal whose words are on their way as an alert
  QList<ostrak::Alert> m_held;  // of the file that is being probed
  AlertLedger m_ledger;
  bool m_hasEnded = false;  // of itself
};

}  // namespace decant
