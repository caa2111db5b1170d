#pragma once

#include <QDBusConnection>
#include <QString>

// What a real sleep inhibitor needs to know of the desktop, as values.
struct SleepServices {
  QString sessionBus;  // addresses; empty where there is no bus
  QString systemBus;
  bool sandboxed = false;   // then only the portal is asked
  QString applicationName;  // shown by desktops that list what keeps them awake
  QString applicationId;

  // Those of the running process: the standard addresses, a sandbox where /.flatpak-info exists.
  [[nodiscard]] static SleepServices ofProcess(const QString &name, const QString &id);
};

// The open connections to both buses; either may be unconnected.
struct SleepBuses {
  QDBusConnection session;
  QDBusConnection system;
};
