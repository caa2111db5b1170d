#pragma once

#include <QSet>
#include <QString>

// Whether the process may use a folder by itself, or only after the user granted it.
class Sandbox {
 public:
  virtual ~Sandbox() = default;
  // Inside a sandbox every folder has to be granted; outside none has to.
  [[nodiscard]] virtual bool isActive() const = 0;
  // Begins the use of a granted folder; false when the grant is gone. Each success needs one
  // stopAccess.
  [[nodiscard]] virtual bool startAccess(const QString &folder) = 0;
  virtual void stopAccess(const QString &folder) = 0;
};

// No sandbox: every folder that exists may be used.
class NullSandbox final : public Sandbox {
 public:
  [[nodiscard]] bool isActive() const override { return false; }
  [[nodiscard]] bool startAccess(const QString &) override { return true; }
  void stopAccess(const QString &) override {}
};

// For tests: a sandbox in which only `granted` folders may be used; counts the uses that are open.
class FakeSandbox final : public Sandbox {
 public:
  [[nodiscard]] bool isActive() const override { return active; }
  [[nodiscard]] bool startAccess(const QString &folder) override {
    if (active && !granted.contains(folder)) return false;
    ++open;
    return true;
  }
  void stopAccess(const QString &) override { --open; }
  bool active = true;
  QSet<QString> granted;
  int open = 0;
};
