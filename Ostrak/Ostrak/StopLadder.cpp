#include "StopLadder.h"

#include <QAbstractEventDispatcher>
#include <csignal>

namespace ostrak {

StopLadder::StopLadder(std::chrono::milliseconds grace, std::function<void(int)> send,
                       QObject *parent)
    : QObject(parent), m_grace(grace), m_send(std::move(send)) {
  m_timer.setSingleShot(true);
  m_timer.setTimerType(Qt::PreciseTimer);
  connect(&m_timer, &QTimer::timeout, this, &StopLadder::takeDueRung);
}

void StopLadder::climb() {
  if (m_rung != Rung::Ground) return;
  m_rung = Rung::Terminated;
  m_killAt = QDeadlineTimer(m_grace, Qt::PreciseTimer);
  m_send(SIGTERM);
  // Pending signals are delivered on SIGCONT, so SIGTERM has to be there already.
  m_send(SIGCONT);
  if (QAbstractEventDispatcher::instance()) m_timer.start(m_grace);
}

void StopLadder::leave() {
  m_timer.stop();
  m_killAt = QDeadlineTimer(QDeadlineTimer::Forever);
  if (m_rung != Rung::Ground) m_rung = Rung::Left;
}

QDeadlineTimer StopLadder::nextRung() const {
  return m_killAt;
}

void StopLadder::takeDueRung() {
  if (m_rung != Rung::Terminated) return;
  if (!m_killAt.hasExpired()) {
    m_timer.start(m_killAt.remainingTimeAsDuration().count() / 1'000'000 + 1);
    return;
  }
  m_rung = Rung::Killed;
  m_killAt = QDeadlineTimer(QDeadlineTimer::Forever);
  m_send(SIGKILL);
}

}  // namespace ostrak
