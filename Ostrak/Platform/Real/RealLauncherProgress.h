#pragma once

#include <QDBusConnection>
#include <QString>

#include "LauncherProgress.h"

// Launcher progress by the signals of com.canonical.Unity.LauncherEntry, which several desktops
// read. Sends only what has changed by a hundredth, and hides everything at its end. Without a bus
// it does nothing, with one log line. Main thread.
class RealLauncherProgress final : public LauncherProgress {
 public:
  // `desktopEntry` is the name of the program's desktop file without ".desktop".
  RealLauncherProgress(const QDBusConnection &bus, const QString &desktopEntry);
  ~RealLauncherProgress() override;
  RealLauncherProgress(const RealLauncherProgress &) = delete;
  RealLauncherProgress &operator=(const RealLauncherProgress &) = delete;

  void show(std::optional<double> fraction, int count) override;

 private:
  QDBusConnection m_bus;
  QString m_applicationUri;
  int m_percent;
  int m_count = 0;
  bool m_complained = false;
};
