#include "AlertLedger.h"

#include <QPointer>

#include "Dispatch.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// The probe raises some of its alerts this much later.
constexpr float lateSeconds = 0.1F;

// An alert that nobody sees: it comes when all that were posted before it have been told.
const QString lastAlert = u"org.decant.Decant.last"_s;

QString entryOf(const QString &source, const QString &text) {
  return source + QChar(u'\0') + text;
}

}  // namespace

void AlertLedger::remember(const QString &source, const QString &text) {
  m_told.insert(entryOf(source, text));
}

bool AlertLedger::isTold(const ostrak::Alert &alert) const {
  return alert.identifier == lastAlert || m_told.contains(entryOf(alert.subject, alert.message));
}

void AlertLedger::probeEnded() {
  ++m_late;
  ostrak::dispatch_after_main(
      [ledger = QPointer(this)] {
        if (!ledger || --ledger->m_late > 0) return;
        Q_EMIT ledger->quiet();
      },
      lateSeconds);
}

void AlertLedger::askEnd() {
  ostrak::Alert last;
  last.identifier = lastAlert;
  ostrak::postAlert(last, [ledger = QPointer(this)](int) {
    if (ledger) Q_EMIT ledger->allTold();
  });
}

}  // namespace decant
