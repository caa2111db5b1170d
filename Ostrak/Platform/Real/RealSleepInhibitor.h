#pragma once

#include <QThread>
#include <memory>

#include "SleepInhibitor.h"
#include "SleepServices.h"

// Asks the desktop not to suspend: GNOME's session manager, KDE's power management, logind; in a
// sandbox the portal. All of it, connecting included, happens on a thread of its own, which begins
// with the first assertion, so that a bus that hangs holds up nobody. Made and used on one thread.
// An assertion may outlive it and then holds nothing.
class RealSleepInhibitor final : public SleepInhibitor {
 public:
  explicit RealSleepInhibitor(SleepServices services);
  ~RealSleepInhibitor() override;
  [[nodiscard]] std::unique_ptr<SleepAssertion> inhibit(const QString &reason) override;

 private:
  class Requests;
  class Assertion;
  SleepServices m_services;
  std::unique_ptr<QThread> m_thread;
  std::shared_ptr<Requests> m_requests;
};
