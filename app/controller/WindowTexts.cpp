#include "WindowTexts.h"

#include "Format.h"
#include "Ostrak.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::localized;
using ostrak::makeString;
using ostrak::tk;

QString windowTitleText(bool paused, qsizetype jobs, int queued) {
  const QString status = paused ? localized(u" (Paused)"_s) : u" "_s;
  const QString counts =
      jobs == 0 ? u""_s : makeString(localized(u" [%li Job(s), %li Queued]"_s), jobs, queued);
  return makeString(u"%@%@%@"_s, tk->appName(), status, counts);
}

QString addButtonText(bool paused) {
  return paused ? localized(u"Add to Queue"_s) : localized(u"Start Conversion"_s);
}

QString versionText() {
  return makeString(u"%@ %@"_s, localized(u"Version:"_s), tk->appVersionString());
}

QString buildText() {
  return makeString(u"%@ %i"_s, localized(u"Build:"_s), tk->appBuildNumber());
}

}  // namespace decant
