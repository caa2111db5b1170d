#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QList>
#include <QMenu>
#include <QPoint>
#include <QRect>
#include <QStringList>
#include <QTest>
#include <QTimer>

#include "JobRows.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// The keys, the context menu, and the actions that follow the selection.
class TestJobListKeys final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void keys();
  void deleteRemovesTheSelection();
  void keysNeedTheList();
  void contextMenu();
  void actionsFollowTheSelection();

 private:
  [[nodiscard]] JobRows list() { return JobRows(*m_b); }
  [[nodiscard]] QAction &action(const QString &name) { return *m_b->find<QAction>(name); }
};

void TestJobListKeys::keys() {
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2slow.mkv"_s}));
  QTRY_COMPARE(list().state(1), JobStateConverting);
  list().view().setFocus();
  list().select(0);
  list().press(Qt::Key_Return);
  QCOMPARE(m_b->revealer.revealed, QStringList{list().destination(0)});
  list().press(Qt::Key_Return, Qt::ShiftModifier);
  QCOMPARE(m_b->revealer.revealed.last(), m_b->path(u"1.mkv"_s));
  list().press(Qt::Key_Down);
  QCOMPARE(list().selected(), QList{1});
  list().press(Qt::Key_Space);
  QCOMPARE(list().state(1), JobStatePaused);
  list().press(Qt::Key_Space);
  QCOMPARE(list().state(1), JobStateConverting);
}

void TestJobListKeys::deleteRemovesTheSelection() {
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

void TestJobListKeys::keysNeedTheList() {
  m_b->fill(2);
  list().select(0);
  auto *other = m_b->find<QAbstractButton>(u"styleCustom"_s);
  other->setFocus();
  QTest::keyClick(other, Qt::Key_Delete);
  QCOMPARE(m_b->names().size(), 2);
}

void TestJobListKeys::contextMenu() {
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

void TestJobListKeys::actionsFollowTheSelection() {
  QVERIFY(m_b->queueUp({u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished) + m_b->count(JobStateFailed), 2);
  QVERIFY(m_b->queueUp({u"3slow.mkv"_s}));
  QVERIFY(m_b->queueUp({u"4slow.mkv"_s}));
  QCOMPARE(list().state(2), JobStateConverting);
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
  QTRY_COMPARE(list().state(2), JobStateFinished);
  QTRY_COMPARE(enabled(), QStringList({u"Reveal"_s, u"RevealSource"_s, u"Remove"_s}));
}

int main(int argc, char **argv) {
  return runWindowTest<TestJobListKeys>(argc, argv);
}
#include "tst_joblistkeys.moc"
