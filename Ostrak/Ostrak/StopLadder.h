#pragma once

#include <QDeadlineTimer>
#include <QTimer>
#include <chrono>
#include <functional>

namespace ostrak {

// The one way of making a child end: SIGTERM, then SIGCONT so that a stopped child hears it, and
// after a grace SIGKILL, which a stopped child obeys as it is. Used on one thread; where that has
// no running event loop, the owner calls takeDueRung by itself at the time that nextRung tells.
class StopLadder final : public QObject {
  Q_OBJECT

 public:
  // `send` delivers a signal to the child; it is called only between `climb` and `leave`.
  StopLadder(std::chrono::milliseconds grace, std::function<void(int signal)> send,
             QObject *parent = nullptr);

  // Takes the first rung; once on the ladder this does nothing.
  void climb();
  // The child has ended: no further signal is sent.
  void leave();
  // The owner wanted the end, whether the ladder has been left since or not.
  [[nodiscard]] bool wasClimbed() const { return m_rung != Rung::Ground; }

  // When SIGKILL is due; never (for ever) when no rung is to come.
  [[nodiscard]] QDeadlineTimer nextRung() const;
  void takeDueRung();

 private:
  enum class Rung { Ground, Terminated, Killed, Left };
  std::chrono::milliseconds m_grace;
  std::function<void(int signal)> m_send;
  Rung m_rung = Rung::Ground;
  QDeadlineTimer m_killAt{QDeadlineTimer::Forever};
  QTimer m_timer;
};

}  // namespace ostrak
