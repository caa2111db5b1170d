#include "RealNotifier.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <utility>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;

QDBusMessage callTo(const QString &method) {
  return QDBusMessage::createMethodCall(service, path, service, method);
}

}  // namespace

RealNotifier::RealNotifier(const QDBusConnection &bus, QString appName, QString desktopEntry,
                           QObject *parent)
    : QObject(parent),
      m_bus(bus),
      m_appName(std::move(appName)),
      m_desktopEntry(std::move(desktopEntry)) {
  if (!m_bus.isConnected()) return;
  m_bus.connect(service, path, service, u"ActionInvoked"_s, this,
                SLOT(actionInvoked(uint, QString)));
  m_bus.connect(service, path, service, u"NotificationClosed"_s, this,
                SLOT(notificationClosed(uint, uint)));
  m_watcher =
      new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &RealNotifier::forgetServer);
}

RealNotifier::~RealNotifier() = default;

void RealNotifier::setActivated(std::function<void(const QString &path)> handler) {
  m_activated = std::move(handler);
}

void RealNotifier::post(const Notification &notification) {
  if (!m_bus.isConnected()) {
    complain(u"there is no session bus"_s);
    return;
  }
  if (m_capabilities) {
    send(notification);
    return;
  }
  m_waiting.append(notification);
  askCapabilities();
}

void RealNotifier::askCapabilities() {
  if (std::exchange(m_asking, true)) return;
  auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(callTo(u"GetCapabilities"_s)), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this](QDBusPendingCallWatcher *finished) {
            finished->deleteLater();
            m_asking = false;
            const QDBusPendingReply<QStringList> reply = *finished;
            const QList<Notification> waiting = std::exchange(m_waiting, {});
            if (reply.isError()) {
              complain(reply.error().message());
              return;
            }
            m_capabilities = reply.value();
            for (const Notification &notification : waiting)
              send(notification);
          });
}

void RealNotifier::send(const Notification &notification) {
  QStringList actions;
  if (!notification.actionTitle.isNull() && m_capabilities->contains(u"actions"_s)) {
    // A click on the message itself is what servers call the default action.
    actions << u"default"_s << notification.actionTitle << u"show"_s << notification.actionTitle;
  }
  const bool markup = m_capabilities->contains(u"body-markup"_s);
  const QVariantMap hints{{u"desktop-entry"_s, m_desktopEntry},
                          {u"sound-name"_s, u"complete"_s},
                          {u"category"_s, u"transfer"_s}};
  uint replaces = 0;
  for (auto shown = m_shown.cbegin(); shown != m_shown.cend(); ++shown) {
    if (shown->id == notification.id) replaces = shown.key();
  }
  QDBusMessage call = callTo(u"Notify"_s);
  call << m_appName << replaces << m_desktopEntry << notification.title
       << (markup ? notification.text.toHtmlEscaped() : notification.text) << actions << hints
       << -1;
  auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
  connect(
      watcher, &QDBusPendingCallWatcher::finished, this,
      [this, notification](QDBusPendingCallWatcher *finished) { sent(notification, *finished); });
}

void RealNotifier::sent(const Notification &notification, QDBusPendingCallWatcher &watcher) {
  watcher.deleteLater();
  const QDBusPendingReply<uint> reply = watcher;
  if (reply.isError()) {
    complain(reply.error().message());
    return;
  }
  m_shown.insert(reply.value(), {notification.id, notification.path});
}

void RealNotifier::actionInvoked(uint serverId, const QString &) {
  const QString revealed = m_shown.value(serverId).path;
  if (!revealed.isNull() && m_activated) m_activated(revealed);
}

void RealNotifier::notificationClosed(uint serverId, uint) {
  m_shown.remove(serverId);
}

void RealNotifier::forgetServer() {
  m_capabilities.reset();
  m_shown.clear();
}

void RealNotifier::complain(const QString &why) {
  m_waiting.clear();
  if (std::exchange(m_complained, true)) return;
  ostrak::tk_log_level(4, u"Warning: notifications cannot be shown: %@"_s, why);
}
