#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QTest>

#include "DesktopBench.h"
#include "FileUri.h"
#include "RealSingleInstance.h"

using namespace Qt::StringLiterals;

// What the one instance does with what others send it.
class TestSingleInstance final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void onlyOneHasThePlace();
  void addressesOfFiles_data();
  void addressesOfFiles();
  void pathsComeThrough_data();
  void pathsComeThrough();
  void whatArrivesBeforeTheHandlerWaits_data();
  void whatArrivesBeforeTheHandlerWaits();
  void theTokenIsThereInTheHandler_data();
  void theTokenIsThereInTheHandler();
  void theAnswerDoesNotWaitForTheHandler();
  void withoutHandlerAgainNothingIsTaken();
  void releaseAndClaimAgain();
  void anActionComesToTheFront();
  void nobodyThere();
  void theEnvironmentsTokens();
  void theBusGoesAway();

 private:
  // Sends as another program would, and returns at once.
  std::unique_ptr<QDBusPendingCallWatcher> send(const QString &method,
                                                const QVariantList &arguments) const {
    QDBusMessage call = QDBusMessage::createMethodCall(m_name, u"/org/decant/Decant"_s,
                                                       u"org.freedesktop.Application"_s, method);
    call.setArguments(arguments);
    return std::make_unique<QDBusPendingCallWatcher>(m_other->asyncCall(call));
  }
  [[nodiscard]] std::unique_ptr<RealSingleInstance> instance(const QDBusConnection &bus) const {
    return std::make_unique<RealSingleInstance>(bus, m_name, RealSingleInstance::Options{});
  }
  [[nodiscard]] SingleInstance::Handler remembering() {
    return [this](const QStringList &paths) { m_arrived.append(paths); };
  }

  const QString m_name = u"org.decant.Decant"_s;
  std::unique_ptr<DesktopBench> m_bench;
  std::optional<QDBusConnection> m_other;
  std::unique_ptr<RealSingleInstance> m_first;
  QList<QStringList> m_arrived;
};

void TestSingleInstance::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
  m_other = QDBusConnection::connectToBus(m_bench->privateBus().address(), u"other"_s);
  m_first = instance(m_bench->bus());
  m_arrived.clear();
}

void TestSingleInstance::cleanup() {
  m_first.reset();
  m_other.reset();
  QDBusConnection::disconnectFromBus(u"other"_s);
  m_bench.reset();
}

void TestSingleInstance::onlyOneHasThePlace() {
  QVERIFY(m_first->claim());
  QVERIFY(m_first->claim());
  auto second = instance(*m_other);
  QVERIFY(!second->claim());
  // One that never had the place does not give it up for the other.
  second->release();
  second.reset();
  QVERIFY(m_bench->bus().interface()->isServiceRegistered(m_name));
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestSingleInstance::addressesOfFiles_data() {
  QTest::addColumn<QString>("uri");
  QTest::addColumn<QString>("path");
  QTest::newRow("plain") << u"file:///a/b.mkv"_s << u"/a/b.mkv"_s;
  QTest::newRow("encoded") << u"file:///a/100%25%20%23%3F%C3%A4%0A.mkv"_s << u"/a/100% #?ä\n.mkv"_s;
  QTest::newRow("not encoded") << u"file:///a/b c ä.mkv"_s << u"/a/b c ä.mkv"_s;
  QTest::newRow("this machine") << u"file://localhost/a.mkv"_s << u"/a.mkv"_s;
  QTest::newRow("another machine") << u"file://server/a.mkv"_s << QString();
  QTest::newRow("web") << u"https://example.org/a.mkv"_s << QString();
  QTest::newRow("no address") << u"a.mkv"_s << QString();
  QTest::newRow("nothing") << QString() << QString();
  QTest::newRow("no path") << u"file:"_s << QString();
}

void TestSingleInstance::addressesOfFiles() {
  QFETCH(QString, uri);
  QFETCH(QString, path);
  QCOMPARE(ostrak::pathOfFileUri(uri), path);
  if (!path.isNull()) QCOMPARE(ostrak::pathOfFileUri(ostrak::fileUri(path)), path);
}

void TestSingleInstance::pathsComeThrough_data() {
  QTest::addColumn<QStringList>("uris");
  QTest::addColumn<QStringList>("paths");
  QTest::newRow("two") << QStringList{u"file:///b%20b.mkv"_s, u"file:///a.srt"_s}
                       << QStringList{u"/b b.mkv"_s, u"/a.srt"_s};
  QTest::newRow("some are no files")
      << QStringList{u"https://example.org/"_s, u"file:///a.mkv"_s} << QStringList{u"/a.mkv"_s};
  QTest::newRow("none") << QStringList() << QStringList();
}

void TestSingleInstance::pathsComeThrough() {
  QFETCH(QStringList, uris);
  QFETCH(QStringList, paths);
  QVERIFY(m_first->claim());
  m_first->setHandler(remembering());
  const auto call = send(u"Open"_s, {uris, QVariantMap()});
  QTRY_VERIFY(call->isFinished());
  QVERIFY(!call->isError());
  QCOMPARE(m_arrived, QList<QStringList>{paths});
}

void TestSingleInstance::whatArrivesBeforeTheHandlerWaits_data() {
  QTest::addColumn<QList<QStringList>>("calls");  // no addresses: Activate
  QTest::addColumn<QList<QStringList>>("arrived");
  const QStringList a{u"file:///a"_s};
  const QStringList b{u"file:///b"_s, u"file:///c"_s};
  QTest::newRow("nothing") << QList<QStringList>{} << QList<QStringList>{};
  QTest::newRow("to the front") << QList<QStringList>{{}} << QList<QStringList>{{}};
  QTest::newRow("files") << QList<QStringList>{a} << QList<QStringList>{{u"/a"_s}};
  QTest::newRow("files twice") << QList<QStringList>{a, {}, b}
                               << QList<QStringList>{{u"/a"_s, u"/b"_s, u"/c"_s}};
}

void TestSingleInstance::whatArrivesBeforeTheHandlerWaits() {
  QFETCH(QList<QStringList>, calls);
  QFETCH(QList<QStringList>, arrived);
  QVERIFY(m_first->claim());
  for (const QStringList &uris : calls) {
    const auto call = uris.isEmpty() ? send(u"Activate"_s, {QVariantMap()})
                                     : send(u"Open"_s, {uris, QVariantMap()});
    QTRY_VERIFY(call->isFinished());
    QVERIFY(!call->isError());
  }
  m_first->setHandler(remembering());
  QCOMPARE(m_arrived, arrived);
  m_first->setHandler(remembering());
  QCOMPARE(m_arrived, arrived);
}

void TestSingleInstance::theTokenIsThereInTheHandler_data() {
  QTest::addColumn<QVariantMap>("platformData");
  QTest::addColumn<QString>("token");
  const QString token = u"activation-token"_s;
  const QString startup = u"desktop-startup-id"_s;
  QTest::newRow("none") << QVariantMap() << QString();
  QTest::newRow("token") << QVariantMap{{token, u"t"_s}} << u"t"_s;
  QTest::newRow("startup") << QVariantMap{{startup, u"s"_s}} << u"s"_s;
  QTest::newRow("both") << QVariantMap{{token, u"t"_s}, {startup, u"s"_s}} << u"t"_s;
}

void TestSingleInstance::theTokenIsThereInTheHandler() {
  QFETCH(QVariantMap, platformData);
  QFETCH(QString, token);
  QVERIFY(m_first->claim());
  QStringList tokens;
  const auto handler = [&](const QStringList &) { tokens.append(m_first->activationToken()); };
  const auto early = send(u"Activate"_s, {platformData});
  QTRY_VERIFY(early->isFinished());
  m_first->setHandler(handler);
  const auto late = send(u"Open"_s, {QStringList{u"file:///a"_s}, platformData});
  QTRY_VERIFY(late->isFinished());
  QCOMPARE(tokens, (QStringList{token, token}));
  QVERIFY(m_first->activationToken().isNull());
}

void TestSingleInstance::theAnswerDoesNotWaitForTheHandler() {
  QVERIFY(m_first->claim());
  const auto call = std::make_shared<std::unique_ptr<QDBusPendingCallWatcher>>();
  bool answered = false;
  m_first->setHandler([&](const QStringList &) {
    // As a question to the user would.
    QTRY_VERIFY((*call)->isFinished());
    answered = true;
  });
  *call = send(u"Activate"_s, {QVariantMap()});
  QTRY_VERIFY(answered);
  QVERIFY(!(*call)->isError());
}

void TestSingleInstance::withoutHandlerAgainNothingIsTaken() {
  QVERIFY(m_first->claim());
  m_first->setHandler(remembering());
  m_first->setHandler({});
  m_first->setHandler({});
  const auto call = send(u"Open"_s, {QStringList{u"file:///a"_s}, QVariantMap()});
  QTRY_VERIFY(call->isFinished());
  QVERIFY(call->isError());
  m_first->setHandler(remembering());
  QCOMPARE(m_arrived, QList<QStringList>());
  const auto again = send(u"Activate"_s, {QVariantMap()});
  QTRY_VERIFY(again->isFinished());
  QVERIFY(!again->isError());
}

void TestSingleInstance::releaseAndClaimAgain() {
  QVERIFY(m_first->claim());
  m_first->setHandler(remembering());
  m_first->release();
  m_first->release();
  auto second = instance(*m_other);
  QVERIFY(second->claim());
  QVERIFY(!m_first->claim());
  second.reset();
  QVERIFY(m_first->claim());
  const auto call = send(u"Activate"_s, {QVariantMap()});
  QTRY_COMPARE(m_arrived, QList<QStringList>{QStringList()});
}

void TestSingleInstance::anActionComesToTheFront() {
  QVERIFY(m_first->claim());
  m_first->setHandler(remembering());
  const auto call = send(u"ActivateAction"_s, {u"new"_s, QVariantList(), QVariantMap()});
  QTRY_VERIFY(call->isFinished());
  QVERIFY(!call->isError());
  QCOMPARE(m_arrived, QList<QStringList>{QStringList()});
}

void TestSingleInstance::nobodyThere() {
  QVERIFY(!m_first->handOver({u"/a"_s}));
  QVERIFY(!m_first->handOver({}));
  // Not even where the bus could start somebody, who would then compete with the caller.
  const QString log = m_bench->path(u"started"_s);
  QVERIFY(m_bench->privateBus().makeActivatable(m_name,
                                                m_bench->serviceCommand(log, {u"filemanager"_s})));
  QVERIFY(!m_first->handOver({u"/a"_s}));
  QVERIFY(!QFile::exists(log));
  QVERIFY(m_first->claim());
}

void TestSingleInstance::theEnvironmentsTokens() {
  qunsetenv("XDG_ACTIVATION_TOKEN");
  qunsetenv("DESKTOP_STARTUP_ID");
  QCOMPARE(RealSingleInstance::platformDataOfProcess(), QVariantMap());
  qputenv("XDG_ACTIVATION_TOKEN", "t");
  qputenv("DESKTOP_STARTUP_ID", "s");
  const QVariantMap both{{u"activation-token"_s, u"t"_s}, {u"desktop-startup-id"_s, u"s"_s}};
  QCOMPARE(RealSingleInstance::platformDataOfProcess(), both);
  qunsetenv("XDG_ACTIVATION_TOKEN");
  qunsetenv("DESKTOP_STARTUP_ID");
}

void TestSingleInstance::theBusGoesAway() {
  QVERIFY(m_first->claim());
  m_bench->privateBus().end();
  QTRY_VERIFY(!m_bench->bus().isConnected());
  QVERIFY(!m_first->handOver({u"/a"_s}));
  m_first->release();
  QVERIFY(m_first->claim());
  QCOMPARE(m_bench->logged().size(), 1);
}

QTEST_GUILESS_MAIN(TestSingleInstance)
#include "tst_singleinstance.moc"
