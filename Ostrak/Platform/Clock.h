#pragma once

#include <chrono>

// Time as the program sees it. `monotonic` measures spans and never jumps; it counts from an
// arbitrary moment.
class Clock {
 public:
  virtual ~Clock() = default;
  [[nodiscard]] virtual std::chrono::nanoseconds monotonic() const = 0;
};

class SystemClock final : public Clock {
 public:
  [[nodiscard]] std::chrono::nanoseconds monotonic() const override {
    return std::chrono::steady_clock::now().time_since_epoch();
  }
};

// For tests: stands still until it is moved.
class FakeClock final : public Clock {
 public:
  [[nodiscard]] std::chrono::nanoseconds monotonic() const override { return now; }
  std::chrono::nanoseconds now{0};
};
