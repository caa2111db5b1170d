#include <QFile>
#include <QTest>

#include "DesktopBench.h"
#include "RealFileRevealer.h"
#include "RealLauncherProgress.h"
#include "RealNotifier.h"
#include "RealSingleInstance.h"
#include "RealSleepInhibitor.h"
#include "SessionBus.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

// A machine without a session bus: every service can be used, and says once what is missing.
class TestWithoutBus final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void whereTheBusIs();
  void noBusIsStarted();
  void notUsedNothingSaid();
  void usedSaidOnceEach();

 private:
  QByteArray m_address;
  QByteArray m_runtimeFolder;
  std::unique_ptr<DesktopBench> m_bench;
};

void TestWithoutBus::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
  m_address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  m_runtimeFolder = qgetenv("XDG_RUNTIME_DIR");
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_bench->path({})));
}

void TestWithoutBus::cleanup() {
  if (!m_address.isNull()) qputenv("DBUS_SESSION_BUS_ADDRESS", m_address);
  m_runtimeFolder.isNull() ? qunsetenv("XDG_RUNTIME_DIR")
                           : qputenv("XDG_RUNTIME_DIR", m_runtimeFolder);
  m_bench.reset();
}

void TestWithoutBus::whereTheBusIs() {
  QCOMPARE(ostrak::sessionBusAddressOfProcess(), QString());
  QVERIFY(QFile(m_bench->path(u"bus"_s)).open(QIODevice::WriteOnly));
  const QString ofTheUser = u"unix:path="_s + m_bench->path(u"bus"_s);
  QCOMPARE(ostrak::sessionBusAddressOfProcess(), ofTheUser);
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/x");
  QCOMPARE(ostrak::sessionBusAddressOfProcess(), u"unix:path=/x"_s);
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qunsetenv("XDG_RUNTIME_DIR");
  QCOMPARE(ostrak::sessionBusAddressOfProcess(), QString());
}

void TestWithoutBus::noBusIsStarted() {
  QVERIFY(!ostrak::sessionBusOfProcess().isConnected());
  QVERIFY(ostrak::sessionBusOfProcess().name().isEmpty());
}

void TestWithoutBus::notUsedNothingSaid() {
  const QDBusConnection bus = ostrak::sessionBusOfProcess();
  RecordingUrlOpener opener;
  {
    const RealNotifier notifier(bus, u"Decant"_s, u"org.decant.Decant"_s);
    const RealFileRevealer revealer(bus, opener);
    const RealLauncherProgress launcher(bus, u"org.decant.Decant"_s);
    const RealSingleInstance instance(bus, u"org.decant.Decant"_s, {});
    const RealSleepInhibitor sleepInhibitor({});
  }
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestWithoutBus::usedSaidOnceEach() {
  const QDBusConnection bus = ostrak::sessionBusOfProcess();
  RecordingUrlOpener opener;
  RealNotifier notifier(bus, u"Decant"_s, u"org.decant.Decant"_s);
  RealFileRevealer revealer(bus, opener);
  RealLauncherProgress launcher(bus, u"org.decant.Decant"_s);
  RealSingleInstance instance(bus, u"org.decant.Decant"_s, {});
  RealSleepInhibitor sleepInhibitor({});
  for (int round = 0; round < 2; ++round) {
    notifier.post({u"id"_s, u"title"_s, u"text"_s, u"Show"_s, u"/x"_s});
    revealer.reveal(m_bench->path({}));
    launcher.show(0.1 * round, 1);
    QVERIFY(instance.claim());
    QVERIFY(!instance.handOver({u"/x"_s}));
    instance.setHandler([](const QStringList &) {});
    instance.release();
    QVERIFY(sleepInhibitor.inhibit(u"Converting"_s));
  }
  QCOMPARE(opener.opened.size(), 2);
  QTRY_COMPARE(m_bench->logged().filter(u"keeps the machine awake"_s).size(), 1);
  QCOMPARE(m_bench->logged().size(), 5);
}

QTEST_GUILESS_MAIN(TestWithoutBus)
#include "tst_withoutbus.moc"
