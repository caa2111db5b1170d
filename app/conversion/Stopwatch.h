#pragma once

#include <chrono>

#include "Clock.h"

namespace decant {

// Measures a span without its pauses, by a clock that never jumps. Runs from the start.
class Stopwatch final {
 public:
  explicit Stopwatch(const Clock &clock) : m_clock(clock), m_since(clock.monotonic()) {}

  void pause() {
    if (!m_running) return;
    m_sum += m_clock.monotonic() - m_since;
    m_running = false;
  }
  void resume() {
    if (m_running) return;
    m_since = m_clock.monotonic();
    m_running = true;
  }
  [[nodiscard]] double seconds() const {
    const auto all = m_running ? m_sum + (m_clock.monotonic() - m_since) : m_sum;
    return std::chrono::duration<double>(all).count();
  }

 private:
  const Clock &m_clock;
  std::chrono::nanoseconds m_since;
  std::chrono::nanoseconds m_sum{0};
  bool m_running = true;
};

}  // namespace decant
