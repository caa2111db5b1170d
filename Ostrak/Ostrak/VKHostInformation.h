#pragma once

#include <QString>
#include <QStringList>

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
};

// Whether a group with these members lists the account; one without a name is never listed.
[[nodiscard]] bool isListedMember(const QString &user, const QStringList &members);

[[nodiscard]] QString _machineType();
[[nodiscard]] bool _isUserAdmin();

}  // namespace ostrak
