#include "AlertQueue.h"

#include <QScopeGuard>

#include "Defaults.h"
#include "Dispatch.h"
#include "Format.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// The setting that remembers the box. A waiting alert may outlive the library.
QString silencingKey(const QString &identifier, Silencing silencing) {
  if (silencing == Silencing::None || !tk) return {};
  if (silencing == Silencing::ForEver) return makeString(u"_%@_asked"_s, identifier);
  return makeString(u"_%@_%@_asked"_s, identifier, tk->appVersionString());
}

}  // namespace

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

bool AlertQueue::isSilenced(const QString &identifier, Silencing silencing) {
  const QString key = silencingKey(identifier, silencing);
  return !key.isNull() && defaultInt(key) != 0;
}

void AlertQueue::presentUnlessSilenced(Alert &alert, Silencing silencing) {
  if (!isSilenced(alert.identifier, silencing)) (void)presentAndRemember(alert, silencing);
}

int AlertQueue::presentAndRemember(Alert &alert, Silencing silencing) {
  const int code = present(alert);
  // While it was on the screen, another of the same kind may have been silenced.
  const bool silenced = alert.value.toInt() != 0 || isSilenced(alert.identifier, silencing);
  const QString key = silencingKey(alert.identifier, silencing);
  if (!key.isNull()) setDefaultInt(key, silenced ? 1 : 0);
  return code;
}

void AlertQueue::post(Alert alert, std::function<void(int)> answered, Silencing silencing) {
  {
    const QMutexLocker locker(&m_mutex);
    const Key key{std::move(alert), silencing};
    if (m_waitingKeys.contains(key)) return;
    m_waitingKeys.insert(key);
    m_waiting.append({key, std::move(answered)});
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
  std::optional<Waiting> next = takeNext();
  if (!next) return;
  const int code = presentAndRemember(next->key.alert, next->key.silencing);
  if (next->answered) next->answered(code);
}

std::optional<AlertQueue::Waiting> AlertQueue::takeNext() {
  const QMutexLocker locker(&m_mutex);
  while (!m_waiting.isEmpty()) {
    Waiting next = m_waiting.takeFirst();
    m_waitingKeys.remove(next.key);
    if (!isSilenced(next.key.alert.identifier, next.key.silencing)) return next;
  }
  return {};
}

}  // namespace ostrak
