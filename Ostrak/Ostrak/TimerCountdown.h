#pragma once

#include <QTimer>

#include "Countdown.h"

namespace ostrak {

// In real time, to the millisecond. Needs an event loop.
class TimerCountdown final : public Countdown {
 public:
  TimerCountdown();
  void start(std::chrono::milliseconds span, std::function<void()> act) override;
  [[nodiscard]] bool isRunning() const override { return m_timer.isActive(); }
  void cancel() override;

 private:
  QTimer m_timer;
  std::function<void()> m_act;
};

}  // namespace ostrak
