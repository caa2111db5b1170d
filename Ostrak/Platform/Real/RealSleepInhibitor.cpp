#include "RealSleepInhibitor.h"

#include <QFile>
#include <QHash>
#include <QPointer>
#include <chrono>
#include <vector>

#include "Logging.h"
#include "SessionBus.h"
#include "SignalsBlocked.h"
#include "SleepRequest.h"

using namespace Qt::StringLiterals;

SleepServices SleepServices::ofProcess(const QString &name, const QString &id) {
  SleepServices services;
  services.applicationName = name;
  services.applicationId = id;
  services.sandboxed = QFile::exists(u"/.flatpak-info"_s);
  services.sessionBus = ostrak::sessionBusAddressOfProcess();
  services.systemBus = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS",
                                            u"unix:path=/var/run/dbus/system_bus_socket"_s);
  return services;
}

// The requests of all assertions. Lives on the inhibitor's thread; only `post` is called from
// others.
class RealSleepInhibitor::Requests final : public QObject {
 public:
  explicit Requests(SleepServices services) : m_services(std::move(services)) {}
  ~Requests() override { close(); }

  // Runs on this object's thread, in order.
  void post(std::function<void(Requests &)> work) {
    QMetaObject::invokeMethod(
        this, [this, work = std::move(work)] { work(*this); }, Qt::QueuedConnection);
  }

  void inhibit(quint64 id, const QString &reason) {
    auto *request = new SleepRequest(buses(), m_services, reason, this);
    connect(request, &SleepRequest::unanswered, this, &Requests::logOnce);
    m_requests.insert(id, request);
    request->start();
  }

  void release(quint64 id) {
    if (SleepRequest *request = m_requests.take(id)) request->release();
  }

  // Services let go of what belongs to a connection that is gone.
  void close() {
    qDeleteAll(findChildren<SleepRequest *>());
    if (m_buses) {
      QDBusConnection::disconnectFromBus(m_buses->session.name());
      QDBusConnection::disconnectFromBus(m_buses->system.name());
    }
    m_buses.reset();
  }

 private:
  const SleepBuses &buses() {
    if (!m_buses) {
      m_buses = SleepBuses{connected(m_services.sessionBus, u"session"_s),
                           connected(m_services.systemBus, u"system"_s)};
    }
    return *m_buses;
  }

  QDBusConnection connected(const QString &address, const QString &kind) const {
    const QString name = u"sleep-%1-%2"_s.arg(kind).arg(reinterpret_cast<quintptr>(this), 0, 16);
    if (address.isEmpty()) return QDBusConnection(name);
    return QDBusConnection::connectToBus(address, name);
  }

  void logOnce() {
    if (std::exchange(m_logged, true)) return;
    ostrak::tk_log_level(6, u"Info: no service of this desktop keeps the machine awake"_s);
  }

  SleepServices m_services;
  std::optional<SleepBuses> m_buses;
  QHash<quint64, QPointer<SleepRequest>> m_requests;
  bool m_logged = false;
};

class RealSleepInhibitor::Assertion final : public SleepAssertion {
 public:
  Assertion(const std::shared_ptr<Requests> &requests, const QString &reason)
      : m_requests(requests), m_id(nextId++) {
    requests->post([id = m_id, reason](Requests &all) { all.inhibit(id, reason); });
  }
  ~Assertion() override {
    if (const auto requests = m_requests.lock()) {
      requests->post([id = m_id](Requests &all) { all.release(id); });
    }
  }

 private:
  static inline quint64 nextId = 0;
  std::weak_ptr<Requests> m_requests;
  quint64 m_id;
};

RealSleepInhibitor::RealSleepInhibitor(SleepServices services) : m_services(std::move(services)) {}

RealSleepInhibitor::~RealSleepInhibitor() {
  if (!m_thread) return;
  m_requests->post([](Requests &all) {
    all.close();
    QThread::currentThread()->quit();
  });
  if (m_thread->wait(std::chrono::seconds(2))) return;
  // It hangs in a bus that does not answer; the end of the process takes it along.
  using Abandoned = std::pair<std::unique_ptr<QThread>, std::shared_ptr<Requests>>;
  static auto &abandoned = *new std::vector<Abandoned>;
  abandoned.emplace_back(std::move(m_thread), std::move(m_requests));
}

std::unique_ptr<SleepAssertion> RealSleepInhibitor::inhibit(const QString &reason) {
  if (!m_thread) {
    m_requests = std::make_shared<Requests>(m_services);
    m_thread = std::make_unique<QThread>();
    m_requests->moveToThread(m_thread.get());
    const ostrak::SignalsBlocked inheritedByTheThread;
    m_thread->start();
  }
  return std::make_unique<Assertion>(m_requests, reason);
}
