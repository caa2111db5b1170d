#include <QTest>

#include "DesktopBench.h"
#include "RealNotifier.h"

using namespace Qt::StringLiterals;

namespace {

const QString server = u"org.freedesktop.Notifications"_s;

Notification finished(const QString &id) {
  return {id, u"title"_s, u"<text>"_s, u"Show"_s, u"/out/"_s + id + u".mp4"_s};
}

}  // namespace

// Servers that come and go, or are not there at all.
class TestNotifierServer final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void anotherServerIsAskedAnew();
  void numbersOfAServerThatIsGoneMeanNothing();
  void aServerThatComesLate();
  void theBusStartsTheServer();
  void aServerThatDiesOfAMessageGetsItAgain();
  void noServer();
  void noBus_data();
  void noBus();
  void theBusGoesAway();

 private:
  [[nodiscard]] QStringList shown() const { return m_bench->services().log().filter(u"Notify "_s); }
  void post(const QString &id) {
    const qsizetype before = shown().size();
    m_notifier->post(finished(id));
    QTRY_COMPARE(shown().size(), before + 1);
    m_bench->settle(server);
  }

  std::unique_ptr<DesktopBench> m_bench;
  std::unique_ptr<RealNotifier> m_notifier;
  QStringList m_activated;
};

void TestNotifierServer::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
  m_activated.clear();
  m_notifier = std::make_unique<RealNotifier>(m_bench->bus(), u"Decant"_s, u"org.decant.Decant"_s);
  m_notifier->setActivated([this](const QString &path) { m_activated.append(path); });
}

void TestNotifierServer::cleanup() {
  m_notifier.reset();
  m_bench.reset();
}

void TestNotifierServer::anotherServerIsAskedAnew() {
  QVERIFY(m_bench->startServices({u"notifications:actions,body-markup"_s}));
  post(u"a"_s);
  QVERIFY(shown().at(0).contains(u"\"&lt;text&gt;\" [\"default\""_s));
  QVERIFY(m_bench->startServices({u"notifications:body"_s}));
  post(u"b"_s);
  QVERIFY(shown().at(0).contains(u"\"<text>\" []"_s));
  QCOMPARE(m_bench->services().log().filter(u"GetCapabilities"_s).size(), 1);
}

void TestNotifierServer::numbersOfAServerThatIsGoneMeanNothing() {
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  post(u"a"_s);
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  // The same number stands for somebody else's message now.
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList());
  post(u"a"_s);
  QVERIFY(shown().at(0).startsWith(u"Notify \"Decant\" 0 "_s));
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList{u"/out/a.mp4"_s});
}

void TestNotifierServer::aServerThatComesLate() {
  m_notifier->post(finished(u"a"_s));
  QTRY_COMPARE(m_bench->logged().size(), 1);
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  post(u"b"_s);
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList{u"/out/b.mp4"_s});
  QCOMPARE(shown().size(), 1);
}

void TestNotifierServer::theBusStartsTheServer() {
  const QString log = m_bench->path(u"started"_s);
  QVERIFY(m_bench->privateBus().makeActivatable(
      server, m_bench->serviceCommand(log, {u"notifications:actions:7"_s})));
  m_notifier->post(finished(u"a"_s));
  QTRY_COMPARE(MockService::logOf(log).filter(u"Notify "_s).size(), 1);
  m_bench->settle(server);
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList{u"/out/a.mp4"_s});
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestNotifierServer::aServerThatDiesOfAMessageGetsItAgain() {
  const QString log = m_bench->path(u"started"_s);
  QVERIFY(m_bench->privateBus().makeActivatable(
      server, m_bench->serviceCommand(
                  log, {u"dying:"_s + m_bench->path(u"died"_s), u"notifications:actions:7"_s})));
  m_notifier->post(finished(u"a"_s));
  m_notifier->post(finished(u"b"_s));
  QTRY_COMPARE(MockService::logOf(log).filter(u"Notify "_s).size(), 3);
  QCOMPARE(MockService::logOf(log).filter(u"GetCapabilities"_s).size(), 2);
  m_bench->settle(server);
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {8U, u"default"_s});
  QCOMPARE(m_activated, (QStringList{u"/out/a.mp4"_s, u"/out/b.mp4"_s}));
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestNotifierServer::noServer() {
  m_notifier->post(finished(u"a"_s));
  m_notifier->post(finished(u"b"_s));
  QTRY_COMPARE(m_bench->logged().size(), 1);
  m_notifier->post(finished(u"c"_s));
  m_notifier.reset();
  QCOMPARE(m_bench->logged().size(), 1);
}

void TestNotifierServer::noBus_data() {
  QTest::addColumn<int>("messages");
  QTest::addColumn<int>("lines");
  QTest::newRow("unused") << 0 << 0;
  QTest::newRow("used") << 3 << 1;
}

void TestNotifierServer::noBus() {
  QFETCH(int, messages);
  QFETCH(int, lines);
  {
    RealNotifier notifier(::noBus(), u"Decant"_s, u"org.decant.Decant"_s);
    notifier.setActivated([](const QString &) {});
    for (int i = 0; i < messages; ++i)
      notifier.post(finished(u"a"_s));
  }
  QCOMPARE(m_bench->logged().size(), lines);
}

void TestNotifierServer::theBusGoesAway() {
  QVERIFY(m_bench->startServices({u"pausing"_s, u"notifications:actions"_s}));
  m_notifier->post(finished(u"a"_s));
  QTRY_VERIFY(m_bench->services().isFrozen());
  m_bench->privateBus().end();
  QTRY_COMPARE(m_bench->logged().size(), 1);
  QTRY_VERIFY(!m_bench->bus().isConnected());
  m_notifier->post(finished(u"b"_s));
  QCOMPARE(m_bench->logged().size(), 1);
}

QTEST_GUILESS_MAIN(TestNotifierServer)
#include "tst_notifierserver.moc"
