#include "RealSingleInstance.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <utility>

#include "FileUri.h"
#include "Logging.h"

using namespace Qt::StringLiterals;

namespace {

// As the desktop entry standard names them.
const QString tokenKey = u"activation-token"_s;
const QString startupIdKey = u"desktop-startup-id"_s;

QString tokenOf(const QVariantMap &platformData) {
  const QString token = platformData.value(tokenKey).toString();
  return token.isEmpty() ? platformData.value(startupIdKey).toString() : token;
}

}  // namespace

QVariantMap RealSingleInstance::platformDataOfProcess() {
  QVariantMap data;
  const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
  const QString startupId = qEnvironmentVariable("DESKTOP_STARTUP_ID");
  if (!token.isEmpty()) data.insert(tokenKey, token);
  if (!startupId.isEmpty()) data.insert(startupIdKey, startupId);
  return data;
}

RealSingleInstance::RealSingleInstance(const QDBusConnection &bus, QString name, Options options,
                                       QObject *parent)
    : QObject(parent),
      m_bus(bus),
      m_name(std::move(name)),
      m_path(m_name),
      m_options(std::move(options)) {
  m_path.replace(u'.', u'/').prepend(u'/');
}

RealSingleInstance::~RealSingleInstance() {
  release();
}

bool RealSingleInstance::claim() {
  if (m_held) return true;
  QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply;
  if (m_bus.isConnected()) {
    m_bus.registerObject(m_path, this, QDBusConnection::ExportScriptableSlots);
    reply = m_bus.interface()->registerService(m_name, QDBusConnectionInterface::DontQueueService,
                                               QDBusConnectionInterface::DontAllowReplacement);
    m_held = reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
    if (!m_held) m_bus.unregisterObject(m_path);
    if (reply.isValid()) return m_held;
  }
  if (!std::exchange(m_complained, true)) {
    ostrak::tk_log_level(
        6, u"Info: without a session bus, another window of this program cannot be noticed"_s);
  }
  return true;
}

bool RealSingleInstance::handOver(const QStringList &paths) {
  if (!m_bus.isConnected()) return false;
  QDBusMessage call =
      QDBusMessage::createMethodCall(m_name, m_path, u"org.freedesktop.Application"_s,
                                     paths.isEmpty() ? u"Activate"_s : u"Open"_s);
  // Where the first has just ended, the caller takes its place; nobody else is to be started.
  call.setAutoStartService(false);
  QStringList uris;
  for (const QString &path : paths)
    uris << ostrak::fileUri(path);
  if (!paths.isEmpty()) call << uris;
  call << m_options.platformData;
  const int patience = static_cast<int>(m_options.patience.count());
  return m_bus.call(call, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

void RealSingleInstance::setHandler(Handler handler) {
  m_ended = !handler && (m_ended || m_handler);
  m_handler = std::move(handler);
  if (m_waiting && m_handler) handle(*std::exchange(m_waiting, std::nullopt));
}

void RealSingleInstance::release() {
  if (!std::exchange(m_held, false) || !m_bus.isConnected()) return;
  m_bus.interface()->unregisterService(m_name);
  m_bus.unregisterObject(m_path);
}

void RealSingleInstance::Activate(const QVariantMap &platformData) {
  arrived({{}, tokenOf(platformData)});
}

void RealSingleInstance::Open(const QStringList &uris, const QVariantMap &platformData) {
  QStringList paths;
  for (const QString &uri : uris) {
    const QString path = ostrak::pathOfFileUri(uri);
    if (!path.isNull()) paths << path;
  }
  arrived({paths, tokenOf(platformData)});
}

void RealSingleInstance::ActivateAction(const QString &, const QVariantList &,
                                        const QVariantMap &platformData) {
  arrived({{}, tokenOf(platformData)});
}

void RealSingleInstance::arrived(const Arrival &arrival) {
  if (m_ended) {
    if (calledFromDBus()) sendErrorReply(QDBusError::Failed, u"the window is closing"_s);
    return;
  }
  answer();
  if (m_handler) {
    handle(arrival);
  } else if (m_waiting) {
    m_waiting->paths += arrival.paths;
    m_waiting->token = arrival.token;
  } else {
    m_waiting = arrival;
  }
}

// Before the handler runs: it may ask the user something, and the other start has not to wait.
void RealSingleInstance::answer() {
  if (!calledFromDBus()) return;
  setDelayedReply(true);
  connection().send(message().createReply());
}

void RealSingleInstance::handle(const Arrival &arrival) {
  m_token = arrival.token;
  const Handler handler = m_handler;
  handler(arrival.paths);
  m_token.clear();
}
