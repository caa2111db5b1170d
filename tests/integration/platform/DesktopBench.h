#pragma once

#include <QDBusConnection>
#include <QMutex>
#include <QTemporaryDir>
#include <memory>

#include "Ostrak.h"
#include "PrivateBus.h"

// A bus of the test's own with mocked services on it, a connection to it, and a library that keeps
// what is logged.
class DesktopBench final {
 public:
  DesktopBench();
  ~DesktopBench();
  DesktopBench(const DesktopBench &) = delete;
  DesktopBench &operator=(const DesktopBench &) = delete;

  [[nodiscard]] PrivateBus &privateBus() { return *m_privateBus; }
  [[nodiscard]] const QDBusConnection &bus() const { return m_bus; }
  [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
  // What starts desktopservices.py with these kinds and a log at `log`.
  [[nodiscard]] QStringList serviceCommand(const QString &log, const QStringList &kinds) const;

  // Starts desktopservices.py with these kinds, in the place of what was started before.
  [[nodiscard]] bool startServices(const QStringList &kinds);
  void endServices();
  [[nodiscard]] const MockService &services() const { return *m_services; }
  // Makes a mock send a signal; its object has the path that belongs to the name.
  void emitSignal(const QString &service, const QString &signal, const QString &signature,
                  const QVariantList &arguments);
  // What the bus, or this service on it, has sent so far has been heard afterwards.
  void settle(const QString &service = QStringLiteral("org.freedesktop.DBus")) const;

  // Messages that went to the system log.
  [[nodiscard]] QStringList logged() const;

 private:
  QTemporaryDir m_folder;
  mutable QMutex m_mutex;
  QStringList m_logged;
  std::unique_ptr<ostrak::Ostrak> m_library;
  std::unique_ptr<PrivateBus> m_privateBus;
  std::unique_ptr<MockService> m_services;
  QDBusConnection m_bus;
};

// A connection that was never made, as where there is no bus.
[[nodiscard]] QDBusConnection noBus();
