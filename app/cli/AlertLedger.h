#pragma once

#include <QObject>
#include <QSet>
#include <QString>

#include "Alerts.h"

namespace decant {

// Keeps account of what a run has told, so that nothing is told twice, and of what may still come,
// so that nothing is lost at its end. Main thread.
class AlertLedger final : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

  // A failure of `source` was told in these words.
  void remember(const QString &source, const QString &text);
  // Whether an alert needs no telling: its words were told, or it is the ledger's own.
  [[nodiscard]] bool isTold(const ostrak::Alert &alert) const;

  // A probe has ended; some of its alerts come a moment later.
  void probeEnded();
  [[nodiscard]] bool isQuiet() const { return m_late == 0; }
  // Emits allTold when every alert that has been posted by now is told.
  void askEnd();

 Q_SIGNALS:
  void quiet();
  void allTold();

 private:
  QSet<QString> m_told;
  int m_late = 0;  // probes whose late alerts may still come
};

}  // namespace decant
