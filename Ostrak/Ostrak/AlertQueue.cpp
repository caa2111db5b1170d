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

void AlertQueue::setPresenter(AlertPresenter *presenter) {
  m_presenter = presenter;
  if (presenter) return;
  const QMutexLocker locker(&m_mutex);
  m_waiting.clear();
  m_answers.clear();
  m_whenIdle.clear();
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
    const bool isNew = !m_answers.contains(key);
    Answers &answers = m_answers[key];
    const bool hears = answers.isEmpty() || !key.alert.problemReport;
    if (answered && hears) answers.append(std::move(answered));
    if (!isNew) return;
    m_waiting.append(key);
  }
  showNextSoon();
}

void AlertQueue::showNextSoon() {
  {
    const QMutexLocker locker(&m_mutex);
    if (m_waiting.isEmpty() && m_whenIdle.isEmpty()) return;
  }
  dispatch_async_main([this] { showNext(); });
}

void AlertQueue::showNext() {
  if (m_shown > 0) return;
  std::optional<Waiting> next = takeNext();
  if (!next) {
    callWhenIdle();
    return;
  }
  const int code = presentAndRemember(next->key.alert, next->key.silencing);
  for (const auto &answered : std::as_const(next->answers))
    answered(code);
}

bool AlertQueue::isIdle() {
  const QMutexLocker locker(&m_mutex);
  return m_shown == 0 && m_waiting.isEmpty();
}

void AlertQueue::whenIdle(std::function<void()> act) {
  {
    const QMutexLocker locker(&m_mutex);
    m_whenIdle.append(std::move(act));
  }
  showNextSoon();
}

void AlertQueue::callWhenIdle() {
  QList<std::function<void()>> acts;
  {
    const QMutexLocker locker(&m_mutex);
    acts.swap(m_whenIdle);
  }
  for (const auto &act : std::as_const(acts))
    act();
}

std::optional<AlertQueue::Waiting> AlertQueue::takeNext() {
  const QMutexLocker locker(&m_mutex);
  while (!m_waiting.isEmpty()) {
    Waiting next{m_waiting.takeFirst(), {}};
    next.answers = m_answers.take(next.key);
    if (!isSilenced(next.key.alert.identifier, next.key.silencing)) return next;
  }
  return {};
}

}  // namespace ostrak
