#include "VKHostInformation.h"

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

#include <QFile>
#include <QSysInfo>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// Large enough for groups with thousands of members; a larger one counts as unreadable.
constexpr std::size_t databaseBuffer = std::size_t{1} << 20U;

QString accountName() {
  std::vector<char> buffer(databaseBuffer);
  passwd entry{};
  passwd *found = nullptr;
  if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return {};
  return QString::fromLocal8Bit(found->pw_name);
}

}  // namespace

QString VKHostInformation::machineType() {
  QFile file(u"/sys/class/dmi/id/product_name"_s);
  if (!file.open(QIODevice::ReadOnly)) return u""_s;
  constexpr qint64 longest = 255;
  const QString name = QString::fromUtf8(file.read(longest)).trimmed();
  return name.isEmpty() ? u""_s : name;
}

bool VKHostInformation::isUserAdmin() {
  const QString user = accountName();
  std::vector<char> buffer(databaseBuffer);
  group entry{};
  group *found = nullptr;
  if (getgrnam_r("admin", &entry, buffer.data(), buffer.size(), &found) != 0 || !found)
    return false;
  QStringList members;
  for (char **member = found->gr_mem; *member; ++member)
    members.append(QString::fromLocal8Bit(*member));
  return isListedMember(user, members);
}

QString VKHostInformation::systemVersion() {
  return QSysInfo::prettyProductName() + u' ' + QSysInfo::kernelVersion();
}

bool isListedMember(const QString &user, const QStringList &members) {
  return !user.isEmpty() && members.contains(user, Qt::CaseSensitive);
}

QString _machineType() {
  return VKHostInformation::machineType();
}
bool _isUserAdmin() {
  return VKHostInformation::isUserAdmin();
}

}  // namespace ostrak
