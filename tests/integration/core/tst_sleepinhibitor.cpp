#include <sys/socket.h>
#include <sys/un.h>
#include <QDir>
#include <QMutex>
#include <QTemporaryDir>
#include <QTest>

#include "BuildTree.h"
#include "Descriptor.h"
#include "Ostrak.h"
#include "PrivateBus.h"
#include "RealSleepInhibitor.h"

using namespace Qt::StringLiterals;

class TestSleepInhibitor final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void asksTheFirstThatAnswers_data();
  void asksTheFirstThatAnswers();
  void logindsLockIsClosed();
  void releaseWhileTheAnswerIsPending_data();
  void releaseWhileTheAnswerIsPending();
  void overlappingAssertions();
  void theEndReleasesWhatIsHeld();
  void assertionMayOutliveTheInhibitor();
  void portalIsAskedInASandbox_data();
  void portalIsAskedInASandbox();
  void absenceIsLoggedOnce_data();
  void absenceIsLoggedOnce();
  void aHangingBusHoldsUpNobody();
  void addressesOfTheProcess();

 private:
  [[nodiscard]] SleepServices services(bool sandboxed = false) const {
    return {m_bus->address(), m_bus->address(), sandboxed, u"Decant"_s, u"org.decant.Decant"_s};
  }
  bool mock(const QStringList &kinds) {
    const QString script = buildtree::source(u"tests/integration/core/sleepservices.py"_s);
    m_mock = std::make_unique<MockService>(*m_bus, script, kinds);
    return m_mock->isReady();
  }
  [[nodiscard]] QStringList logged() {
    const QMutexLocker lock(&m_mutex);
    return m_logged;
  }

  const QString m_reason = u"Converting MKV file."_s;
  QTemporaryDir m_folder;
  QMutex m_mutex;
  QStringList m_logged;
  std::unique_ptr<ostrak::Ostrak> m_library;
  std::unique_ptr<PrivateBus> m_bus;
  std::unique_ptr<MockService> m_mock;
};

void TestSleepInhibitor::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_logged.clear();
  ostrak::OstrakSetup setup;
  setup.prefsPath = m_folder.filePath(u"settings.conf"_s);
  setup.persistence = ostrak::UserDefaults::Persistence::InMemory;
  setup.systemLog = [this](int, const QString &message) {
    const QMutexLocker lock(&m_mutex);
    m_logged.append(message);
  };
  m_library = std::make_unique<ostrak::Ostrak>(setup);
  m_bus = std::make_unique<PrivateBus>();
  QVERIFY(!m_bus->address().isEmpty());
}

void TestSleepInhibitor::cleanup() {
  m_mock.reset();
  m_bus.reset();
  m_library.reset();
}

void TestSleepInhibitor::asksTheFirstThatAnswers_data() {
  QTest::addColumn<QStringList>("kinds");
  QTest::addColumn<QStringList>("asked");
  QTest::addColumn<QString>("released");
  const QString gnome = u"Inhibit \"org.decant.Decant\" 0 \"Converting MKV file.\" 4"_s;
  const QString refused = u"Inhibit raised: org.example.Refused: not today"_s;
  const QString kde = u"Inhibit \"Decant\" \"Converting MKV file.\""_s;
  const QString logind = u"Inhibit \"sleep\" \"Decant\" \"Converting MKV file.\" \"block\""_s;
  QTest::newRow("GNOME") << QStringList{u"gnome"_s} << QStringList{gnome} << u"Uninhibit 4711"_s;
  QTest::newRow("GNOME before all") << QStringList{u"kde"_s, u"logind"_s, u"gnome"_s}
                                    << QStringList{gnome} << u"Uninhibit 4711"_s;
  QTest::newRow("KDE") << QStringList{u"kde"_s} << QStringList{kde} << u"UnInhibit 4711"_s;
  QTest::newRow("KDE before logind")
      << QStringList{u"logind"_s, u"kde"_s} << QStringList{kde} << u"UnInhibit 4711"_s;
  QTest::newRow("GNOME refuses") << QStringList{u"gnome-refuses"_s, u"kde"_s}
                                 << QStringList{gnome, refused, kde} << u"UnInhibit 4711"_s;
  QTest::newRow("logind") << QStringList{u"logind"_s} << QStringList{logind} << u"lock closed"_s;
}

void TestSleepInhibitor::asksTheFirstThatAnswers() {
  QFETCH(QStringList, kinds);
  QFETCH(QStringList, asked);
  QFETCH(QString, released);
  QVERIFY(mock(kinds));
  RealSleepInhibitor inhibitor(services());
  std::unique_ptr<SleepAssertion> assertion = inhibitor.inhibit(m_reason);
  QVERIFY(assertion);
  QTRY_COMPARE(m_mock->log(), asked);
  assertion.reset();
  QTRY_COMPARE(m_mock->log(), asked + QStringList{released});
  QCOMPARE(logged(), QStringList());
}

void TestSleepInhibitor::logindsLockIsClosed() {
  QVERIFY(mock({u"logind"_s}));
  RealSleepInhibitor inhibitor(services());
  auto first = inhibitor.inhibit(m_reason);
  QTRY_COMPARE(m_mock->log().size(), 1);
  // A second one asked and answered: the first lock is still held then.
  auto second = inhibitor.inhibit(m_reason);
  QTRY_COMPARE(m_mock->log().size(), 2);
  second.reset();
  QTRY_COMPARE(m_mock->log().count(u"lock closed"_s), 1);
  first.reset();
  QTRY_COMPARE(m_mock->log().count(u"lock closed"_s), 2);
}

void TestSleepInhibitor::releaseWhileTheAnswerIsPending_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QString>("released");
  QTest::newRow("GNOME") << u"gnome"_s << u"Uninhibit 4711"_s;
  QTest::newRow("KDE") << u"kde"_s << u"UnInhibit 4711"_s;
  QTest::newRow("logind") << u"logind"_s << u"lock closed"_s;
  QTest::newRow("portal") << u"portal"_s << u"Close"_s;
}

void TestSleepInhibitor::releaseWhileTheAnswerIsPending() {
  QFETCH(QString, kind);
  QFETCH(QString, released);
  QVERIFY(mock({u"pausing"_s, kind}));
  RealSleepInhibitor inhibitor(services(kind == u"portal"_s));
  std::unique_ptr<SleepAssertion> assertion = inhibitor.inhibit(m_reason);
  QTRY_VERIFY(m_mock->isFrozen());
  assertion.reset();
  QCOMPARE(m_mock->log().size(), 1);
  m_mock->thaw();
  QTRY_VERIFY(m_mock->log().contains(released));
}

void TestSleepInhibitor::overlappingAssertions() {
  QVERIFY(mock({u"gnome"_s}));
  RealSleepInhibitor inhibitor(services());
  auto first = inhibitor.inhibit(u"one"_s);
  auto second = inhibitor.inhibit(u"two"_s);
  QTRY_COMPARE(m_mock->log().size(), 2);
  second.reset();
  QTRY_COMPARE(m_mock->log().size(), 3);
  QCOMPARE(m_mock->log().constLast(), u"Uninhibit 4712"_s);
  first.reset();
  QTRY_COMPARE(m_mock->log().size(), 4);
  QCOMPARE(m_mock->log().constLast(), u"Uninhibit 4711"_s);
}

void TestSleepInhibitor::theEndReleasesWhatIsHeld() {
  QVERIFY(mock({u"logind"_s}));
  std::unique_ptr<SleepAssertion> assertion;
  {
    RealSleepInhibitor inhibitor(services());
    assertion = inhibitor.inhibit(m_reason);
    QTRY_COMPARE(m_mock->log().size(), 1);
  }
  QTRY_VERIFY(m_mock->log().contains(u"lock closed"_s));
}

void TestSleepInhibitor::assertionMayOutliveTheInhibitor() {
  QVERIFY(mock({u"gnome"_s}));
  std::unique_ptr<SleepAssertion> assertion;
  {
    RealSleepInhibitor inhibitor(services());
    assertion = inhibitor.inhibit(m_reason);
  }
  assertion.reset();
  QCOMPARE(m_mock->log().filter(u"Uninhibit"_s), QStringList());
}

void TestSleepInhibitor::portalIsAskedInASandbox_data() {
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QStringList>("asked");
  QTest::addColumn<bool>("granted");
  const QString inhibit = u"Inhibit \"\" 4 \"Converting MKV file.\""_s;
  QTest::newRow("granted") << u"portal"_s << QStringList{inhibit, u"Response 0"_s} << true;
  QTest::newRow("denied") << u"portal-denies"_s << QStringList{inhibit, u"Response 1"_s} << false;
  QTest::newRow("handle not as announced")
      << u"portal-with-path-of-its-own"_s << QStringList{inhibit} << true;
}

void TestSleepInhibitor::portalIsAskedInASandbox() {
  QFETCH(QString, kind);
  QFETCH(QStringList, asked);
  QFETCH(bool, granted);
  QVERIFY(mock({kind, u"gnome"_s}));
  RealSleepInhibitor inhibitor(services(true));
  std::unique_ptr<SleepAssertion> assertion = inhibitor.inhibit(m_reason);
  QTRY_COMPARE(m_mock->log(), asked);
  if (!granted) QTRY_COMPARE(logged().size(), 1);
  assertion.reset();
  if (granted) QTRY_COMPARE(m_mock->log(), asked + QStringList{u"Close"_s});
  QCOMPARE(logged().size(), granted ? 0 : 1);
}

void TestSleepInhibitor::absenceIsLoggedOnce_data() {
  QTest::addColumn<bool>("bus");
  QTest::addColumn<bool>("sandboxed");
  QTest::newRow("no service") << true << false;
  QTest::newRow("no portal") << true << true;
  QTest::newRow("no bus") << false << false;
  QTest::newRow("no bus in a sandbox") << false << true;
}

void TestSleepInhibitor::absenceIsLoggedOnce() {
  QFETCH(bool, bus);
  QFETCH(bool, sandboxed);
  SleepServices all = services(sandboxed);
  if (!bus) {
    all.sessionBus.clear();
    all.systemBus = u"unix:path="_s + m_folder.filePath(u"no-such-socket"_s);
  }
  const QString message = u"Info: no service of this desktop keeps the machine awake"_s;
  {
    RealSleepInhibitor inhibitor(all);
    auto first = inhibitor.inhibit(m_reason);
    auto second = inhibitor.inhibit(m_reason);
    QVERIFY(first && second);
    QTRY_COMPARE(logged(), QStringList{message});
  }
  QCOMPARE(logged(), QStringList{message});
}

void TestSleepInhibitor::aHangingBusHoldsUpNobody() {
  const QString path = m_folder.filePath(u"silent"_s);
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  qstrncpy(name.sun_path, QFile::encodeName(path).constData(), sizeof name.sun_path);
  const ostrak::Descriptor silent(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  QCOMPARE(::bind(silent.get(), reinterpret_cast<const sockaddr *>(&name), sizeof name), 0);
  QCOMPARE(::listen(silent.get(), 8), 0);

  SleepServices all = services();
  all.sessionBus = u"unix:path="_s + path;
  RealSleepInhibitor inhibitor(all);
  std::unique_ptr<SleepAssertion> assertion = inhibitor.inhibit(m_reason);
  assertion.reset();
  // Both came back although nobody has answered; the same goes for the end of the inhibitor.
}

void TestSleepInhibitor::addressesOfTheProcess() {
  const QByteArray session = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/x");
  QCOMPARE(SleepServices::ofProcess(u"n"_s, u"i"_s).sessionBus, u"unix:path=/x"_s);
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
  // Without a socket there is no bus, and none is started.
  QCOMPARE(SleepServices::ofProcess(u"n"_s, u"i"_s).sessionBus, QString());
  QVERIFY(QFile(m_folder.filePath(u"bus"_s)).open(QIODevice::WriteOnly));
  QCOMPARE(SleepServices::ofProcess(u"n"_s, u"i"_s).sessionBus,
           QString(u"unix:path="_s + m_folder.filePath(u"bus"_s)));
  if (!session.isNull()) qputenv("DBUS_SESSION_BUS_ADDRESS", session);
  runtime.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", runtime);
}

QTEST_GUILESS_MAIN(TestSleepInhibitor)
#include "tst_sleepinhibitor.moc"
