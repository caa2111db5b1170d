#include <QAction>
#include <QItemSelectionModel>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QStringList>
#include <QTest>
#include <QWidget>

#include "JobListModel.h"
#include "JobListView.h"
#include "JobRowLayout.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Several selected jobs at once, and the keys and buttons of the list.
class TestJobListSelection final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void removingAllStartsNone();
  void removingTheFirstTwoStartsTheThird();
  void pausingSeveralPausesWhatRuns();
  void continuingSeveralContinuesTheFirst();
  void longSelection();
  void changesOfOtherRowsAreNotLookedAt();
  void everyQuickClickCounts();
  void keysSelectWhereNothingIs_data();
  void keysSelectWhereNothingIs();
  void enteringByTabSelects();
  void enterReveals_data();
  void enterReveals();

 private:
  [[nodiscard]] JobListView &list() { return *m_b->find<JobListView>(u"jobList"_s); }
  [[nodiscard]] QAction &action(const QString &name) { return *m_b->find<QAction>(name); }
  void select(const QList<int> &rows) {
    list().clearSelection();
    for (const int row : rows)
      list().selectionModel()->select(list().model()->index(row, 0), QItemSelectionModel::Select);
    list().setFocus();
  }
  [[nodiscard]] bool threeWithTheFirstRunning() {
    return m_b->queueUp({u"1-slow.mkv"_s}) && m_b->queueUp({u"2-slow.mkv"_s, u"3-slow.mkv"_s}) &&
           states() == QList<int>({JobStateConverting, JobStateQueued, JobStateQueued});
  }
  [[nodiscard]] QList<int> states() {
    QList<int> found;
    for (const ConversionJob *job : m_b->queue().taskArray())
      found.append(job->state());
    return found;
  }
  [[nodiscard]] qsizetype starts() const { return m_b->sleepInhibitor.reasons().size(); }
};

void TestJobListSelection::removingAllStartsNone() {
  QVERIFY(threeWithTheFirstRunning());
  QCOMPARE(starts(), 1);
  list().setFocus();
  QVERIFY(m_b->trigger(u"selectAllAction"_s));
  QTest::keyClick(&list(), Qt::Key_Delete);
  QVERIFY(m_b->names().isEmpty());
  QCOMPARE(starts(), 1);
  QVERIFY(!action(u"jobRemoveAction"_s).isEnabled());
}

void TestJobListSelection::removingTheFirstTwoStartsTheThird() {
  QVERIFY(threeWithTheFirstRunning());
  select({0, 1});
  QTest::keyClick(&list(), Qt::Key_Delete);
  QCOMPARE(m_b->names(), QStringList{u"3-slow.mkv"_s});
  QCOMPARE(states(), QList<int>{JobStateConverting});
  QCOMPARE(starts(), 2);
}

void TestJobListSelection::pausingSeveralPausesWhatRuns() {
  QVERIFY(threeWithTheFirstRunning());
  select({0, 1, 2});
  QCOMPARE(action(u"jobPauseAction"_s).text(), u"Pause Con&version"_s);
  QTest::keyClick(&list(), Qt::Key_Space);
  QCOMPARE(states(), QList<int>({JobStatePaused, JobStateQueued, JobStateQueued}));
  QCOMPARE(starts(), 1);
}

void TestJobListSelection::continuingSeveralContinuesTheFirst() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1-slow.mkv"_s, u"2-slow.mkv"_s, u"3-slow.mkv"_s}));
  // In list order, whatever was selected first.
  select({2, 1});
  QCOMPARE(action(u"jobPauseAction"_s).text(), u"Con&vert Now"_s);
  QTest::keyClick(&list(), Qt::Key_Space);
  QCOMPARE(states(), QList<int>({JobStateQueued, JobStateConverting, JobStateQueued}));
  QCOMPARE(starts(), 1);
}

void TestJobListSelection::longSelection() {
  m_b->app().pauseContinueClicked(true);
  QStringList names;
  for (int i = 0; i < 150; ++i)
    names.append(u"%1.mkv"_s.arg(i));
  QVERIFY(m_b->queueUp(names));
  QVERIFY(m_b->trigger(u"selectAllAction"_s));
  // It is looked through once, after all that happens in this turn of the loop.
  QVERIFY(!action(u"jobRemoveAction"_s).isEnabled());
  QTRY_VERIFY(action(u"jobRemoveAction"_s).isEnabled());
  QVERIFY(!action(u"jobRevealAction"_s).isEnabled());
  QVERIFY(m_b->trigger(u"jobRemoveAction"_s));
  QVERIFY(m_b->names().isEmpty());
  QTRY_VERIFY(!action(u"jobRemoveAction"_s).isEnabled());
}

void TestJobListSelection::changesOfOtherRowsAreNotLookedAt() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1-slow.mkv"_s, u"2-slow.mkv"_s}));
  select({1});
  // What a look at the selection would put right.
  action(u"jobPauseAction"_s).setText(u"untouched"_s);
  m_b->queue().taskArray().first()->continue_();
  QCOMPARE(states().first(), static_cast<int>(JobStateConverting));
  QCOMPARE(action(u"jobPauseAction"_s).text(), u"untouched"_s);
  m_b->queue().taskArray().last()->continue_();
  QCOMPARE(action(u"jobPauseAction"_s).text(), u"Pause Con&version"_s);
}

void TestJobListSelection::everyQuickClickCounts() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1-slow.mkv"_s}));
  const QRect row = list().visualRect(list().model()->index(0, 0));
  const QPoint place =
      JobRowLayout::of(row, list().font(), JobStateQueued, Qt::LeftToRight).pauseContinue.center();
  QWidget *const viewport = list().viewport();
  QTest::mouseClick(viewport, Qt::LeftButton, {}, row.topLeft() + QPoint(8, 8));
  QTest::mouseClick(viewport, Qt::LeftButton, {}, place);
  QCOMPARE(states(), QList<int>{JobStateConverting});
  // The second press of a quick pair comes as a double click.
  QTest::mouseDClick(viewport, Qt::LeftButton, {}, place);
  QTest::mouseRelease(viewport, Qt::LeftButton, {}, place);
  QCOMPARE(states(), QList<int>{JobStatePaused});
}

void TestJobListSelection::keysSelectWhereNothingIs_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<bool>("selects");
  QTest::newRow("down") << int(Qt::Key_Down) << true;
  QTest::newRow("up") << int(Qt::Key_Up) << true;
  QTest::newRow("page down") << int(Qt::Key_PageDown) << true;
  QTest::newRow("delete") << int(Qt::Key_Delete) << true;
  QTest::newRow("return") << int(Qt::Key_Return) << true;
  QTest::newRow("space") << int(Qt::Key_Space) << true;
  QTest::newRow("shift") << int(Qt::Key_Shift) << false;
  QTest::newRow("escape") << int(Qt::Key_Escape) << false;
}

// The focus came to the list when it was empty.
void TestJobListSelection::keysSelectWhereNothingIs() {
  QFETCH(const int, key);
  QFETCH(const bool, selects);
  m_b->app().pauseContinueClicked(true);
  list().setFocus(Qt::OtherFocusReason);
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2.mkv"_s}));
  QVERIFY(list().hasFocus());
  QVERIFY(!list().selectionModel()->hasSelection());
  QTest::keyClick(&list(), static_cast<Qt::Key>(key));
  QCOMPARE(m_b->names().size(), 2);
  QCOMPARE(list().selectionModel()->isSelected(list().model()->index(0, 0)), selects);
  QCOMPARE(list().selectionModel()->selectedRows().size(), selects ? 1 : 0);
}

void TestJobListSelection::enteringByTabSelects() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s}));
  select({0});
  QTest::keyClick(&list(), Qt::Key_Delete);
  list().clearSelection();
  list().setCurrentIndex({});
  m_b->find<QWidget>(u"styleCustom"_s)->setFocus();
  list().setFocus(Qt::BacktabFocusReason);
  QVERIFY(list().selectionModel()->isSelected(list().model()->index(0, 0)));
}

void TestJobListSelection::enterReveals_data() {
  QTest::addColumn<int>("key");
  QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
  QTest::addColumn<QString>("shown");
  QTest::newRow("return") << int(Qt::Key_Return) << Qt::KeyboardModifiers() << u"Film.m4v"_s;
  QTest::newRow("keypad") << int(Qt::Key_Enter) << Qt::KeyboardModifiers(Qt::KeypadModifier)
                          << u"Film.m4v"_s;
  QTest::newRow("shift return") << int(Qt::Key_Return) << Qt::KeyboardModifiers(Qt::ShiftModifier)
                                << u"Film.mkv"_s;
  QTest::newRow("shift keypad") << int(Qt::Key_Enter) << (Qt::ShiftModifier | Qt::KeypadModifier)
                                << u"Film.mkv"_s;
}

void TestJobListSelection::enterReveals() {
  QFETCH(const int, key);
  QFETCH(const Qt::KeyboardModifiers, modifiers);
  QFETCH(const QString, shown);
  QVERIFY(m_b->queueUp({u"Film.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
  select({0});
  QTest::keyClick(&list(), static_cast<Qt::Key>(key), modifiers);
  QCOMPARE(m_b->revealer.revealed, QStringList{m_b->path(shown)});
}

int main(int argc, char **argv) {
  return runWindowTest<TestJobListSelection>(argc, argv);
}
#include "tst_joblistselection.moc"
