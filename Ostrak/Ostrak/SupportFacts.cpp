#include <QFile>

#include "Ostrak.h"
#include "SupportMail.h"
#include "VKHostInformation.h"

namespace ostrak {

SupportFacts SupportFacts::ofProgram() {
  SupportFacts facts;
  facts.appName = tk->appName();
  facts.appVersion = tk->appVersionString();
  facts.appBuild = tk->appBuildNumber();
  facts.machineType = _machineType();
  facts.systemVersion = VKHostInformation::systemVersion();
  facts.isUserAdmin = _isUserAdmin();
  facts.crashLogs = tk->appCrashLogs().size();
  return facts;
}

QByteArray SupportFacts::readPreferences() {
  tk->userDefaults().synchronize();
  QFile file(tk->prefsPath());
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace ostrak
