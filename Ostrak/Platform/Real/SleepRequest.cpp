#include "SleepRequest.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

// Of GNOME's and the portal's flags: hold off suspend, leave the screen alone.
constexpr quint32 inhibitSuspend = 4;

struct Address {
  QString service;
  QString path;
  QString interface;

  [[nodiscard]] QDBusMessage call(const QString &method, const QVariantList &arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return message;
  }
};

const Address gnome{u"org.gnome.SessionManager"_s, u"/org/gnome/SessionManager"_s,
                    u"org.gnome.SessionManager"_s};
const Address kde{u"org.freedesktop.PowerManagement"_s,
                  u"/org/freedesktop/PowerManagement/Inhibit"_s,
                  u"org.freedesktop.PowerManagement.Inhibit"_s};
const Address logind{u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                     u"org.freedesktop.login1.Manager"_s};
const Address portal{u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                     u"org.freedesktop.portal.Inhibit"_s};
const QString portalRequest = u"org.freedesktop.portal.Request"_s;

}  // namespace

SleepRequest::SleepRequest(SleepBuses buses, SleepServices services, QString reason,
                           QObject *parent)
    : QObject(parent),
      m_buses(std::move(buses)),
      m_services(std::move(services)),
      m_reason(std::move(reason)) {}

void SleepRequest::start() {
  m_waiting = m_services.sandboxed ? QList<Service>{Service::Portal}
                                   : QList<Service>{Service::Gnome, Service::Kde, Service::Logind};
  askNext();
}

void SleepRequest::release() {
  m_wanted = false;
  if (m_state != State::Asking) letGo();
}

void SleepRequest::askNext() {
  while (m_wanted && !m_waiting.isEmpty()) {
    m_service = m_waiting.takeFirst();
    if (!bus().isConnected()) continue;
    m_state = State::Asking;
    auto *watcher = new QDBusPendingCallWatcher(bus().asyncCall(question()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher] { answered(*watcher); });
    return;
  }
  m_state = State::Nothing;
  if (m_wanted) {
    Q_EMIT unanswered();
  } else {
    letGo();
  }
}

QDBusConnection SleepRequest::bus() const {
  return m_service == Service::Logind ? m_buses.system : m_buses.session;
}

QDBusMessage SleepRequest::question() {
  switch (m_service) {
    case Service::Gnome:
      return gnome.call(u"Inhibit"_s,
                        {m_services.applicationId, quint32{0}, m_reason, inhibitSuspend});
    case Service::Kde:
      return kde.call(u"Inhibit"_s, {m_services.applicationName, m_reason});
    case Service::Logind:
      return logind.call(u"Inhibit"_s,
                         {u"sleep"_s, m_services.applicationName, m_reason, u"block"_s});
    case Service::Portal:
      break;
  }
  // The portal's second answer may come before its first has been read, so the path on which it
  // comes is chosen here, by the portal's rule.
  const QString token = u"decant%1"_s.arg(QRandomGenerator::global()->generate());
  const QString sender = bus().baseService().mid(1).replace(u'.', u'_');
  listenToPortal(portal.path + u"/request/"_s + sender + u'/' + token);
  const QVariantMap options{{u"handle_token"_s, token}, {u"reason"_s, m_reason}};
  return portal.call(u"Inhibit"_s, {QString(), inhibitSuspend, options});
}

void SleepRequest::answered(QDBusPendingCallWatcher &watcher) {
  watcher.deleteLater();
  if (watcher.isError()) {
    askNext();
  } else {
    keep(watcher.reply());
  }
}

void SleepRequest::keep(const QDBusMessage &reply) {
  const QVariant answer = reply.arguments().value(0);
  switch (m_service) {
    case Service::Gnome:
    case Service::Kde:
      m_cookie = answer.toUInt();
      break;
    case Service::Logind:
      m_lock = answer.value<QDBusUnixFileDescriptor>();
      break;
    case Service::Portal:
      // Older portals choose a path of their own.
      listenToPortal(answer.value<QDBusObjectPath>().path());
      if (m_state == State::Nothing) return;
  }
  m_state = State::Held;
  if (!m_wanted) letGo();
}

void SleepRequest::listenToPortal(const QString &path) {
  if (path == m_handle) return;
  const QString signal = u"Response"_s;
  const char *slot = SLOT(portalResponded(uint, QVariantMap));
  if (!m_handle.isEmpty()) {
    bus().disconnect(portal.service, m_handle, portalRequest, signal, this, slot);
  }
  m_handle = path;
  bus().connect(portal.service, m_handle, portalRequest, signal, this, slot);
}

void SleepRequest::portalResponded(uint response, const QVariantMap &) {
  if (response == 0) return;
  m_state = State::Nothing;
  if (m_wanted) Q_EMIT unanswered();
}

void SleepRequest::letGo() {
  if (m_state == State::Held) {
    switch (m_service) {
      case Service::Gnome:
        bus().send(gnome.call(u"Uninhibit"_s, {m_cookie}));
        break;
      case Service::Kde:
        bus().send(kde.call(u"UnInhibit"_s, {m_cookie}));
        break;
      case Service::Logind:
        m_lock = QDBusUnixFileDescriptor();
        break;
      case Service::Portal:
        bus().send(Address{portal.service, m_handle, portalRequest}.call(u"Close"_s, {}));
        break;
    }
  }
  m_state = State::Nothing;
  deleteLater();
}
