#include <QCoreApplication>
#include <QList>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include "Defaults.h"
#include "IntakeTest.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestIntake final : public IntakeTest {
  Q_OBJECT

 private Q_SLOTS:
  void filesAreProbedInTheGivenOrder();
  void onlyOneProbeRunsAtATime();
  void filesWaitWhileOneIsShown();
  void filesWaitWhileOneIsAskedAbout();
  void filesWaitWhileAPanelIsUpOverNothing();
  void laterFilesComeBeforeEarlierOnes();
  void foldersAndTextsDoNothing();
  void skippingGoesOnAndEndsInIdleness();
  void skippingKeepsTheRecord();
  void skippingWhileProbingDropsTheResult();
  void settingsOfTheProbeAreReadEachTime();
  void intakeMayGoWhileAProbeRuns();
};

void TestIntake::filesAreProbedInTheGivenOrder() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s});
  for (const QString &name : {u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s}) {
    waitForShown(name);
    QVERIFY(drained.isEmpty());
    m_intake->cancelAdd();
  }
  QCOMPARE(m_prober->asked(), QStringList({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s}));
  QCOMPARE(drained.size(), 1);
  QVERIFY(m_intake->isIdle());
}

void TestIntake::onlyOneProbeRunsAtATime() {
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  QVERIFY(m_intake->isScanning());
  m_intake->openFiles({u"/c.mkv"_s});
  m_intake->addNextFile();
  m_intake->cancelAdd();
  m_intake->openFiles({u"/d.mkv"_s});
  m_prober->finishOne();
  QTRY_COMPARE(m_prober->asked().size(), 2);
  m_prober->finishAll();
  QTRY_COMPARE(m_intake->state(), Intake::State::Showing);
  QCOMPARE(m_prober->mostAtOnce(), 1);
}

void TestIntake::filesWaitWhileOneIsShown() {
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->openFiles({u"/b.mkv"_s});
  QCOMPARE(m_intake->importFiles(), QStringList(u"/b.mkv"_s));
  QCOMPARE(m_intake->state(), Intake::State::Showing);
  QCOMPARE(m_prober->asked().size(), 1);
  m_intake->cancelAdd();
  waitForShown(u"b.mkv"_s);
}

void TestIntake::filesWaitWhileOneIsAskedAbout() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->setAsking(true);
  QCOMPARE(m_intake->state(), Intake::State::Asking);
  m_intake->openFiles({u"/b.mkv"_s});
  // The job of the shown record was made; its panel is still on its way out.
  m_intake->cancelAdd();
  QCOMPARE(m_intake->state(), Intake::State::Asking);
  QCOMPARE(m_prober->asked().size(), 1);
  m_intake->setAsking(false);
  waitForShown(u"b.mkv"_s);
  QVERIFY(drained.isEmpty());
}

void TestIntake::filesWaitWhileAPanelIsUpOverNothing() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->setAsking(true);
  QVERIFY(!m_intake->isIdle());
  m_intake->openFiles({u"/a.mkv"_s});
  QVERIFY(m_prober->asked().isEmpty());
  m_intake->setAsking(false);
  waitForShown(u"a.mkv"_s);
  m_intake->setAsking(true);
  m_intake->setAsking(false);
  QCOMPARE(m_intake->state(), Intake::State::Showing);
  QVERIFY(drained.isEmpty());
  m_intake->cancelAdd();
  QCOMPARE(drained.size(), 1);
  m_intake->setAsking(true);
  m_intake->setAsking(false);
  QCOMPARE(drained.size(), 2);
}

void TestIntake::laterFilesComeBeforeEarlierOnes() {
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  m_intake->openFiles({u"/c.mkv"_s, u"/d.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  QCOMPARE(m_intake->importFiles(), QStringList({u"/b.mkv"_s, u"/d.mkv"_s, u"/c.mkv"_s}));
}

void TestIntake::foldersAndTextsDoNothing() {
  QSignalSpy changed(m_intake.get(), &Intake::changed);
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->openFiles({m_program->root(), u"/read.txt"_s, u"/film.avi"_s, QString()});
  QVERIFY(m_intake->isIdle());
  QVERIFY(changed.isEmpty());
  QVERIFY(drained.isEmpty());
  QVERIFY(m_intake->importSubtitleFiles().isEmpty());
}

void TestIntake::skippingGoesOnAndEndsInIdleness() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_intake->cancelAdd();
  QVERIFY(drained.isEmpty());
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->cancelAdd();
  QCOMPARE(m_intake->state(), Intake::State::Probing);
  waitForShown(u"b.mkv"_s);
  m_intake->cancelAdd();
  QCOMPARE(m_intake->state(), Intake::State::Idle);
  QCOMPARE(drained.size(), 1);
}

void TestIntake::skippingKeepsTheRecord() {
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  m_intake->cancelAdd();
  QVERIFY(m_intake->fileInfo().has_value());
  m_intake->clearFileInfo();
  QVERIFY(!m_intake->fileInfo().has_value());
}

void TestIntake::skippingWhileProbingDropsTheResult() {
  QSignalSpy probed(m_intake.get(), &Intake::probed);
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  m_intake->cancelAdd();
  m_prober->finishAll();
  waitForShown(u"b.mkv"_s);
  QCOMPARE(probed.size(), 1);
}

void TestIntake::settingsOfTheProbeAreReadEachTime() {
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"a.mkv"_s);
  ostrak::setDefaultInt(u"HEAACConvert"_s, 1);
  m_intake->cancelAdd();
  m_intake->openFiles({u"/b.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QCOMPARE(m_prober->heAACConvert(), QList<bool>({false, true}));
}

void TestIntake::intakeMayGoWhileAProbeRuns() {
  m_prober->hold();
  m_intake->openFiles({u"/a.mkv"_s});
  QTRY_COMPARE(m_prober->running(), 1);
  m_intake.reset();
  m_prober->finishAll();
  QTRY_COMPARE(m_prober->running(), 0);
  QCoreApplication::processEvents();
}

QTEST_GUILESS_MAIN(TestIntake)
#include "tst_intake.moc"
