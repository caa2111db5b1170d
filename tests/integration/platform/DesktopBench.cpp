#include "DesktopBench.h"

#include <QCoreApplication>
#include <QDBusMessage>

#include "BuildTree.h"

using namespace Qt::StringLiterals;

DesktopBench::DesktopBench() : m_bus(noBus()) {
  ostrak::OstrakSetup setup;
  setup.prefsPath = path(u"settings.conf"_s);
  setup.persistence = ostrak::UserDefaults::Persistence::InMemory;
  setup.systemLog = [this](int, const QString &message) {
    const QMutexLocker lock(&m_mutex);
    m_logged.append(message);
  };
  m_library = std::make_unique<ostrak::Ostrak>(setup);
  m_privateBus = std::make_unique<PrivateBus>();
  m_bus = QDBusConnection::connectToBus(m_privateBus->address(), u"test"_s);
}

DesktopBench::~DesktopBench() {
  QDBusConnection::disconnectFromBus(u"test"_s);
}

QStringList DesktopBench::serviceCommand(const QString &log, const QStringList &kinds) const {
  const QString script = buildtree::source(u"tests/integration/platform/desktopservices.py"_s);
  const QStringList command{MockService::interpreter(), script, m_privateBus->address(), log};
  return command + kinds;
}

bool DesktopBench::startServices(const QStringList &kinds) {
  m_services.reset();
  m_services = std::make_unique<MockService>(*m_privateBus, serviceCommand({}, {}).at(1), kinds);
  settle();
  return m_services->isReady();
}

void DesktopBench::endServices() {
  m_services.reset();
  settle();
}

void DesktopBench::emitSignal(const QString &service, const QString &signal,
                              const QString &signature, const QVariantList &arguments) {
  const QString path = u'/' + QString(service).replace(u'.', u'/');
  QDBusMessage call = QDBusMessage::createMethodCall(service, path, u"org.freedesktop.DBus.Mock"_s,
                                                     u"EmitSignal"_s);
  call << QString() << signal << signature << QVariant(arguments);
  m_bus.call(call);
  settle();
}

void DesktopBench::settle(const QString &service) const {
  m_bus.call(
      QDBusMessage::createMethodCall(service, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
  QCoreApplication::processEvents();
}

QStringList DesktopBench::logged() const {
  const QMutexLocker lock(&m_mutex);
  return m_logged;
}

QDBusConnection noBus() {
  return QDBusConnection(QString());
}
