#pragma once

#include "ProgramLauncher.h"

// As processes of their own.
class RealProgramLauncher final : public ProgramLauncher {
 public:
  [[nodiscard]] bool launch(const QString &executable) override;
};
