#include <QCoreApplication>
#include <QTest>
#include <QTimer>

#include "../desktop/AlertPlayer.h"
#include "Defaults.h"
#include "WholeFile.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Ends that come by themselves: with the desktop's session, and after the last conversion.
class TestWindowEnds final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void sessionKeepsWhatIsToBeKept_data();
  void sessionKeepsWhatIsToBeKept();
  void sessionAsksOnce_data();
  void sessionAsksOnce();
  void waitsForAnAlert();
  void waitsForAPanel();
  void staysWhenAConversionCameUnderTheAlert();
  void keepsThePlace();
  void activationTokenIsUsedUp();

 private:
  // What the settings file on the disk says.
  [[nodiscard]] QByteArray stored() const {
    return wholefile::read(m_b->path(u"config/org.decant.Decant.conf"_s));
  }

  ostrak::WindowAlertPresenter m_dialogs;
};

void TestWindowEnds::sessionKeepsWhatIsToBeKept_data() {
  QTest::addColumn<bool>("converts");
  QTest::addColumn<bool>("mayAsk");
  QTest::newRow("idle") << false << true;
  QTest::newRow("converting") << true << true;
  QTest::newRow("converting, nobody may be asked") << true << false;
}

void TestWindowEnds::sessionKeepsWhatIsToBeKept() {
  QFETCH(const bool, converts);
  QFETCH(const bool, mayAsk);
  if (converts) QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  ostrak::setDefaultInt(u"AACBitrate"_s, 3);
  QByteArray before;
  m_b->program.presenter().setWhileShown([&](ostrak::Alert &) { before = stored(); });
  QVERIFY(m_b->desktop().sessionMayEnd([mayAsk] { return mayAsk; }));
  QCOMPARE(m_b->presented().size(), converts && mayAsk ? 1 : 0);
  for (const QByteArray &file : {stored(), before.isNull() ? stored() : before}) {
    QVERIFY(file.contains("AACBitrate=3"));
    QVERIFY(file.contains("MainWindowGeometry="));
  }
}

void TestWindowEnds::sessionAsksOnce_data() {
  QTest::addColumn<int>("answer");
  QTest::addColumn<int>("questions");  // when the window is closed after it
  QTest::newRow("quit") << ostrak::firstButton << 1;
  QTest::newRow("cancel") << ostrak::secondButton << 2;
}

void TestWindowEnds::sessionAsksOnce() {
  QFETCH(const int, answer);
  QFETCH(const int, questions);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  m_b->program.presenter().answer(answer);
  QCOMPARE(m_b->desktop().sessionMayEnd([] { return true; }), answer == ostrak::firstButton);
  m_b->window().close();
  QCOMPARE(m_b->presented().size(), questions);
  QCOMPARE(m_b->quits, 1);
}

void TestWindowEnds::waitsForAnAlert() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  ostrak::setAlertPresenter(&m_dialogs);
  int quitsUnder = -1;
  const AlertPlayer player([&](const ostrak::AlertDialog &dialog) {
    m_b->letGo();
    (void)QTest::qWaitFor([&] { return m_b->count(JobStateFinished) == 1; });
    (void)QTest::qWaitFor([&] { return m_b->quits > 0; }, 200);
    quitsUnder = m_b->quits;
    AlertPlayer::press(dialog, 0);
  });
  for (const QString &message : {u"one"_s, u"two"_s})
    ostrak::postAlert(ostrak::apptitledAlert(message, {u"OK"_s}));
  QTimer::singleShot(20'000, qApp, [] { QCoreApplication::exit(1); });
  QCOMPARE(QCoreApplication::exec(), 0);
  QCOMPARE(m_b->quits, 1);
  QCOMPARE(quitsUnder, 0);
  QCOMPARE(player.shown(), 2);
}

void TestWindowEnds::waitsForAPanel() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QVERIFY(m_b->trigger(u"addAction"_s));
  m_b->letGo();
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
  QVERIFY(!QTest::qWaitFor([&] { return m_b->quits > 0; }, 200));
  QVERIFY(m_b->cancelPanel());
  QTRY_COMPARE(m_b->quits, 1);
}

void TestWindowEnds::staysWhenAConversionCameUnderTheAlert() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  m_b->program.presenter().setWhileShown([&](ostrak::Alert &) {
    m_b->letGo();
    (void)QTest::qWaitFor([&] { return m_b->count(JobStateFinished) == 1; });
    (void)m_b->queueUp({u"hang.mkv"_s});
  });
  ostrak::alert(u"Title"_s, u"Message"_s);
  QCOMPARE(m_b->count(JobStateConverting), 1);
  QVERIFY(!QTest::qWaitFor([&] { return m_b->quits > 0; }, 200));
}

void TestWindowEnds::keepsThePlace() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  QVERIFY(m_b->queueUp({u"1.mkv"_s}));
  QTRY_COMPARE(m_b->quits, 1);
  QVERIFY(stored().contains("MainWindowGeometry="));
}

void TestWindowEnds::activationTokenIsUsedUp() {
  qputenv("XDG_ACTIVATION_TOKEN", "token");
  m_b->instance.arrive({});
  QVERIFY(!qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowEnds>(argc, argv);
}
#include "tst_windowends.moc"
