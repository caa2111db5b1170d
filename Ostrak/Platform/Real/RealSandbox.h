#pragma once

#include "Sandbox.h"

// A Flatpak sandbox is known by the file that it shows to every process in it; its portals put
// granted folders into the file system, so a grant that is gone is a folder that is gone. Outside
// of one every folder may be used.
class RealSandbox final : public Sandbox {
 public:
  explicit RealSandbox(const QString &infoFile = QStringLiteral("/.flatpak-info"));

  [[nodiscard]] bool isActive() const override { return m_active; }
  [[nodiscard]] bool startAccess(const QString &folder) override;
  void stopAccess(const QString &) override {}

 private:
  bool m_active;
};
