#include <QtTest>
#include <QtWidgets>

#include "JobRows.h"
#include "WindowTestMain.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The buttons of the rows, the keys, the context menu, and how rows look.
class TestJobList final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    failOnWindowWarning();
    m_b = std::make_unique<WindowBench>();
    QVERIFY(m_b->open());
  }
  void cleanup() { m_b.reset(); }

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
  void keys();
  void deleteRemovesTheSelection();
  void keysNeedTheList();
  void contextMenu();
  void actionsFollowTheSelection();
  void failedInColourAndInWords();
  void toolTips();

 private:
  [[nodiscard]] JobRows list() { return JobRows(*m_b); }
  [[nodiscard]] QString destination(int row) {
    return m_b->queue().taskArray().at(row)->fileInfo().destinationURL.toLocalFile();
  }
  [[nodiscard]] JobState state(int row) { return m_b->queue().taskArray().at(row)->state(); }
  [[nodiscard]] QAction &action(const QString &name) { return *m_b->find<QAction>(name); }
  [[nodiscard]] bool shows(int row, const QColor &color) {
    QImage image(list().view().viewport()->size(), QImage::Format_RGB32);
    list().view().viewport()->render(&image);
    const QRect place = list().layout(row).status;
    for (int y = place.top(); y <= place.bottom(); ++y)
      for (int x = place.left(); x <= qMin(place.right(), image.width() - 1); ++x)
        if (image.pixelColor(x, y) == color) return true;
    return false;
  }
  std::unique_ptr<WindowBench> m_b;
};

void TestJobList::pauseAndContinue() {
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  QCOMPARE(state(0), JobStateConverting);
  list().clickPauseContinue(0);
  QCOMPARE(state(0), JobStatePaused);
  list().clickPauseContinue(0);
  QCOMPARE(state(0), JobStateConverting);
  m_b->letGo();
  QTRY_COMPARE(state(0), JobStateFinished);
  QVERIFY(list().layout(0).pauseContinue.isEmpty());
}

void TestJobList::convertNow() {
  m_b->app().pauseContinueClicked(true);
  QVERIFY(m_b->queueUp({u"1slow.mkv"_s, u"2slow.mkv"_s}));
  list().clickPauseContinue(1);
  QCOMPARE(state(1), JobStateConverting);
  QCOMPARE(state(0), JobStateQueued);
}

void TestJobList::arrowReveals() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  list().clickArrow(1);
  QCOMPARE(m_b->revealer.revealed, QStringList{destination(1)});
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
  QTRY_COMPARE(state(0), JobStateConverting);
  list().clickRemove(0);
  QCOMPARE(m_b->names(), QStringList{u"2.mkv"_s});
  QTRY_COMPARE(state(0), JobStateFinished);
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

void TestJobList::keys() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2slow.mkv"_s}));
  QTRY_COMPARE(state(1), JobStateConverting);
  list().view().setFocus();
  list().select(0);
  list().press(Qt::Key_Return);
  QCOMPARE(m_b->revealer.revealed, QStringList{destination(0)});
  list().press(Qt::Key_Return, Qt::ShiftModifier);
  QCOMPARE(m_b->revealer.revealed.last(), m_b->path(u"1.mkv"_s));
  list().press(Qt::Key_Down);
  QCOMPARE(list().selected(), QList{1});
  list().press(Qt::Key_Space);
  QCOMPARE(state(1), JobStatePaused);
  list().press(Qt::Key_Space);
  QCOMPARE(state(1), JobStateConverting);
}

void TestJobList::deleteRemovesTheSelection() {
  m_b->fill(5);
  list().view().setFocus();
  list().select(1);
  list().select(3, Qt::ControlModifier);
  QCOMPARE(list().selected(), QList({1, 3}));
  list().press(Qt::Key_Delete);
  QCOMPARE(m_b->names(), QStringList({u"Film 0.mkv"_s, u"Film 2.mkv"_s, u"Film 4.mkv"_s}));
  list().select(0);
  list().select(2, Qt::ShiftModifier);
  QCOMPARE(list().selected(), QList({0, 1, 2}));
  list().press(Qt::Key_A, Qt::ControlModifier);
  list().press(Qt::Key_Delete);
  QVERIFY(m_b->names().isEmpty());
}

void TestJobList::keysNeedTheList() {
  m_b->fill(2);
  list().select(0);
  auto *other = m_b->find<QAbstractButton>(u"styleCustom"_s);
  other->setFocus();
  QTest::keyClick(other, Qt::Key_Delete);
  QCOMPARE(m_b->names().size(), 2);
}

void TestJobList::contextMenu() {
  m_b->fill(2);
  const auto openAt = [this](const QPoint &place, const QString &choice) {
    QStringList texts;
    QTimer::singleShot(0, this, [&] {
      auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
      if (!menu) return;
      for (QAction *each : menu->actions()) {
        if (!each->isSeparator()) texts.append(each->objectName());
        if (each->objectName() == choice) each->trigger();
      }
      menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            list().view().viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list().view().viewport(), &event);
    QCoreApplication::processEvents();
    return texts;
  };
  list().select(1);
  QCOMPARE(openAt(list().layout(1).name.center(), u"jobRemoveAction"_s),
           QStringList({u"jobPauseAction"_s, u"jobRevealAction"_s, u"jobRevealSourceAction"_s,
                        u"jobRemoveAction"_s}));
  QCOMPARE(m_b->names(), QStringList{u"Film 0.mkv"_s});
  // Nothing below the last row to act on.
  list().view().clearSelection();
  QVERIFY(openAt(list().view().viewport()->rect().bottomLeft() - QPoint(-5, 5), {}).isEmpty());
}

void TestJobList::actionsFollowTheSelection() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished) + m_b->count(JobStateFailed), 2);
  QVERIFY(m_b->queueUp({u"3slow.mkv"_s}));
  QVERIFY(m_b->queueUp({u"4slow.mkv"_s}));
  QCOMPARE(state(2), JobStateConverting);
  const auto enabled = [this] {
    QStringList names;
    for (const QString &name : {u"jobPauseAction"_s, u"jobRevealAction"_s,
                                u"jobRevealSourceAction"_s, u"jobRemoveAction"_s})
      if (action(name).isEnabled()) names.append(name.mid(3).chopped(6));
    return names;
  };
  list().view().clearSelection();
  QCOMPARE(enabled(), QStringList());
  list().select(0);
  QCOMPARE(enabled(), QStringList({u"Reveal"_s, u"RevealSource"_s, u"Remove"_s}));
  QVERIFY(action(u"jobRevealAction"_s).text().contains(u"Explain"_s));
  list().select(1);
  QCOMPARE(enabled(), QStringList({u"Reveal"_s, u"RevealSource"_s, u"Remove"_s}));
  QVERIFY(!action(u"jobRevealAction"_s).text().contains(u"Explain"_s));
  list().select(2);
  QCOMPARE(enabled(), QStringList({u"Pause"_s, u"Reveal"_s, u"RevealSource"_s, u"Remove"_s}));
  const QString pause = action(u"jobPauseAction"_s).text();
  list().select(3);
  QVERIFY(enabled().contains(u"Pause"_s));
  QVERIFY(action(u"jobPauseAction"_s).text() != pause);
  list().select(0, Qt::ControlModifier);
  QCOMPARE(enabled(), QStringList({u"Pause"_s, u"Remove"_s}));
  list().select(2);
  m_b->letGo();
  QTRY_COMPARE(state(2), JobStateFinished);
  QTRY_COMPARE(enabled(), QStringList({u"Reveal"_s, u"RevealSource"_s, u"Remove"_s}));
}

void TestJobList::failedInColourAndInWords() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
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
    QVERIFY(shows(0, red));
    QVERIFY(!shows(1, red));
  }
}

void TestJobList::toolTips() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 1);
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
