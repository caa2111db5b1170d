#pragma once

#include <QDBusConnection>
#include <QString>

#include "LauncherProgress.h"

// Launcher progress by the signals of com.canonical.Unity.LauncherEntry, which several desktops
// read. Sends only what has changed by a visible amount. Main thread.
class RealLauncherProgress final : public LauncherProgress {
 public:
  RealLauncherProgress(const QDBusConnection &bus, const QString &desktopEntry);

  void show(std::optional<double> fraction, int count) override;

 private:
  QDBusConnection m_bus;
  QString m_applicationUri;
  int m_percent = -1;
  int m_count = 0;
};
