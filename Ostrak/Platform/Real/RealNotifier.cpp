#include "RealNotifier.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <utility>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 10'000;     // milliseconds; a server may have to be started first
constexpr int lastPatience = 1'500;  // the same, when the program ends

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;

// A click on the message itself is what servers call the default action.
const QString clickAction = u"default"_s;
const QString showAction = u"show"_s;

QDBusMessage callTo(const QString &method) {
  return QDBusMessage::createMethodCall(service, path, service, method);
}

QString escaped(QString text) {
  return text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

}  // namespace

RealNotifier::RealNotifier(const QDBusConnection &bus, QString appName, QString desktopEntry,
                           QObject *parent)
    : QObject(parent),
      m_bus(bus),
      m_appName(std::move(appName)),
      m_desktopEntry(std::move(desktopEntry)) {}

RealNotifier::~RealNotifier() {
  sendTheRest();
}

void RealNotifier::setActivated(std::function<void(const QString &path)> handler) {
  m_activated = std::move(handler);
}

void RealNotifier::post(const Notification &notification) {
  if (!m_bus.isConnected()) {
    complain(u"there is no session bus"_s);
    return;
  }
  listen();
  m_queue.append({notification});
  sendNext();
}

void RealNotifier::listen() {
  if (std::exchange(m_listening, true)) return;
  m_bus.connect(service, path, service, u"ActionInvoked"_s, this,
                SLOT(actionInvoked(uint, QString)));
  m_bus.connect(service, path, service, u"NotificationClosed"_s, this,
                SLOT(notificationClosed(uint, uint)));
  auto *watcher =
      new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &RealNotifier::serverChanged);
}

void RealNotifier::sendNext() {
  if (m_queue.isEmpty() || std::exchange(m_asking, true)) return;
  m_capabilities ? askToShow() : askCapabilities();
}

void RealNotifier::askCapabilities() {
  auto *watcher =
      new QDBusPendingCallWatcher(m_bus.asyncCall(callTo(u"GetCapabilities"_s), patience), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, server = m_server] {
    capabilitiesAnswered(*watcher, server);
    watcher->deleteLater();
  });
}

void RealNotifier::capabilitiesAnswered(const QDBusPendingCallWatcher &watcher, int server) {
  m_asking = false;
  const QDBusPendingReply<QStringList> reply = watcher;
  if (!reply.isError()) {
    m_capabilities = reply.value();
  } else if (!tryAgain(server)) {
    complain(reply.error().message());
    m_queue.clear();
  }
  sendNext();
}

void RealNotifier::askToShow() {
  const QDBusMessage message = messageFor(m_queue.constFirst().notification);
  auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, patience), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, server = m_server] {
    showAnswered(*watcher, server);
    watcher->deleteLater();
  });
}

void RealNotifier::showAnswered(const QDBusPendingCallWatcher &watcher, int server) {
  m_asking = false;
  const QDBusPendingReply<uint> reply = watcher;
  if (!reply.isError()) {
    const Notification notification = m_queue.takeFirst().notification;
    m_shown.remove(serverIdOf(notification.id));
    // A number of a server that is gone means another message to the next one.
    if (server == m_server) m_shown.insert(reply.value(), {notification.id, notification.path});
  } else if (!tryAgain(server)) {
    complain(reply.error().message());
    m_queue.removeFirst();
    m_capabilities.reset();
  }
  sendNext();
}

bool RealNotifier::tryAgain(int server) {
  return server != m_server && !std::exchange(m_queue.first().again, true);
}

QDBusMessage RealNotifier::messageFor(const Notification &notification) const {
  QStringList actions;
  if (!notification.actionTitle.isNull() && m_capabilities->contains(u"actions"_s)) {
    actions << clickAction << notification.actionTitle << showAction << notification.actionTitle;
  }
  const bool markup = m_capabilities->contains(u"body-markup"_s);
  const QVariantMap hints{{u"desktop-entry"_s, m_desktopEntry},
                          {u"sound-name"_s, u"message-new-instant"_s},
                          {u"category"_s, u"transfer"_s}};
  QDBusMessage call = callTo(u"Notify"_s);
  call << m_appName << serverIdOf(notification.id) << m_desktopEntry << notification.title
       << (markup ? escaped(notification.text) : notification.text) << actions << hints << -1;
  return call;
}

uint RealNotifier::serverIdOf(const QString &id) const {
  for (auto shown = m_shown.cbegin(); shown != m_shown.cend(); ++shown) {
    if (shown->id == id) return shown.key();
  }
  return 0;
}

void RealNotifier::actionInvoked(uint serverId, const QString &action) {
  if (action != clickAction && action != showAction) return;
  const QString revealed = m_shown.value(serverId).path;
  if (!revealed.isNull() && m_activated) m_activated(revealed);
}

void RealNotifier::notificationClosed(uint serverId, uint) {
  m_shown.remove(serverId);
}

void RealNotifier::serverChanged() {
  ++m_server;
  m_capabilities.reset();
  m_shown.clear();
}

void RealNotifier::complain(const QString &why) {
  if (std::exchange(m_complained, true)) return;
  ostrak::tk_log_level(4, u"Warning: notifications cannot be shown: %@"_s, why);
}

// A program that quits after its last conversion ends right after it has posted the message.
void RealNotifier::sendTheRest() {
  if (m_queue.isEmpty() || !m_bus.isConnected()) return;
  if (m_asking && m_capabilities) m_queue.removeFirst();
  if (!m_capabilities) {
    const QDBusMessage answer =
        m_bus.call(callTo(u"GetCapabilities"_s), QDBus::Block, lastPatience);
    if (answer.type() != QDBusMessage::ReplyMessage) {
      complain(answer.errorMessage());
      return;
    }
    m_capabilities = answer.arguments().value(0).toStringList();
  }
  for (const Waiting &waiting : std::as_const(m_queue))
    m_bus.send(messageFor(waiting.notification));
  // What the bus has answered last it has read before: nothing is left in this process.
  const QString bus = u"org.freedesktop.DBus"_s;
  m_bus.call(QDBusMessage::createMethodCall(bus, u"/"_s, bus, u"GetId"_s), QDBus::Block,
             lastPatience);
}
