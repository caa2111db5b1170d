#include "AlertQueue.h"

#include <QScopeGuard>
#include <algorithm>

#include "Dispatch.h"

namespace ostrak {

AlertQueue &AlertQueue::instance() {
  // Never destroyed: a thread that outlives the program's end may still post.
  static auto *queue = new AlertQueue;
  return *queue;
}

int AlertQueue::present(Alert &alert) {
  if (!m_presenter) return alert.problemReport ? secondButton : firstButton;
  ++m_shown;
  const auto shown = qScopeGuard([this] {
    --m_shown;
    showNextSoon();
  });
  return m_presenter->present(alert);
}

void AlertQueue::post(Alert alert, std::function<void(int)> answered) {
  {
    const QMutexLocker locker(&m_mutex);
    const auto isEqual = [&alert](const Waiting &waiting) { return waiting.alert == alert; };
    if (std::any_of(m_waiting.cbegin(), m_waiting.cend(), isEqual)) return;
    m_waiting.append({std::move(alert), std::move(answered)});
  }
  showNextSoon();
}

void AlertQueue::showNextSoon() {
  {
    const QMutexLocker locker(&m_mutex);
    if (m_waiting.isEmpty()) return;
  }
  dispatch_async_main([this] { showNext(); });
}

void AlertQueue::showNext() {
  if (m_shown > 0) return;
  Waiting next;
  {
    const QMutexLocker locker(&m_mutex);
    if (m_waiting.isEmpty()) return;
    next = m_waiting.takeFirst();
  }
  const int code = present(next.alert);
  if (next.answered) next.answered(code);
}

}  // namespace ostrak
