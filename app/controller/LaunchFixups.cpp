#include "LaunchFixups.h"

#include "Defaults.h"
#include "Format.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::defaultInt;
using ostrak::setDefaultInt;
using ostrak::tk;

void repairRetiredValues() {
  if (defaultInt(u"ExternalSubtitleEncoding"_s) == 1)
    setDefaultInt(u"ExternalSubtitleEncoding"_s, 0);
  const qint64 handling = defaultInt(u"CustomUnknownHandling"_s);
  if (handling != 0 && handling != 1) setDefaultInt(u"CustomUnknownHandling"_s, 1);
}

bool speedHintIsDue() {
  if (defaultInt(u"WelcomeShown"_s) != 0) return false;
  const QString counter = ostrak::makeString(u"ostrak_%@_usages"_s, tk->appVersionString());
  return defaultInt(counter) >= 4 && defaultInt(u"ConversionPreset"_s) == 0;
}

void speedHintShown() {
  setDefaultInt(u"WelcomeShown"_s, 1);
  tk->userDefaults().synchronize();
}

void migrateDestinationIndex() {
  if (defaultInt(u"HasUpgradedFromPre13"_s) != 0) return;
  const qint64 destination = defaultInt(u"DefaultDestination"_s);
  if (destination != 0) setDefaultInt(u"DefaultDestination"_s, destination + 1);
  setDefaultInt(u"HasUpgradedFromPre13"_s, 1);
}

void repairDestinationIndex() {
  const qint64 bookmarks = ostrak::defaultArray(u"DestinationBookmarks"_s).size();
  if (defaultInt(u"DefaultDestination"_s) > bookmarks + 2)
    setDefaultInt(u"DefaultDestination"_s, bookmarks + 1);
  constexpr qint64 separator = 2;
  if (defaultInt(u"DefaultDestination"_s) == separator) setDefaultInt(u"DefaultDestination"_s, 0);
}

}  // namespace decant
