#include "VKHostInformation.h"

#include <arpa/inet.h>
#include <grp.h>
#include <ifaddrs.h>
#include <mntent.h>
#include <net/if.h>
#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QMutex>
#include <QSysInfo>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "File.h"
#include "Format.h"

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

QString addressText(const sockaddr *address) {
  if (!address) return {};
  const void *bytes = nullptr;
  if (address->sa_family == AF_INET)
    bytes = &reinterpret_cast<const sockaddr_in *>(address)->sin_addr;
  else if (address->sa_family == AF_INET6)
    bytes = &reinterpret_cast<const sockaddr_in6 *>(address)->sin6_addr;
  else
    return {};
  std::array<char, INET6_ADDRSTRLEN> text{};
  return QString::fromLatin1(inet_ntop(address->sa_family, bytes, text.data(), text.size()));
}

// The device that the root file system is mounted from; null when that cannot be told.
QString deviceOfRoot() {
  const std::unique_ptr<FILE, int (*)(FILE *)> table(setmntent("/proc/self/mounts", "re"),
                                                     endmntent);
  if (!table) return {};
  constexpr size_t longest = 4096;
  std::array<char, longest> buffer{};
  mntent entry{};
  QString device;
  // What is mounted last covers what was there before.
  while (getmntent_r(table.get(), &entry, buffer.data(), static_cast<int>(buffer.size())))
    if (qstrcmp(entry.mnt_dir, "/") == 0) device = QFile::decodeName(entry.mnt_fsname);
  return device;
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

QString VKHostInformation::ipAddress(bool wantIPv6) {
  ifaddrs *first = nullptr;
  if (getifaddrs(&first) != 0) {
    std::perror("getifaddrs");
    std::exit(EXIT_FAILURE);
  }
  const std::unique_ptr<ifaddrs, void (*)(ifaddrs *)> owner(first, freeifaddrs);
  QList<InterfaceAddress> addresses;
  for (const ifaddrs *entry = first; entry; entry = entry->ifa_next)
    addresses.append({QFile::decodeName(entry->ifa_name),
                      entry->ifa_addr ? entry->ifa_addr->sa_family : AF_UNSPEC,
                      (entry->ifa_flags & IFF_UP) != 0, addressText(entry->ifa_addr)});
  return chosenAddress(addresses, wantIPv6);
}

QString chosenAddress(const QList<InterfaceAddress> &addresses, bool wantIPv6) {
  const int family = wantIPv6 ? AF_INET6 : AF_INET;
  for (const InterfaceAddress &each : addresses)
    if (each.up && each.family == family && !each.text.isNull() &&
        !each.interface.startsWith("lo"_L1))
      return each.text;
  return wantIPv6 ? u"::1"_s : u"127.0.0.1"_s;
}

int VKHostInformation::bootDiskBSDNum() {
  static QMutex mutex;
  static RememberedDiskNumber remembered;
  const QMutexLocker locker(&mutex);
  return remembered.find(deviceOfRoot);
}

std::optional<int> diskNumber(const QString &device) {
  const QString disk = u"/dev/disk"_s;
  if (!device.startsWith(disk)) return {};
  bool isNumber = false;
  const int number = device.mid(disk.size()).section(u's', 0, 0).toInt(&isNumber);
  // "/dev/disk/by-uuid/…" is a link to a disk, and no number of one.
  return isNumber && number >= 0 ? std::optional(number) : std::nullopt;
}

int RememberedDiskNumber::find(const std::function<QString()> &device) {
  if (m_number != unknown) return m_number;
  const std::optional<int> number = diskNumber(device());
  if (!number) return -1;
  return m_number = *number;
}

void VKHostInformation::_addDiskToList(QList<QVariantMap> &disks, int number, const QString &name,
                                       const QString &detail) {
  const QString numberKey = u"DiskNumber"_s;
  const QString nameKey = u"DiskName"_s;
  for (QVariantMap &disk : disks) {
    if (disk.value(numberKey) != number) continue;
    disk[nameKey] = makeString(u"%@, %@"_s, name, disk.value(nameKey).toString());
    return;
  }
  const QString whole = detail.isNull() ? name : makeString(u"%@ (%@)"_s, name, detail);
  disks.append({{numberKey, number}, {nameKey, whole}});
}

std::optional<QUrl> VKHostInformation::growlInstallURL() {
  return growlInstallURL({}, QDir::homePath());
}

std::optional<QUrl> VKHostInformation::growlInstallURL(const QString &root, const QString &home) {
  const QString pane =
      u"/Library/PreferencePanes/Growl.prefPane/Contents/Resources/GrowlHelperApp.app"_s;
  const QStringList places{root + u"/Applications/Growl.app"_s, home + pane, root + pane};
  for (const QString &place : places)
    if (fileExists(place)) return QUrl::fromLocalFile(place);
  return {};
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
