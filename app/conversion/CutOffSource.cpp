#include "CutOffSource.h"

#include <QFileInfo>

#include "Alerts.h"
#include "Logging.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;

void tellOfCutOffSource(const QString &source) {
  ostrak::tk_log_level(4, u"Warning: the source %@ ends before its movie, and stays"_s, source);
  ostrak::Alert alert = ostrak::apptitledAlert(
      ostrak::makeString(
          localized(u"The file '%@' is incomplete: it ends before the movie does. The new file "
                    "holds what there was. Please get the movie again if you want all of it."_s),
          QFileInfo(source).fileName()),
      {localized(u"OK"_s)});
  alert.subject = source;
  alert.identifier = u"incompletesourcewarning"_s;
  ostrak::postAlert(alert);
}

}  // namespace decant
