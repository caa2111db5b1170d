#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantMap>
#include <functional>
#include <optional>

namespace ostrak {

// Facts about the machine and the user, for problem reports. Callable from any thread.
class VKHostInformation final {
 public:
  VKHostInformation() = delete;
  // The DMI product name; empty when it cannot be read.
  [[nodiscard]] static QString machineType();
  // Whether the user's account is a listed member of the group "admin"; membership through the
  // primary group alone does not count. False where there is no such group.
  [[nodiscard]] static bool isUserAdmin();
  // The name of the operating system with its version, and the kernel's version.
  [[nodiscard]] static QString systemVersion();
  // One address of this machine as a text, never that of a loopback interface unless there is no
  // other. A machine that cannot list its interfaces ends the process with status 1.
  [[nodiscard]] static QString ipAddress(bool wantIPv6);
  // The number of the disk that holds the root file system, -1 while there is none.
  [[nodiscard]] static int bootDiskBSDNum();
  // Adds a disk, {"DiskNumber": number, "DiskName": "name (detail)"}, or puts `name` before that of
  // the disk in the list that has this number. A null detail is left out.
  static void _addDiskToList(QList<QVariantMap> &disks, int number, const QString &name,
                             const QString &detail = {});
  // The Growl notification application; nothing where it is not installed.
  [[nodiscard]] static std::optional<QUrl> growlInstallURL();
  // The same below another root than "/" and in another home.
  [[nodiscard]] static std::optional<QUrl> growlInstallURL(const QString &root,
                                                           const QString &home);
};

// An address of a network interface, as the system lists them.
struct InterfaceAddress {
  QString interface;
  int family = 0;  // AF_INET, AF_INET6 or another one
  bool up = false;
  QString text;  // null when it has none
};
// The address of the first interface of that family that is up and is no loopback; the loopback
// address when there is none.
[[nodiscard]] QString chosenAddress(const QList<InterfaceAddress> &addresses, bool wantIPv6);

// The number in a disk's device name: 1 for "/dev/disk1s1". Nothing for what is no such disk.
[[nodiscard]] std::optional<int> diskNumber(const QString &device);

// A disk's number that is looked up until it is found, and remembered from then on.
class RememberedDiskNumber final {
 public:
  // -1 while `device` names no disk. One caller at a time.
  [[nodiscard]] int find(const std::function<QString()> &device);

 private:
  static constexpr int unknown = -100;
  int m_number = unknown;
};

// Whether a group with these members lists the account; one without a name is never listed.
[[nodiscard]] bool isListedMember(const QString &user, const QStringList &members);

[[nodiscard]] QString _machineType();
[[nodiscard]] bool _isUserAdmin();

}  // namespace ostrak
