#pragma once

#include "KeyboardModifiers.h"

// The keys as the window system reports them at this moment.
class RealKeyboardModifiers final : public KeyboardModifiers {
 public:
  [[nodiscard]] bool shiftHeld() const override;
  [[nodiscard]] bool altHeld() const override;
};
