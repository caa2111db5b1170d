#pragma once

#include <QDBusConnection>
#include <QString>

namespace ostrak {

// Where the process finds the user's bus; empty where there is none.
[[nodiscard]] QString sessionBusAddressOfProcess();

// The connection to it that Qt's own parts share. Unconnected where there is no bus: the bus
// library by itself would start one that nobody else is on. Main thread, after the application
// object was made.
[[nodiscard]] QDBusConnection sessionBusOfProcess();

}  // namespace ostrak
