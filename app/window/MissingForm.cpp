#include "MissingForm.h"

#include "Alerts.h"
#include "Format.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::localized;

namespace decant {

QString missingFormText(const QString &form) {
  const QString file = form + u".ui"_s;
  return ostrak::makeString(
      localized(u"%@ is missing from the program's folder; install Decant again."_s), file);
}

void tellFormMissing(const QString &form) {
  ostrak::postAlert(ostrak::apptitledAlert(missingFormText(form), {localized(u"OK"_s)}));
}

}  // namespace decant
