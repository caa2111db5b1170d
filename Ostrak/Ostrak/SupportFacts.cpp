#include "File.h"
#include "Logging.h"
#include "Ostrak.h"
#include "SupportMail.h"
#include "VKHostInformation.h"

namespace ostrak {

std::function<SupportFacts()> SupportFacts::gatherer(bool withPreferences) {
  SupportFacts known;
  known.appName = tk->appName();
  known.appVersion = tk->appVersionString();
  known.appBuild = tk->appBuildNumber();
  if (withPreferences) tk->userDefaults().synchronize();
  return [known, withPreferences, prefsPath = tk->prefsPath(),
          crashFolders = tk->setup().crashFolders] {
    SupportFacts facts = known;
    facts.machineType = _machineType();
    facts.systemVersion = VKHostInformation::systemVersion();
    facts.isUserAdmin = _isUserAdmin();
    facts.crashLogs = appCrashLogs(known.appName, crashFolders).size();
    if (withPreferences) facts.preferences = contents(prefsPath).value_or(QByteArray());
    return facts;
  };
}

}  // namespace ostrak
