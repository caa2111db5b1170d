#pragma once

// Which modifier keys are held at this moment.
class KeyboardModifiers {
 public:
  virtual ~KeyboardModifiers() = default;
  [[nodiscard]] virtual bool shiftHeld() const = 0;
  [[nodiscard]] virtual bool altHeld() const = 0;
};

class NullKeyboardModifiers final : public KeyboardModifiers {
 public:
  [[nodiscard]] bool shiftHeld() const override { return false; }
  [[nodiscard]] bool altHeld() const override { return false; }
};

class FakeKeyboardModifiers final : public KeyboardModifiers {
 public:
  [[nodiscard]] bool shiftHeld() const override { return shift; }
  [[nodiscard]] bool altHeld() const override { return alt; }
  bool shift = false;
  bool alt = false;
};
