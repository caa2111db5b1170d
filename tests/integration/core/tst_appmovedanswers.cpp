#include <QDir>
#include <QTest>

#include "AppMovedTest.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// What the user, or the program, does about a bundle that was moved while that is told, and after.
class TestAppMovedAnswers final : public AppMovedTest {
  Q_OBJECT

 private Q_SLOTS:
  void userKeepsIt();
  void userWantsWhatIsHeld();
  void backWhileItIsTold();
  void userKeepsWhatIsNowhere();
  void movedOnceMoreWhileItIsTold();
  void handlerEndsWhileItIsTold();
};

void TestAppMovedAnswers::userKeepsIt() {
  m_mayQuit = false;
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  const QStringList asked{u"ask, one instance"_s};
  QTRY_COMPARE(m_notes, asked);
  // Away from where the user knows it to be, and back.
  move(u"elsewhere"_s, u"other"_s);
  move(u"other"_s, u"elsewhere"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  // Home again.
  move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  QCoreApplication::processEvents();
  QCOMPARE(presented().size(), 1);
  QCOMPARE(m_notes, asked);
  QCOMPARE(m_holds, 0);
  // And somewhere else.
  presented().clear();
  m_mayQuit = true;
  move(u"top/mid"_s, u"top/other"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.last(), u"quit"_s);
  QCOMPARE(m_notes.at(2), u"launch "_s + path(u"top/other/bundle/decant"_s));
}

void TestAppMovedAnswers::userWantsWhatIsHeld() {
  m_mayQuit = false;
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.size(), 1);
  m_handler->tellAgain();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s, u"ask, one instance"_s}));
  QCOMPARE(presented().size(), 2);
  QCOMPARE(presented().last().message, presented().first().message);
  QVERIFY(m_holds > 0);
  move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s);
  m_handler->tellAgain();
  QCOMPARE(m_holds, 0);
  QCOMPARE(m_notes.size(), 2);
}

// The user moves it back, and only then answers.
void TestAppMovedAnswers::backWhileItIsTold() {
  m_mayQuit = false;
  m_program->presenter().setWhileShown(
      [this](Alert &) { move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s); });
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  QTRY_COMPARE(m_notes.size(), 1);
  QCOMPARE(presented().size(), 1);
  QCOMPARE(m_holds, 0);
}

void TestAppMovedAnswers::userKeepsWhatIsNowhere() {
  m_mayQuit = false;
  QVERIFY(QDir(path(u"top/mid/bundle"_s)).removeRecursively());
  verifyTold();
  QTRY_COMPARE(m_notes, QStringList{u"ask, one instance"_s});
  make(u"top/mid/bundle"_s);
  QVERIFY(QDir(path(u"top"_s)).removeRecursively());
  QCoreApplication::processEvents();
  QVERIFY(!m_countdown->isRunning());
  QCOMPARE(presented().size(), 1);
}

void TestAppMovedAnswers::movedOnceMoreWhileItIsTold() {
  m_program->presenter().setWhileShown(
      [this](Alert &) { move(u"elsewhere/bundle"_s, u"elsewhere/again"_s); });
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.value(1), u"launch "_s + path(u"elsewhere/again/decant"_s));
  QCoreApplication::processEvents();
  QCOMPARE(presented().size(), 1);
  QCOMPARE(m_countdown->starts, 1);
}

void TestAppMovedAnswers::handlerEndsWhileItIsTold() {
  m_program->presenter().setWhileShown([this](Alert &) { m_handler.reset(); });
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  QCoreApplication::processEvents();
  QCOMPARE(m_notes, QStringList());
}

QTEST_GUILESS_MAIN(TestAppMovedAnswers)
#include "tst_appmovedanswers.moc"
