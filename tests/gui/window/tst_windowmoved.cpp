#include <QDir>
#include <QStringList>
#include <QTest>
#include <csignal>

#include "Alerts.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The program's folder is moved while the window is open. What is noticed when is tested with the
// handler; here is what the window answers.
class TestWindowMoved final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    WindowTest::init();
    QVERIFY(m_b->instance.claim());
    m_b->scenario.conversion(u"still.mkv"_s).progressAt(10).announce(u"running"_s).hang();
    QVERIFY(m_b->scenario.write());
    QVERIFY(m_b->open());
  }

  void restartsAtTheNewPlace();
  void asksWhileAJobConverts_data();
  void asksWhileAJobConverts();
  void keptOneStartsNothingNew();
  void endsByASignalWhileItAsks();

 private:
  void moveIt() {
    QVERIFY(QDir().rename(m_b->path(u"bundle"_s), m_b->path(u"moved"_s)));
    m_places = {m_b->path(u"moved/decant"_s)};
  }
  // The real three seconds go by.
  [[nodiscard]] bool waitForAlerts(qsizetype count) {
    return QTest::qWaitFor([&] { return m_b->presented().size() >= count; }, 30'000);
  }

  QStringList m_places;
};

void TestWindowMoved::restartsAtTheNewPlace() {
  moveIt();
  QVERIFY(waitForAlerts(1));
  QCOMPARE(m_b->presented().first().buttons, QStringList{u"Restart Decant"_s});
  QTRY_COMPARE(m_b->quits, 1);
  QCOMPARE(m_b->programs.launched, m_places);
  QVERIFY(!m_b->instance.held);
  QCOMPARE(m_b->presented().size(), 1);
}

void TestWindowMoved::asksWhileAJobConverts_data() {
  QTest::addColumn<int>("answer");
  QTest::newRow("quit") << ostrak::firstButton;
  QTest::newRow("cancel") << ostrak::secondButton;
}

void TestWindowMoved::asksWhileAJobConverts() {
  QFETCH(const int, answer);
  const bool quits = answer == ostrak::firstButton;
  QVERIFY(m_b->queueUp({u"still.mkv"_s}));
  // The stand-in needs the bundle's folder until then.
  QTRY_VERIFY_WITH_TIMEOUT(m_b->scenario.announced(u"running"_s), 30'000);
  m_b->program.presenter().answer(ostrak::firstButton);
  m_b->program.presenter().answer(answer);
  moveIt();
  QVERIFY2(waitForAlerts(2), qPrintable(m_b->told().join(u'\n')));
  QCOMPARE(m_b->presented().at(1).message,
           u"Conversion is in progresss. Are you sure you want to quit?"_s);
  QCOMPARE(m_b->quits, quits ? 1 : 0);
  QCOMPARE(m_b->programs.launched, quits ? m_places : QStringList());
  QCOMPARE(m_b->instance.held, !quits);
  QCOMPARE(m_b->count(JobStateConverting), quits ? 0 : 1);
}

void TestWindowMoved::keptOneStartsNothingNew() {
  QVERIFY(m_b->queueUp({u"still.mkv"_s}));
  QVERIFY(m_b->queueUp({u"2.mkv"_s, u"3.mkv"_s}));
  QTRY_VERIFY_WITH_TIMEOUT(m_b->scenario.announced(u"running"_s), 30'000);
  const int tool = m_b->scenario.calls().last().value(u"pid"_s).toInt();
  QVERIFY(tool > 1);
  m_b->program.presenter().answer(ostrak::firstButton);
  m_b->program.presenter().answer(ostrak::secondButton);
  moveIt();
  QVERIFY2(waitForAlerts(2), qPrintable(m_b->told().join(u'\n')));
  ConversionJob &running = *m_b->queue().taskArray().first();
  running.pause();
  running.continue_();
  QCOMPARE(running.state(), JobStateConverting);
  QCOMPARE(::kill(tool, SIGKILL), 0);
  QTRY_COMPARE(running.state(), JobStateFailed);
  // Its next one would be tried in the same turn.
  QCOMPARE(m_b->count(JobStateQueued), 2);
  // Whoever wants it to go on is asked again, and nothing runs any more.
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QTRY_COMPARE(m_b->quits, 1);
  QCOMPARE(m_b->programs.launched, m_places);
}

void TestWindowMoved::endsByASignalWhileItAsks() {
  QVERIFY(m_b->queueUp({u"still.mkv"_s}));
  // The stand-in needs the bundle's folder until then.
  QTRY_VERIFY_WITH_TIMEOUT(m_b->scenario.announced(u"running"_s), 30'000);
  m_b->program.presenter().setWhileShown([this](const ostrak::Alert &alert) {
    if (alert.buttons.size() == 2) m_b->desktop().quitAtOnce();
  });
  moveIt();
  QVERIFY(waitForAlerts(2));
  QTRY_COMPARE(m_b->quits, 1);
  QCOMPARE(m_b->programs.launched, QStringList());
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowMoved>(argc, argv);
}
#include "tst_windowmoved.moc"
