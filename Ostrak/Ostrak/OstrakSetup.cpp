#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStandardPaths>
#include <vector>

#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// The folder that an environment variable names; one that is not absolute is ignored.
QString baseFolder(const char *variable, const QString &belowHome) {
  const QString named = qEnvironmentVariable(variable);
  return QDir::isAbsolutePath(named) ? named : QDir::homePath() + belowHome;
}

QString homeOfUser() {
  constexpr std::size_t size = 65536;
  std::vector<char> buffer(size);
  passwd entry{};
  passwd *found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) {
    return QDir::homePath();
  }
  return QFile::decodeName(found->pw_dir);
}

QJsonObject readInfo(const QString &bundlePath) {
  QFile file(bundlePath + u"/resources/Info.json"_s);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QJsonDocument::fromJson(file.readAll()).object();
}

}  // namespace

OstrakSetup OstrakSetup::ofProcess() {
  OstrakSetup setup;
  setup.bundlePath = QFileInfo(QFile::symLinkTarget(u"/proc/self/exe"_s)).absolutePath();
  setup.info = readInfo(setup.bundlePath);
  const QString identifier =
      setup.info.value("CFBundleIdentifier"_L1).toString(u"org.decant.Decant"_s);
  const QString name = setup.info.value("CFBundleName"_L1).toString(u"Decant"_s);
  setup.prefsPath = baseFolder("XDG_CONFIG_HOME", u"/.config"_s) + u'/' + identifier + u".conf"_s;
  setup.suppDir = baseFolder("XDG_DATA_HOME", u"/.local/share"_s) + u'/' + name;
  setup.deskDir = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
  setup.homeInsideSandbox = QDir::homePath();
  setup.homeOutsideSandbox = homeOfUser();
  setup.tempDir = QDir::tempPath();
  setup.crashFolders = {u"/var/lib/systemd/coredump"_s, u"/var/crash"_s};
  return setup;
}

}  // namespace ostrak
