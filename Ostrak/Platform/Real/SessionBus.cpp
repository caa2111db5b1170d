#include "SessionBus.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace ostrak {

QString sessionBusAddressOfProcess() {
  const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
  if (!address.isEmpty()) return address;
  const QString runtimeFolder = qEnvironmentVariable("XDG_RUNTIME_DIR");
  const QString userBus = runtimeFolder + u"/bus"_s;
  if (runtimeFolder.isEmpty() || !QFile::exists(userBus)) return {};
  return u"unix:path="_s + userBus;
}

QDBusConnection sessionBusOfProcess() {
  if (sessionBusAddressOfProcess().isEmpty()) return QDBusConnection(QString());
  return QDBusConnection::sessionBus();
}

}  // namespace ostrak
