#include "TimerCountdown.h"

#include <utility>

namespace ostrak {

TimerCountdown::TimerCountdown() {
  m_timer.setSingleShot(true);
  m_timer.setTimerType(Qt::PreciseTimer);
  // The act may destroy this.
  QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
    const auto act = std::exchange(m_act, {});
    act();
  });
}

void TimerCountdown::start(std::chrono::milliseconds span, std::function<void()> act) {
  m_act = std::move(act);
  m_timer.start(span);
}

void TimerCountdown::cancel() {
  m_timer.stop();
  m_act = {};
}

}  // namespace ostrak
