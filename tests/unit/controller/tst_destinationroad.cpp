#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "RoadTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// From an entry of the destination menu to the output's file.
class TestDestinationRoad final : public RoadTest {
  Q_OBJECT

 private Q_SLOTS:
  void asksEachTime();
  void replacesWhatTheUserAgreedTo();
  void leavesWhatAJobHasClaimed();
  void cancelledPanelChoosesNothing();
  void neverOverwritesASource_data();
  void neverOverwritesASource();
  void nextToSourceAsksForTheFolderOnce();
  void nextToSourceOutsideASandbox();
  void nextToSourceWithoutAnAnswer();
  void nextToSourceInAnotherFolder();
  void nextToSourceInABookmarkedFolder();
};

void TestDestinationRoad::asksEachTime() {
  const QString source = file(u"in/Film.mkv"_s);
  choose(0, source);
  QVERIFY(m_answers.isEmpty());
  QCOMPARE(m_panels->asked.size(), 1);
  const FakePanels::Asked &asked = m_panels->asked.first();
  QCOMPARE(asked.what, u"target"_s);
  QCOMPARE(asked.folder, m_program->path(u"in"_s));
  QCOMPARE(asked.name, u"Film.m4v"_s);
  QCOMPARE(asked.extension, u"m4v"_s);
  QVERIFY(m_panels->reply(m_program->path(u"out.m4v"_s)));
  QCOMPARE(chosen(), m_program->path(u"out.m4v"_s));
  QVERIFY(m_answers.first()->replaces);
  QVERIFY(m_answers.first()->securityURL.isEmpty());
}

void TestDestinationRoad::replacesWhatTheUserAgreedTo() {
  const QString there = file(u"out.m4v"_s);
  choose(0, file(u"Film.mkv"_s));
  QVERIFY(m_panels->reply(there));
  QCOMPARE(chosen(), there);
  // That is for whoever makes a job of it.
  QVERIFY(QFile::exists(there));
}

void TestDestinationRoad::leavesWhatAJobHasClaimed() {
  const QString there = file(u"out.m4v"_s);
  m_claimed->claim(there, file(u"Other.mkv"_s));
  choose(0, file(u"Film.mkv"_s));
  QVERIFY(m_panels->reply(there));
  QCOMPARE(chosen(), there);
  QVERIFY(QFile::exists(there));
}

void TestDestinationRoad::cancelledPanelChoosesNothing() {
  choose(0, file(u"Film.mkv"_s));
  QVERIFY(m_panels->reply({}));
  QVERIFY(choseNothing());
  QVERIFY(told().isEmpty());
}

void TestDestinationRoad::neverOverwritesASource_data() {
  QTest::addColumn<QString>("target");
  QTest::newRow("itself") << u"Film.mkv"_s;
  QTest::newRow("by another path") << u"in/../Film.mkv"_s;
  QTest::newRow("by a link") << u"link.m4v"_s;
  QTest::newRow("by a hard link") << u"hard.m4v"_s;
  QTest::newRow("its subtitles") << u"Film.srt"_s;
  QTest::newRow("another job's") << u"Other.mkv"_s;
}

void TestDestinationRoad::neverOverwritesASource() {
  QFETCH(const QString, target);
  (void)folder(u"in"_s);
  const QString source = file(u"Film.mkv"_s);
  const QString subtitle = file(u"Film.srt"_s);
  const QString other = file(u"Other.mkv"_s);
  m_claimed->claim(m_program->path(u"Other.m4v"_s), other);
  QVERIFY(QFile::link(source, m_program->path(u"link.m4v"_s)));
  QCOMPARE(::link(QFile::encodeName(source).constData(),
                  QFile::encodeName(m_program->path(u"hard.m4v"_s)).constData()),
           0);
  choose(0, source, subtitle);
  QVERIFY(m_panels->reply(m_program->path(target)));
  QVERIFY(choseNothing());
  QVERIFY(told().isEmpty());
  QTRY_COMPARE(told().size(), 1);
  QCOMPARE(told().first().title, u"Decant"_s);
  QCOMPARE(told().first().message,
           u"You've tried to overwrite the source file with the target "
           "file. Thats the worst idea ever."_s);
  QCOMPARE(told().first().buttons, QStringList{u"D'oh"_s});
  for (const QString &kept : {source, subtitle, other, m_program->path(u"hard.m4v"_s)})
    QVERIFY(QFile::exists(kept));
}

void TestDestinationRoad::nextToSourceAsksForTheFolderOnce() {
  const QString source = file(u"in/Film.mkv"_s);
  choose(1, source);
  QVERIFY(m_answers.isEmpty());
  QTRY_COMPARE(m_panels->asked.size(), 1);
  QCOMPARE(m_panels->asked.first().what, u"folder"_s);
  QCOMPARE(m_panels->asked.first().over, Panels::Over::MainWindow);
  QCOMPARE(told().size(), 1);
  QCOMPARE(told().first().title, u"Decant"_s);
  QCOMPARE(told().first().message,
           u"You've chosen the 'Next to' default destination for converted MP4 files. Since "
           "Apple's SandBox limits access to your files you have to open the folder that contains "
           "all MKV files that you want to convert"_s);
  QCOMPARE(told().first().buttons, QStringList{u"OK"_s});
  QVERIFY(m_panels->reply(m_program->path(u"in"_s)));
  QCOMPARE(chosen(), m_program->path(u"in/Film.m4v"_s));
  QVERIFY(m_answers.first()->securityURL.isEmpty());
  QVERIFY(!m_answers.first()->replaces);
  m_answers.clear();
  choose(1, file(u"in/Next.mkv"_s));
  QCOMPARE(chosen(), m_program->path(u"in/Next.m4v"_s));
  QCOMPARE(m_panels->asked.size(), 1);
}

void TestDestinationRoad::nextToSourceOutsideASandbox() {
  make(false);
  const QString source = file(u"Film.mkv"_s);
  (void)file(u"Film.m4v"_s);
  choose(1, source);
  QVERIFY(!chosen().isEmpty());
  QVERIFY(chosen() != m_program->path(u"Film.m4v"_s));
  QVERIFY(!QFile::exists(chosen()));
  QCOMPARE(QFileInfo(chosen()).path(), m_program->root());
  QVERIFY(m_panels->asked.isEmpty());
}

void TestDestinationRoad::nextToSourceWithoutAnAnswer() {
  choose(1, file(u"Film.mkv"_s));
  QTRY_COMPARE(m_panels->asked.size(), 1);
  QVERIFY(m_panels->reply({}));
  QVERIFY(choseNothing());
  QCOMPARE(told().size(), 1);
}

void TestDestinationRoad::nextToSourceInAnotherFolder() {
  choose(1, file(u"in/Film.mkv"_s));
  QTRY_COMPARE(m_panels->asked.size(), 1);
  QVERIFY(m_panels->reply(folder(u"elsewhere"_s)));
  QVERIFY(choseNothing());
  QTRY_COMPARE(told().size(), 2);
  QCOMPARE(told().last().message, u"You did not seem to select a folder that contains your MKV."_s);
  QCOMPARE(told().last().buttons, QStringList{u"Cancel"_s});
}

void TestDestinationRoad::nextToSourceInABookmarkedFolder() {
  QCOMPARE(m_folders->add(folder(u"kept"_s)), DestinationFolders::Addition::added);
  make(true);
  m_folders->checkStored();
  choose(1, file(u"kept/below/Film.mkv"_s));
  QCOMPARE(chosen(), m_program->path(u"kept/below/Film.m4v"_s));
  QCOMPARE(m_answers.first()->securityURL, QUrl::fromLocalFile(m_program->path(u"kept"_s)));
  QCOMPARE(m_sandbox->open, 1);
  QVERIFY(m_panels->asked.isEmpty());
}

QTEST_GUILESS_MAIN(TestDestinationRoad)
#include "tst_destinationroad.moc"
