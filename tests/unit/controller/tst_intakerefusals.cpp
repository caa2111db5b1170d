#include <QList>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include "Exceptions.h"
#include "IntakeTest.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Files that cannot be taken, and the others that go on.
class TestIntakeRefusals final : public IntakeTest {
  Q_OBJECT

 private Q_SLOTS:
  void refusedFileIsNamedAndTheNextIsTaken();
  void refusedAlertsReachTheUser();
  void listenerMayOpenTheNextFileFromARefusal();
  void brokenReportNeverEndsTheBatch();
  void brokenReportsAreToldOneByOne();
};

void TestIntakeRefusals::refusedFileIsNamedAndTheNextIsTaken() {
  QSignalSpy refused(m_intake.get(), &Intake::refused);
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_prober->refuse = {u"/a.mkv"_s, u"/c.mkv"_s};
  m_prober->missTool = {u"/c.mkv"_s};
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s});
  waitForShown(u"b.mkv"_s);
  m_intake->cancelAdd();
  QTRY_COMPARE(drained.size(), 1);
  QCOMPARE(refused.size(), 2);
  QCOMPARE(refused.at(0).at(0).toString(), u"/a.mkv"_s);
  QCOMPARE(refused.at(0).at(2).toBool(), false);
  QCOMPARE(refused.at(1).at(0).toString(), u"/c.mkv"_s);
  QCOMPARE(refused.at(1).at(2).toBool(), true);
}

void TestIntakeRefusals::refusedAlertsReachTheUser() {
  m_prober->refuse = {u"/a.mkv"_s};
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  QCOMPARE(m_program->presenter().presented.at(0).message, u"Refused /a.mkv"_s);
}

void TestIntakeRefusals::listenerMayOpenTheNextFileFromARefusal() {
  QSignalSpy drained(m_intake.get(), &Intake::drained);
  m_prober->refuse = {u"/a.mkv"_s};
  connect(m_intake.get(), &Intake::refused, this, [this] {
    QVERIFY(m_intake->isIdle());
    m_intake->openFiles({u"/b.mkv"_s});
  });
  m_intake->openFiles({u"/a.mkv"_s});
  waitForShown(u"b.mkv"_s);
  QVERIFY(drained.isEmpty());
  QCOMPARE(m_prober->mostAtOnce(), 1);
}

void TestIntakeRefusals::brokenReportNeverEndsTheBatch() {
  QSignalSpy refused(m_intake.get(), &Intake::refused);
  m_prober->breakOn = {u"/a.mkv"_s};
  // The report is on the screen while the next file goes on: nothing waits for its answer.
  bool shownMeanwhile = false;
  m_program->presenter().setWhileShown([this, &shownMeanwhile](ostrak::Alert &) {
    shownMeanwhile =
        QTest::qWaitFor([this] { return m_intake->state() == Intake::State::Showing; });
  });
  m_program->presenter().answer(ostrak::secondButton);
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s});
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  waitForShown(u"b.mkv"_s);
  QVERIFY(shownMeanwhile);
  QCOMPARE(refused.size(), 1);
  const auto outcome = refused.at(0).at(1).value<ProbeOutcome>();
  QVERIFY(!outcome.record);
  QCOMPARE(outcome.alerts.size(), 1);
  QVERIFY(outcome.alerts.at(0).alert.problemReport);
  QVERIFY(outcome.alerts.at(0).alert.message.contains(u"no third word"_s));
  const ostrak::Alert &told = m_program->presenter().presented.at(0);
  QVERIFY(told.problemReport);
  QVERIFY(told.message.contains(u"a.mkv"_s));
  QVERIFY(told.message.contains(u"RangeException: no third word"_s));
  QVERIFY(m_program->opener().opened.isEmpty());
}

void TestIntakeRefusals::brokenReportsAreToldOneByOne() {
  m_prober->breakOn = {u"/a.mkv"_s, u"/b.mkv"_s};
  auto &presenter = m_program->presenter();
  QList<qsizetype> shownAtTheEnd;
  presenter.setWhileShown([this, &presenter, &shownAtTheEnd](ostrak::Alert &) {
    QVERIFY(QTest::qWaitFor([this] { return m_intake->state() == Intake::State::Showing; }));
    shownAtTheEnd.append(presenter.presented.size());
  });
  presenter.answer(ostrak::secondButton);
  presenter.answer(ostrak::secondButton);
  m_intake->openFiles({u"/a.mkv"_s, u"/b.mkv"_s, u"/c.mkv"_s});
  QTRY_COMPARE(shownAtTheEnd, (QList<qsizetype>{1, 2}));
  waitForShown(u"c.mkv"_s);
}

QTEST_GUILESS_MAIN(TestIntakeRefusals)
#include "tst_intakerefusals.moc"
