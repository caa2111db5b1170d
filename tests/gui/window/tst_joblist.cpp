#include <QAbstractButton>
#include <QApplication>
#include <QColor>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QList>
#include <QMenu>
#include <QPalette>
#include <QPoint>
#include <QRect>
#include <QSet>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

#include "JobRows.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The buttons of the rows, the keys, the context menu, and how rows look.
class TestJobList final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void pauseAndContinue();
  void convertNow();
  void arrowReveals();
  void arrowWithShiftRevealsTheSource();
  void arrowExplainsAFailure();
  void removeButton();
  void removeTheRunningJob();
  void releasedElsewhereDoesNothing();
  void buttonsOfEachState();
  void mirrored();
  void failedInColourAndInWords();
  void toolTips();

 private:
  [[nodiscard]] JobRows list() { return JobRows(*m_b); }
};

void TestJobList::pauseAndContinue() {
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QCOMPARE(list().state(0), JobStateConverting);
  list().clickPauseContinue(0);
  QCOMPARE(list().state(0), JobStatePaused);
  list().clickPauseContinue(0);
  QCOMPARE(list().state(0), JobStateConverting);
  m_b->letGo();
  QTRY_COMPARE(list().state(0), JobStateFinished);
  QVERIFY(list().layout(0).pauseContinue.isEmpty());
}

void TestJobList::convertNow() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1slow.mkv"_s, u"2slow.mkv"_s}));
  list().clickPauseContinue(1);
  QCOMPARE(list().state(1), JobStateConverting);
  QCOMPARE(list().state(0), JobStateQueued);
}

void TestJobList::arrowReveals() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  list().clickArrow(1);
  QCOMPARE(m_b->revealer.revealed, QStringList{list().destination(1)});
}

void TestJobList::arrowWithShiftRevealsTheSource() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
  m_b->program.keyboard().shift = true;
  list().clickArrow(0);
  QCOMPARE(m_b->revealer.revealed, QStringList{m_b->path(u"1.mkv"_s)});
}

void TestJobList::arrowExplainsAFailure() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFailed), 1);
  m_b->presented().clear();
  m_b->program.presenter().answer(ostrak::secondButton);
  list().clickArrow(0);
  QTRY_COMPARE(m_b->presented().size(), 1);
  QVERIFY(m_b->presented().first().problemReport);
  QVERIFY(m_b->revealer.revealed.isEmpty());
}

void TestJobList::removeButton() {
  m_b->fill(3);
  list().clickRemove(1);
  QCOMPARE(m_b->names(), QStringList({u"Film 0.mkv"_s, u"Film 2.mkv"_s}));
}

void TestJobList::removeTheRunningJob() {
  QVERIFY(m_b->queueUp({u"hang.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(list().state(0), JobStateConverting);
  list().clickRemove(0);
  QCOMPARE(m_b->names(), QStringList{u"2.mkv"_s});
  QTRY_COMPARE(list().state(0), JobStateFinished);
}

void TestJobList::releasedElsewhereDoesNothing() {
  m_b->fill(2);
  QWidget &viewport = *list().view().viewport();
  QTest::mousePress(&viewport, Qt::LeftButton, {}, list().layout(0).remove.center());
  QTest::mouseRelease(&viewport, Qt::LeftButton, {}, list().layout(1).remove.center());
  QTest::mousePress(&viewport, Qt::LeftButton, {}, list().layout(0).remove.center());
  QTest::mouseRelease(&viewport, Qt::LeftButton, {}, list().layout(0).arrow.center());
  QTest::mouseClick(&viewport, Qt::RightButton, {}, list().layout(0).remove.center());
  QCOMPARE(m_b->names().size(), 2);
  QVERIFY(m_b->revealer.revealed.isEmpty());
}

void TestJobList::buttonsOfEachState() {
  const QRect row(0, 0, 500, JobRowLayout::rowHeight({}));
  for (const JobState state :
       {JobStateQueued, JobStateConverting, JobStatePaused, JobStateFinished, JobStateFailed}) {
    const bool ended = state == JobStateFinished || state == JobStateFailed;
    const bool runs = state == JobStateConverting || state == JobStatePaused;
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
      const JobRowLayout layout = JobRowLayout::of(row, {}, state, direction);
      QCOMPARE(layout.pauseContinue.isEmpty(), ended);
      QCOMPARE(layout.progress.isEmpty(), !runs);
      QList<QRect> pieces{layout.name, layout.arrow, layout.remove, layout.status};
      if (!ended) pieces.append(layout.pauseContinue);
      if (runs) pieces.append(layout.progress);
      for (qsizetype i = 0; i < pieces.size(); ++i) {
        QVERIFY(row.contains(pieces.at(i)));
        for (qsizetype k = i + 1; k < pieces.size(); ++k)
          QVERIFY(!pieces.at(i).intersects(pieces.at(k)));
      }
    }
  }
}

void TestJobList::mirrored() {
  m_b->window().setLayoutDirection(Qt::RightToLeft);
  m_b->fill(2);
  QVERIFY(list().layout(0).remove.center().x() < list().view().viewport()->width() / 2);
  list().clickRemove(0);
  QCOMPARE(m_b->names(), QStringList{u"Film 1.mkv"_s});
}

void TestJobList::failedInColourAndInWords() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFailed), 1);
  QVERIFY(
      list().index(0).data(JobListModel::StatusRole).toString().startsWith(u"Status: Failed"_s));
  list().view().clearSelection();
  for (const bool dark : {false, true}) {
    QPalette palette = list().view().palette();
    palette.setColor(QPalette::Base, dark ? QColor(0x20, 0x20, 0x20) : QColor(Qt::white));
    palette.setColor(QPalette::AlternateBase, palette.color(QPalette::Base));
    palette.setColor(QPalette::Text, dark ? QColor(Qt::white) : QColor(Qt::black));
    list().view().setPalette(palette);
    const QColor red = dark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x1a, 0x1a);
    QVERIFY(list().shows(0, red));
    QVERIFY(!list().shows(1, red));
  }
}

void TestJobList::toolTips() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
  QTRY_COMPARE(m_b->count(JobStateFailed), 1);
  const auto tipAt = [this](const QPoint &place) {
    QHelpEvent help(QEvent::ToolTip, place, list().view().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list().view().viewport(), &help);
    return QToolTip::text();
  };
  const QString explain = tipAt(list().layout(0).arrow.center());
  const QString reveal = tipAt(list().layout(1).arrow.center());
  const QString remove = tipAt(list().layout(1).remove.center());
  QCOMPARE(QSet<QString>({explain, reveal, remove, QString()}).size(), 4);
  QVERIFY(tipAt(list().layout(1).name.center()).contains(u"2.mkv"_s));
}

int main(int argc, char **argv) {
  return runWindowTest<TestJobList>(argc, argv);
}
#include "tst_joblist.moc"
