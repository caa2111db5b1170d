#include <QDir>
#include <QFile>
#include <QTest>

#include "AppMovedTest.h"
#include "SmallDisk.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// A bundle that is really moved, told, and started anew where it is.
class TestAppMoved final : public AppMovedTest {
  Q_OBJECT

 private Q_SLOTS:
  void moved_data();
  void moved();
  void changesInsideAndBeside();
  void movedBackInTime();
  void gone_data();
  void gone();
  void toAnotherVolume();
  void newInstanceDoesNotStart();
  void nothingToWatch();
};

void TestAppMoved::moved_data() {
  QTest::addColumn<QString>("from");
  QTest::addColumn<QString>("to");
  QTest::addColumn<QString>("place");
  const auto row = [](const char *name, const QString &from, const QString &to,
                      const QString &place) { QTest::newRow(name) << from << to << place; };
  const QString bundle = u"top/mid/bundle"_s;
  row("renamed", bundle, u"top/mid/other"_s, u"top/mid/other"_s);
  row("moved", bundle, u"elsewhere/bundle"_s, u"elsewhere/bundle"_s);
  row("deeper", bundle, u"top/mid/sub/a b ä"_s, u"top/mid/sub/a b ä"_s);
  row("named as if deleted", bundle, u"top/mid/bundle (deleted)"_s, u"top/mid/bundle (deleted)"_s);
  row("parent renamed", u"top/mid"_s, u"top/other"_s, u"top/other/bundle"_s);
  row("parent moved", u"top/mid"_s, u"elsewhere/mid"_s, u"elsewhere/mid/bundle"_s);
  row("grandparent renamed", u"top"_s, u"other"_s, u"other/mid/bundle"_s);
}

void TestAppMoved::moved() {
  QFETCH(const QString, from);
  QFETCH(const QString, to);
  QFETCH(const QString, place);
  make(u"top/mid/sub"_s);
  move(from, to);
  verifyTold();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s,
                                     u"launch "_s + path(place) + u"/decant"_s, u"quit"_s}));
  QCOMPARE(presented().size(), 1);
}

void TestAppMoved::changesInsideAndBeside() {
  write(u"top/mid/bundle/decant"_s);
  write(u"top/mid/bundle/new"_s);
  move(u"top/mid/bundle/new"_s, u"top/mid/bundle/resources/new"_s);
  QVERIFY(QDir(path(u"top/mid/bundle/resources"_s)).removeRecursively());
  make(u"top/mid/bundle/resources/sub"_s);
  QVERIFY(QFile::setPermissions(path(u"top/mid/bundle/decant"_s), QFile::ReadOwner));
  make(u"top/mid/bundle2"_s);
  move(u"top/mid/bundle2"_s, u"top/bundle"_s);
  write(u"top/file"_s);
  move(u"elsewhere"_s, u"top/elsewhere"_s);
  // All of it has been told by now.
  QCoreApplication::processEvents();
  QCOMPARE(m_countdown->starts, 0);
  move(u"top/mid/bundle"_s, u"bundle3"_s);
  QCoreApplication::processEvents();
  QCOMPARE(m_countdown->starts, 1);
}

void TestAppMoved::movedBackInTime() {
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  move(u"elsewhere/bundle"_s, u"top/mid/bundle"_s);
  m_countdown->elapse();
  move(u"top"_s, u"other"_s);
  move(u"other"_s, u"top"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  QCoreApplication::processEvents();
  QCOMPARE(presented().size(), 0);
  // From other folders of the same names it is noticed, too.
  move(u"top"_s, u"old"_s);
  make(u"top/mid"_s);
  move(u"old/mid/bundle"_s, u"top/mid/bundle"_s);
  QTRY_VERIFY(m_countdown->isRunning());
  m_countdown->elapse();
  move(u"top/mid"_s, u"top/moved"_s);
  verifyTold();
  QTRY_COMPARE(m_notes.value(1), u"launch "_s + path(u"top/moved/bundle/decant"_s));
}

void TestAppMoved::gone_data() {
  QTest::addColumn<bool>("replaced");
  QTest::newRow("deleted") << false;
  QTest::newRow("another one in its place") << true;
}

void TestAppMoved::gone() {
  QFETCH(const bool, replaced);
  QVERIFY(QDir(path(u"top/mid/bundle"_s)).removeRecursively());
  if (replaced) {
    make(u"top/mid/bundle"_s);
    write(u"top/mid/bundle/decant"_s);
  }
  verifyTold();
  verifyCouldNotRestart();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s, u"quit"_s}));
}

void TestAppMoved::toAnotherVolume() {
  make(u"disk"_s);
  const SmallDisk disk(path(u"disk"_s));
  if (!disk.isThere()) qInfo("no file system may be mounted here: a plain folder takes its place");
  // As a move between volumes is done.
  make(u"disk/bundle"_s);
  QVERIFY(QFile::copy(path(u"top/mid/bundle/decant"_s), path(u"disk/bundle/decant"_s)));
  QVERIFY(QDir(path(u"top/mid/bundle"_s)).removeRecursively());
  verifyTold();
  verifyCouldNotRestart();
  QTRY_COMPARE(m_notes, (QStringList{u"ask, one instance"_s, u"quit"_s}));
}

void TestAppMoved::newInstanceDoesNotStart() {
  m_starts = false;
  move(u"top/mid/bundle"_s, u"elsewhere/bundle"_s);
  verifyTold();
  verifyCouldNotRestart();
  QTRY_COMPARE(m_notes,
               (QStringList{u"ask, one instance"_s,
                            u"launch "_s + path(u"elsewhere/bundle/decant"_s), u"quit"_s}));
}

void TestAppMoved::nothingToWatch() {
  start(path(u"missing/bundle/decant"_s));
  make(u"missing/bundle"_s);
  move(u"missing"_s, u"other"_s);
  QCoreApplication::processEvents();
  QCOMPARE(m_countdown->starts, 0);
  QCOMPARE(m_program->logged(), QStringList());
}

QTEST_GUILESS_MAIN(TestAppMoved)
#include "tst_appmoved.moc"
