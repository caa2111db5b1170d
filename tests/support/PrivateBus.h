#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>

// A message bus of the test's own, without any service but those that the test starts on it. It
// ends with this object, or with the test program.
class PrivateBus final {
 public:
  PrivateBus();
  ~PrivateBus();
  PrivateBus(const PrivateBus &) = delete;
  PrivateBus &operator=(const PrivateBus &) = delete;

  // Empty when the bus could not be started.
  [[nodiscard]] const QString &address() const { return m_address; }
  // From now on the bus itself starts this command when the name is asked for and nobody has it.
  [[nodiscard]] bool makeActivatable(const QString &name, const QStringList &command) const;
  // The bus goes away under everybody who is on it.
  void end();

 private:
  QTemporaryDir m_folder;
  QProcess m_daemon;
  QString m_address;
};

// A service written in Python (python-dbusmock) on such a bus: SCRIPT ADDRESS LOGFILE ARGUMENT…,
// which prints "ready" once it owns its names and writes what it was asked to LOGFILE, each line
// beginning with a time.
class MockService final {
 public:
  MockService(const PrivateBus &bus, const QString &script, const QStringList &arguments);
  // What runs such a script.
  [[nodiscard]] static QString interpreter();
  ~MockService();
  MockService(const MockService &) = delete;
  MockService &operator=(const MockService &) = delete;

  [[nodiscard]] bool isReady() const { return m_ready; }
  // The lines logged so far, without their times.
  [[nodiscard]] QStringList log() const;
  [[nodiscard]] static QStringList logOf(const QString &path);
  // Whether it has stopped itself, to keep an answer back until it is thawed.
  [[nodiscard]] bool isFrozen() const;
  void thaw() const;

 private:
  QTemporaryDir m_folder;
  QProcess m_process;
  bool m_ready = false;
};
