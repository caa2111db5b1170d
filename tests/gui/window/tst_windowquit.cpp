#include <QCoreApplication>
#include <QFile>
#include <QMetaObject>
#include <QStringList>
#include <QTest>
#include <QTimer>

#include "Alerts.h"
#include "Defaults.h"
#include "WholeFile.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The ways in which the program ends.
class TestWindowQuit final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void endsTheEventLoop_data();
  void endsTheEventLoop();
  void asksWhileAJobConverts_data();
  void asksWhileAJobConverts();
  void doesNotAskWithoutAConversion_data();
  void doesNotAskWithoutAConversion();
  void quitEndsEveryJob();
  void settingsAreFlushed();
  void signalDoesNotAsk();
  void lastConversionQuitsWhenWanted();
};

void TestWindowQuit::endsTheEventLoop_data() {
  QTest::addColumn<QString>("how");
  QTest::newRow("menu") << u"menu"_s;
  QTest::newRow("close button") << u"close"_s;
  QTest::newRow("signal") << u"signal"_s;
  QTest::newRow("toolkit") << u"toolkit"_s;
}

void TestWindowQuit::endsTheEventLoop() {
  QFETCH(const QString, how);
  bool hung = false;
  QTimer::singleShot(10'000, this, [&] {
    hung = true;
    QCoreApplication::exit();
  });
  QMetaObject::invokeMethod(
      this,
      [&] {
        if (how == u"menu"_s) m_b->trigger(u"quitAction"_s);
        if (how == u"close"_s) m_b->window().close();
        if (how == u"signal"_s) m_b->desktop().quitAtOnce();
        if (how == u"toolkit"_s) QCoreApplication::quit();
      },
      Qt::QueuedConnection);
  QCoreApplication::exec();
  QVERIFY(!hung);
}

void TestWindowQuit::asksWhileAJobConverts_data() {
  QTest::addColumn<bool>("byMenu");
  QTest::addColumn<int>("answer");
  QTest::newRow("menu, quit") << true << ostrak::firstButton;
  QTest::newRow("menu, cancel") << true << ostrak::secondButton;
  QTest::newRow("close button, quit") << false << ostrak::firstButton;
  QTest::newRow("close button, cancel") << false << ostrak::secondButton;
}

void TestWindowQuit::asksWhileAJobConverts() {
  QFETCH(const bool, byMenu);
  QFETCH(const int, answer);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  m_b->program.presenter().answer(answer);
  if (byMenu)
    QVERIFY(m_b->trigger(u"quitAction"_s));
  else
    m_b->window().close();
  QCOMPARE(m_b->presented().size(), 1);
  const ostrak::Alert &question = m_b->presented().first();
  QCOMPARE(question.title, u"Decant"_s);
  QCOMPARE(question.message, u"Conversion is in progresss. Are you sure you want to quit?"_s);
  QCOMPARE(question.buttons, QStringList({u"Quit"_s, u"Cancel"_s}));
  QVERIFY(m_b->window().isVisible());
  const bool stays = answer == ostrak::secondButton;
  QCOMPARE(m_b->count(JobStateConverting), stays ? 1 : 0);
  if (!stays) return;
  // And can go on.
  m_b->letGo();
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
}

void TestWindowQuit::doesNotAskWithoutAConversion_data() {
  QTest::addColumn<QString>("state");
  QTest::newRow("empty") << u"empty"_s;
  QTest::newRow("queued") << u"queued"_s;
  QTest::newRow("paused") << u"paused"_s;
  QTest::newRow("finished") << u"finished"_s;
  QTest::newRow("failed") << u"failed"_s;
}

void TestWindowQuit::doesNotAskWithoutAConversion() {
  QFETCH(const QString, state);
  if (state == u"queued"_s) m_b->fill(2);
  if (state == u"paused"_s) {
    QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
    m_b->queue().taskArray().first()->pause();
  }
  if (state == u"finished"_s) QVERIFY(m_b->queueUp({u"1.mkv"_s}));
  if (state == u"failed"_s) QVERIFY(m_b->queueUp({u"fail.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateConverting), 0);
  const auto before = m_b->presented().size();
  QVERIFY(m_b->desktop().quit());
  QCOMPARE(m_b->presented().size(), before);
  QVERIFY(m_b->names().isEmpty());
}

void TestWindowQuit::quitEndsEveryJob() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
  QVERIFY(m_b->queueUp({u"hang.mkv"_s}));
  QVERIFY(m_b->queueUp({u"3.mkv"_s}));
  QTRY_VERIFY(QFile::exists(m_b->path(u"hang.m4v"_s)));
  QVERIFY(m_b->desktop().quit());
  QVERIFY(m_b->names().isEmpty());
  QVERIFY(QFile::exists(m_b->path(u"1.m4v"_s)));
  QVERIFY(!QFile::exists(m_b->path(u"hang.m4v"_s)));
  QCOMPARE(m_b->sleepInhibitor.held(), 0);
  // Once is enough.
  QVERIFY(!m_b->desktop().quit());
}

void TestWindowQuit::settingsAreFlushed() {
  ostrak::setDefaultInt(u"AACBitrate"_s, 3);
  QVERIFY(m_b->desktop().quit());
  QVERIFY(wholefile::read(m_b->path(u"config/org.decant.Decant.conf"_s)).contains("AACBitrate=3"));
}

void TestWindowQuit::signalDoesNotAsk() {
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  m_b->desktop().quitAtOnce();
  QVERIFY(m_b->presented().isEmpty());
  QVERIFY(m_b->names().isEmpty());
}

void TestWindowQuit::lastConversionQuitsWhenWanted() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  QVERIFY(m_b->queueUp({u"slow.mkv"_s, u"2.mkv"_s}));
  QCOMPARE(m_b->quits, 0);
  m_b->letGo();
  QTRY_COMPARE(m_b->quits, 1);
  for (const QString &name : {u"slow.m4v"_s, u"2.m4v"_s})
    QVERIFY(QFile::exists(m_b->path(name)));
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowQuit>(argc, argv);
}
#include "tst_windowquit.moc"
