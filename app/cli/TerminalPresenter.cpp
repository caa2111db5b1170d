#include "TerminalPresenter.h"

#include "ErrorLine.h"
#include "Ostrak.h"
#include "Printable.h"
#include "TextSink.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

int declined(const ostrak::Alert &alert) {
  switch (alert.buttons.size()) {
    case 0:
    case 1:
      return ostrak::firstButton;
    case 2:
      return ostrak::secondButton;
    default:
      return ostrak::thirdButton;
  }
}

}  // namespace

QString alertLine(const ostrak::Alert &alert, const QString &appName) {
  const QString message = onOneLine(alert.message);
  if (alert.title.isEmpty() || alert.title == appName) return message;
  const QString line = onOneLine(alert.title) + u": "_s + message;
  return line;
}

int TerminalPresenter::present(ostrak::Alert &alert) {
  if (alert.control == ostrak::Alert::Control::Suppression) alert.value = 0;
  const bool handled = m_listener && m_listener(alert);
  if (!handled) writeErrorLine(m_error, alertLine(alert, ostrak::tk->appName()));
  return alert.problemReport ? declined(alert) : ostrak::firstButton;
}

}  // namespace decant
