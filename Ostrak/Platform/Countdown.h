#pragma once

#include <chrono>
#include <functional>
#include <utility>

// A span of time that is waited for. Belongs to one thread and calls from its event loop.
class Countdown {
 public:
  virtual ~Countdown() = default;
  // Calls `act` once, when the span is over. Not while it is running.
  virtual void start(std::chrono::milliseconds span, std::function<void()> act) = 0;
  [[nodiscard]] virtual bool isRunning() const = 0;
  // Nothing is called any more.
  virtual void cancel() = 0;
};

// For tests: is over when it is told to be.
class ManualCountdown final : public Countdown {
 public:
  void start(std::chrono::milliseconds span, std::function<void()> act) override {
    ++starts;
    lastSpan = span;
    m_act = std::move(act);
  }
  [[nodiscard]] bool isRunning() const override { return bool(m_act); }
  void cancel() override { m_act = {}; }
  void elapse() {
    if (const auto act = std::exchange(m_act, {})) act();
  }
  int starts = 0;
  std::chrono::milliseconds lastSpan{0};

 private:
  std::function<void()> m_act;
};
