#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTest>

#include "ControllerTest.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What a job reads is no other job's to write to, by whatever name.
class TestProtectedFiles final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void sourceAsDestinationIsRefused_data();
  void sourceAsDestinationIsRefused();
  void sourceOfAnotherJobIsRefused();
  void subtitleFileOfAnotherJobIsRefused_data();
  void subtitleFileOfAnotherJobIsRefused();
  void subtitleFileIsKeptWhereReplacingIsAgreed();
  void aMovieThatCameToTheNameIsSpared_data();
  void aMovieThatCameToTheNameIsSpared();

 private:
  // Queues a movie with the subtitle file of its name, whose path it returns.
  QString addWithSubtitles() {
    const QString subtitles = wholefile::made(m_p->path(u"1.srt"_s), "1\n");
    m_p->intake().openFiles({m_p->movie(u"1.mkv"_s), subtitles});
    const bool shown =
        QTest::qWaitFor([this] { return m_p->intake().state() == Intake::State::Showing; });
    const bool added = shown && m_p->controller->addToQueue() == AppDelegate::Admission::added;
    return added ? subtitles : QString();
  }
};

void TestProtectedFiles::sourceAsDestinationIsRefused_data() {
  QTest::addColumn<QString>("destination");
  QTest::newRow("itself") << u"film.mkv"_s;
  QTest::newRow("by a dot") << u"./film.mkv"_s;
  QTest::newRow("by a symbolic link") << u"symbolic.m4v"_s;
  QTest::newRow("by a hard link") << u"hard.m4v"_s;
}

void TestProtectedFiles::sourceAsDestinationIsRefused() {
  QFETCH(const QString, destination);
  const QString source = m_p->movie(u"film.mkv"_s);
  QVERIFY(QFile::link(source, m_p->path(u"symbolic.m4v"_s)));
  QCOMPARE(::link(QFile::encodeName(source).constData(),
                  QFile::encodeName(m_p->path(u"hard.m4v"_s)).constData()),
           0);
  QCOMPARE(admit(source, m_p->program.root() + u'/' + destination),
           AppDelegate::Admission::destinationIsSource);
  QTRY_COMPARE(told(),
               QStringList(u"You've tried to overwrite the source file with the target file. "
                           "Thats the worst idea ever."_s));
  QCOMPARE(m_p->program.presenter().presented.at(0).buttons, QStringList(u"D'oh"_s));
  QCOMPARE(QFileInfo(source).size(), 7);
}

void TestProtectedFiles::sourceOfAnotherJobIsRefused() {
  m_p->add(u"1slow.mkv"_s);
  const QString second = m_p->movie(u"2.mp4"_s);
  QCOMPARE(admit(second, m_p->path(u"out.m4v"_s)), AppDelegate::Admission::added);
  QCOMPARE(admit(m_p->movie(u"3.mkv"_s), second), AppDelegate::Admission::destinationIsSource);
  // Protected by its file and by its name, also after it was moved away.
  QVERIFY(QFile::rename(second, m_p->path(u"moved.mp4"_s)));
  QCOMPARE(admit(m_p->movie(u"3.mkv"_s), m_p->path(u"moved.mp4"_s)),
           AppDelegate::Admission::destinationIsSource);
  QCOMPARE(admit(m_p->movie(u"3.mkv"_s), second), AppDelegate::Admission::destinationIsSource);
  QCOMPARE(m_p->names(), QStringList({u"2.mp4"_s, u"1slow.mkv"_s}));
  // An alert that is still on its way would come to the next test.
  QTRY_VERIFY(!told().isEmpty());
}

void TestProtectedFiles::subtitleFileOfAnotherJobIsRefused_data() {
  QTest::addColumn<QString>("destination");
  QTest::newRow("itself") << u"1.srt"_s;
  QTest::newRow("by a symbolic link") << u"symbolic.m4v"_s;
  QTest::newRow("by a hard link") << u"hard.m4v"_s;
  QTest::newRow("moved away") << u"moved.srt"_s;
}

void TestProtectedFiles::subtitleFileOfAnotherJobIsRefused() {
  QFETCH(const QString, destination);
  pauseClick();
  const QString subtitles = addWithSubtitles();
  QVERIFY(!subtitles.isNull());
  QVERIFY(QFile::link(subtitles, m_p->path(u"symbolic.m4v"_s)));
  QCOMPARE(::link(QFile::encodeName(subtitles).constData(),
                  QFile::encodeName(m_p->path(u"hard.m4v"_s)).constData()),
           0);
  if (destination == u"moved.srt"_s) QVERIFY(QFile::rename(subtitles, m_p->path(destination)));
  QCOMPARE(admit(m_p->movie(u"2.mkv"_s), m_p->path(destination)),
           AppDelegate::Admission::destinationIsSource);
  // Its name is kept for it while it is away.
  QCOMPARE(admit(m_p->movie(u"3.mkv"_s), subtitles), AppDelegate::Admission::destinationIsSource);
  QCOMPARE(m_p->names(), QStringList(u"1.mkv"_s));
  QTRY_VERIFY(!told().isEmpty());
}

// The agreement was about the file that was there.
void TestProtectedFiles::subtitleFileIsKeptWhereReplacingIsAgreed() {
  pauseClick();
  auto job = m_p->job(m_p->movie(u"2.mkv"_s), m_p->movie(u"out.m4v"_s));
  ConversionJob &replacing = *job;
  replacing.setReplacesDestination(true);
  QCOMPARE(m_p->controller->addJob(std::move(job)), AppDelegate::Admission::added);
  const QString subtitles = addWithSubtitles();
  QVERIFY(!subtitles.isNull());
  QVERIFY(QFile::remove(m_p->path(u"out.m4v"_s)));
  QVERIFY(QFile::rename(subtitles, m_p->path(u"out.m4v"_s)));
  replacing.continue_();
  QTRY_COMPARE(replacing.state(), JobStateFinished);
  QCOMPARE(replacing.fileInfo().destinationURL.toLocalFile(), m_p->path(u"out-0.m4v"_s));
  QCOMPARE(QFileInfo(m_p->path(u"out.m4v"_s)).size(), 2);
}

void TestProtectedFiles::aMovieThatCameToTheNameIsSpared_data() {
  QTest::addColumn<bool>("there");
  QTest::newRow("it is there") << true;
  QTest::newRow("it is on a disk that comes and goes") << false;
}

// Of a job that was to replace nothing, nothing is lost by another name.
void TestProtectedFiles::aMovieThatCameToTheNameIsSpared() {
  QFETCH(const bool, there);
  const QString wanted = m_p->path(u"out.mp4"_s);
  pauseClick();
  QCOMPARE(admit(m_p->movie(u"1.mkv"_s), wanted), AppDelegate::Admission::added);
  m_p->intake().openFiles({m_p->movie(u"shown.mkv"_s), m_p->movie(u"out.mp4"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().importFiles(), QStringList(wanted));
  if (!there) QVERIFY(QFile::remove(wanted));
  m_p->queue().taskArray().first()->continue_();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QVERIFY(QFile::exists(m_p->path(u"out-0.mp4"_s)));
  QCOMPARE(QFileInfo(wanted).size(), there ? 7 : 0);
}

QTEST_GUILESS_MAIN(TestProtectedFiles)
#include "tst_protectedfiles.moc"
