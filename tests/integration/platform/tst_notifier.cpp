#include <QTest>

#include "DesktopBench.h"
#include "RealNotifier.h"

using namespace Qt::StringLiterals;

namespace {

const QString server = u"org.freedesktop.Notifications"_s;

Notification finished(const QString &id, const QString &text = u"done"_s) {
  return {id, u"Decant Conversion Finished"_s, text, u"Show"_s, u"/out/"_s + id + u".mp4"_s};
}

}  // namespace

// What is asked of a server, and what comes back from it.
class TestNotifier final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void theWholeMessage();
  void actionOnlyWhereTheServerHasActions_data();
  void actionOnlyWhereTheServerHasActions();
  void markupIsEscapedOnlyWhereItIsRead_data();
  void markupIsEscapedOnlyWhereItIsRead();
  void oneMessagePerJob();
  void aReplacedMessageIsForgotten();
  void aSecondMessageWhileTheFirstIsOnItsWay();
  void theActionTellsThePath_data();
  void theActionTellsThePath();
  void aClosedMessageIsForgotten();
  void aMessageWithoutPathTellsNothing();
  void aRefusedMessageDoesNotHoldUpTheNext();
  void theLastMessageIsNotLost_data();
  void theLastMessageIsNotLost();

 private:
  void makeNotifier() {
    m_notifier =
        std::make_unique<RealNotifier>(m_bench->bus(), u"Decant"_s, u"org.decant.Decant"_s);
    m_notifier->setActivated([this](const QString &path) {
      QCOMPARE(QThread::currentThread(), thread());
      m_activated.append(path);
    });
  }
  // The messages that the server was given.
  [[nodiscard]] QStringList shown() const { return m_bench->services().log().filter(u"Notify "_s); }
  // Waits until the answer to the last message is there, too.
  void post(const Notification &notification) {
    const qsizetype before = shown().size();
    m_notifier->post(notification);
    QTRY_COMPARE(shown().size(), before + 1);
    m_bench->settle(server);
  }

  std::unique_ptr<DesktopBench> m_bench;
  std::unique_ptr<RealNotifier> m_notifier;
  QStringList m_activated;
};

void TestNotifier::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
  m_activated.clear();
  makeNotifier();
}

void TestNotifier::cleanup() {
  m_notifier.reset();
  m_bench.reset();
}

void TestNotifier::theWholeMessage() {
  QVERIFY(m_bench->startServices({u"notifications:actions"_s}));
  post(finished(u"a"_s, u"Decant has finished converting the file a.mkv."_s));
  const QString expected =
      u"Notify \"Decant\" 0 \"org.decant.Decant\" \"Decant Conversion Finished\" "
      "\"Decant has finished converting the file a.mkv.\" "
      "[\"default\", \"Show\", \"show\", \"Show\"] "
      "{\"category\": \"transfer\", \"desktop-entry\": \"org.decant.Decant\", "
      "\"sound-name\": \"message-new-instant\"} -1"_s;
  QCOMPARE(shown(), QStringList{expected});
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestNotifier::actionOnlyWhereTheServerHasActions_data() {
  QTest::addColumn<QString>("capabilities");
  QTest::addColumn<bool>("titled");
  QTest::addColumn<QString>("actions");
  const QString show = u" [\"default\", \"Show\", \"show\", \"Show\"] "_s;
  QTest::newRow("actions") << u"body,actions"_s << true << show;
  QTest::newRow("none") << u"body"_s << true << u" [] "_s;
  QTest::newRow("nothing at all") << QString() << true << u" [] "_s;
  QTest::newRow("actions, none wanted") << u"actions"_s << false << u" [] "_s;
}

void TestNotifier::actionOnlyWhereTheServerHasActions() {
  QFETCH(QString, capabilities);
  QFETCH(bool, titled);
  QFETCH(QString, actions);
  QVERIFY(m_bench->startServices({u"notifications:"_s + capabilities}));
  Notification notification = finished(u"a"_s);
  if (!titled) notification.actionTitle = QString();
  post(notification);
  QVERIFY2(shown().value(0).contains(actions), qPrintable(shown().value(0)));
}

void TestNotifier::markupIsEscapedOnlyWhereItIsRead_data() {
  QTest::addColumn<QString>("capabilities");
  QTest::addColumn<QString>("body");
  QTest::newRow("markup") << u"body,body-markup"_s
                          << u"\"&lt;b&gt;Tom &amp;amp; Jerry's&lt;/b&gt;\""_s;
  QTest::newRow("plain") << u"body"_s << u"\"<b>Tom &amp; Jerry's</b>\""_s;
}

void TestNotifier::markupIsEscapedOnlyWhereItIsRead() {
  QFETCH(QString, capabilities);
  QFETCH(QString, body);
  QVERIFY(m_bench->startServices({u"notifications:"_s + capabilities}));
  post(finished(u"a"_s, u"<b>Tom &amp; Jerry's</b>"_s));
  QVERIFY2(shown().value(0).contains(body), qPrintable(shown().value(0)));
}

void TestNotifier::oneMessagePerJob() {
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  post(finished(u"a"_s));
  post(finished(u"b"_s));
  post(finished(u"a"_s));
  QVERIFY(shown().at(0).startsWith(u"Notify \"Decant\" 0 "_s));
  QVERIFY(shown().at(1).startsWith(u"Notify \"Decant\" 0 "_s));
  QVERIFY(shown().at(2).startsWith(u"Notify \"Decant\" 7 "_s));
}

void TestNotifier::aReplacedMessageIsForgotten() {
  QVERIFY(m_bench->startServices({u"notifications:actions:7:renumbers"_s}));
  post(finished(u"a"_s));
  post(finished(u"a"_s));
  post(finished(u"a"_s));
  QVERIFY(shown().at(2).startsWith(u"Notify \"Decant\" 8 "_s));
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList());
}

void TestNotifier::aSecondMessageWhileTheFirstIsOnItsWay() {
  QVERIFY(m_bench->startServices({u"pausing"_s, u"notifications:actions:7"_s}));
  m_notifier->post(finished(u"a"_s));
  QTRY_VERIFY(m_bench->services().isFrozen());
  // Nobody answers, and yet this comes back.
  m_notifier->post(finished(u"a"_s));
  m_bench->settle();
  m_bench->services().thaw();
  QTRY_COMPARE(shown().size(), 2);
  QVERIFY(shown().at(1).startsWith(u"Notify \"Decant\" 7 "_s));
  QTRY_VERIFY(m_bench->services().isFrozen());
  m_bench->services().thaw();
}

void TestNotifier::theActionTellsThePath_data() {
  QTest::addColumn<uint>("number");
  QTest::addColumn<QString>("action");
  QTest::addColumn<QStringList>("told");
  QTest::newRow("a click") << 8U << u"default"_s << QStringList{u"/out/b.mp4"_s};
  QTest::newRow("the button") << 7U << u"show"_s << QStringList{u"/out/a.mp4"_s};
  QTest::newRow("another action") << 7U << u"snooze"_s << QStringList();
  QTest::newRow("another program's") << 9U << u"default"_s << QStringList();
}

void TestNotifier::theActionTellsThePath() {
  QFETCH(uint, number);
  QFETCH(QString, action);
  QFETCH(QStringList, told);
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  post(finished(u"a"_s));
  post(finished(u"b"_s));
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {number, action});
  QCOMPARE(m_activated, told);
}

void TestNotifier::aClosedMessageIsForgotten() {
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  post(finished(u"a"_s));
  m_bench->emitSignal(server, u"NotificationClosed"_s, u"uu"_s, {7U, 2U});
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList());
  post(finished(u"a"_s));
  QVERIFY(shown().at(1).startsWith(u"Notify \"Decant\" 0 "_s));
}

void TestNotifier::aMessageWithoutPathTellsNothing() {
  QVERIFY(m_bench->startServices({u"notifications:actions:7"_s}));
  post({u"a"_s, u"Decant Conversion Failed"_s, u"text"_s, {}, {}});
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {7U, u"default"_s});
  QCOMPARE(m_activated, QStringList());
}

void TestNotifier::aRefusedMessageDoesNotHoldUpTheNext() {
  QVERIFY(m_bench->startServices({u"notifications-refusing"_s}));
  m_notifier->post(finished(u"a"_s));
  m_notifier->post(finished(u"b"_s));
  QTRY_COMPARE(m_bench->services().log().filter(u"raised"_s).size(), 2);
  QTRY_COMPARE(m_bench->logged().size(), 1);
  QVERIFY(m_bench->logged().at(0).contains(u"not today"_s));
}

void TestNotifier::theLastMessageIsNotLost_data() {
  QTest::addColumn<bool>("asked");
  QTest::newRow("the first of all") << false;
  QTest::newRow("one more") << true;
}

void TestNotifier::theLastMessageIsNotLost() {
  QFETCH(bool, asked);
  QVERIFY(m_bench->startServices({u"notifications:actions"_s}));
  if (asked) post(finished(u"a"_s));
  m_notifier->post(finished(u"b"_s));
  m_notifier->post(finished(u"c"_s));
  m_notifier.reset();
  QTRY_COMPARE(shown().size(), asked ? 3 : 2);
  // The server would have been given it twice by now.
  m_bench->emitSignal(server, u"ActionInvoked"_s, u"us"_s, {1U, u"default"_s});
  QCOMPARE(shown().size(), asked ? 3 : 2);
}

QTEST_GUILESS_MAIN(TestNotifier)
#include "tst_notifier.moc"
