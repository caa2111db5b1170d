#include "RealSingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QUrl>
#include <utility>

#include "Logging.h"

using namespace Qt::StringLiterals;

RealSingleInstance::RealSingleInstance(const QDBusConnection &bus, QString name, QObject *parent)
    : QObject(parent), m_bus(bus), m_name(std::move(name)), m_path(m_name) {
  m_path.replace(u'.', u'/').prepend(u'/');
}

RealSingleInstance::~RealSingleInstance() {
  release();
}

bool RealSingleInstance::claim() {
  if (!m_bus.isConnected()) {
    ostrak::tk_log_level(5,
                         u"Info: there is no session bus, so another window cannot be noticed"_s);
    return true;
  }
  m_bus.registerObject(m_path, this, QDBusConnection::ExportScriptableSlots);
  const auto reply =
      m_bus.interface()->registerService(m_name, QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
  if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered) return true;
  m_bus.unregisterObject(m_path);
  return !reply.isValid();
}

bool RealSingleInstance::handOver(const QStringList &paths) {
  QStringList uris;
  for (const QString &path : paths)
    uris << QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
  QDBusMessage call =
      QDBusMessage::createMethodCall(m_name, m_path, u"org.freedesktop.Application"_s,
                                     paths.isEmpty() ? u"Activate"_s : u"Open"_s);
  if (!paths.isEmpty()) call << uris;
  call << QVariantMap();
  return m_bus.call(call).type() == QDBusMessage::ReplyMessage;
}

void RealSingleInstance::setHandler(Handler handler) {
  m_handler = std::move(handler);
  if (m_waiting && m_handler) m_handler(*std::exchange(m_waiting, std::nullopt));
}

void RealSingleInstance::release() {
  if (!m_bus.isConnected()) return;
  m_bus.interface()->unregisterService(m_name);
  m_bus.unregisterObject(m_path);
}

void RealSingleInstance::Activate(const QVariantMap &) {
  arrived({});
}

void RealSingleInstance::Open(const QStringList &uris, const QVariantMap &) {
  QStringList paths;
  for (const QString &uri : uris) {
    const QUrl url(uri);
    if (url.isLocalFile()) paths << url.toLocalFile();
  }
  arrived(paths);
}

void RealSingleInstance::ActivateAction(const QString &, const QVariantList &,
                                        const QVariantMap &) {
  arrived({});
}

void RealSingleInstance::arrived(const QStringList &paths) {
  if (m_handler) {
    m_handler(paths);
  } else {
    m_waiting = m_waiting.value_or(QStringList()) + paths;
  }
}
