#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "Exceptions.h"
#include "RoadTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Folders of the menu: the way into them, and new ones.
class TestDestinationRoadFolders final : public RoadTest {
  Q_OBJECT

 private Q_SLOTS:
  void intoAFolder();
  void intoAFolderThatIsGone();
  void separatorsAndCommandChooseNothing_data();
  void separatorsAndCommandChooseNothing();
  void addsAFolder_data();
  void addsAFolder();
  void cancelledAdditionChangesNothing();
};

void TestDestinationRoadFolders::intoAFolder() {
  for (const QString &name : {u"one"_s, u"two"_s})
    QCOMPARE(m_folders->add(folder(name)), DestinationFolders::Addition::added);
  (void)file(u"two/Film.m4v"_s);
  choose(4, file(u"Film.mkv"_s));
  QCOMPARE(QFileInfo(chosen()).path(), m_program->path(u"two"_s));
  QVERIFY(!QFile::exists(chosen()));
  QCOMPARE(m_answers.first()->securityURL, QUrl::fromLocalFile(m_program->path(u"two"_s)));
  QVERIFY(!m_answers.first()->replaces);
}

void TestDestinationRoadFolders::intoAFolderThatIsGone() {
  QCOMPARE(m_folders->add(folder(u"gone"_s)), DestinationFolders::Addition::added);
  QVERIFY(QDir().rmdir(m_program->path(u"gone"_s)));
  const QString source = file(u"Film.mkv"_s);
  QVERIFY_THROWS_EXCEPTION(ostrak::Exception, choose(3, source));
  QVERIFY(m_answers.isEmpty());
}

void TestDestinationRoadFolders::separatorsAndCommandChooseNothing_data() {
  QTest::addColumn<int>("index");
  QTest::newRow("first separator") << 2;
  QTest::newRow("second separator") << 4;
  QTest::newRow("command") << 5;
  QTest::newRow("beyond") << 6;
}

void TestDestinationRoadFolders::separatorsAndCommandChooseNothing() {
  QFETCH(const int, index);
  QCOMPARE(m_folders->add(folder(u"one"_s)), DestinationFolders::Addition::added);
  choose(index, file(u"Film.mkv"_s));
  QVERIFY(choseNothing());
  QVERIFY(m_panels->asked.isEmpty());
}

void TestDestinationRoadFolders::addsAFolder_data() {
  QTest::addColumn<Panels::Over>("over");
  QTest::newRow("main window") << Panels::Over::MainWindow;
  QTest::newRow("preferences") << Panels::Over::Preferences;
}

void TestDestinationRoadFolders::addsAFolder() {
  QFETCH(const Panels::Over, over);
  QList<Panels::Over> added;
  connect(m_road.get(), &DestinationRoad::folderAdded, this,
          [&added](Panels::Over window) { added.append(window); });
  QSignalSpy refused(m_road.get(), &DestinationRoad::duplicateRefused);
  m_road->chooseNewDestination(over);
  QCOMPARE(m_panels->asked.last().over, over);
  QVERIFY(m_panels->reply(folder(u"one"_s)));
  QCOMPARE(added, QList{over});
  m_road->chooseNewDestination(over);
  QVERIFY(m_panels->reply(m_program->path(u"one"_s)));
  QCOMPARE(refused.size(), 1);
  QCOMPARE(added.size(), 1);
  QTRY_COMPARE(told().size(), 1);
  QCOMPARE(told().first().message,
           u"This destination is already bookmarked. You can not add it again."_s);
  QCOMPARE(told().first().buttons, QStringList{u"D'oh"_s});
}

void TestDestinationRoadFolders::cancelledAdditionChangesNothing() {
  QSignalSpy changed(m_folders.get(), &DestinationFolders::changed);
  m_road->chooseNewDestination(Panels::Over::MainWindow);
  QVERIFY(m_panels->reply({}));
  QCOMPARE(changed.size(), 0);
  QVERIFY(m_folders->names().isEmpty());
}

QTEST_GUILESS_MAIN(TestDestinationRoadFolders)
#include "tst_destinationroadfolders.moc"
