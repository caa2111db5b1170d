#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "ControllerTest.h"
#include "Defaults.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

// From intake into the queue, out of it again, and the end of the program.
class TestDrain final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void autoAddMakesJobsWithoutAClick();
  void withoutAutoAddTheRecordIsShown();
  void addToQueueNeedsARecord();
  void addToQueueNeedsAFolderThatMayBeUsed();
  void chosenTrackAndSubtitleGoIntoTheJob();
  void chosenFolderIsUsed();
  void nothingStartsWhileFilesWait();
  void refusedLastFileStartsWhatWaits();
  void skippedLastFileStartsWhatWaits();
  void addingTwiceLosesNoFile_data();
  void addingTwiceLosesNoFile();
};

void TestDrain::autoAddMakesJobsWithoutAClick() {
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s), m_p->movie(u"b.mkv"_s), m_p->movie(u"c.mkv"_s)});
  QTRY_COMPARE(m_p->count(JobStateFinished), 3);
  QCOMPARE(m_p->names(), QStringList({u"c.mkv"_s, u"b.mkv"_s, u"a.mkv"_s}));
  QVERIFY(m_p->intake().isIdle());
  QVERIFY(!m_p->intake().fileInfo());
  for (const QString &name : {u"a.m4v"_s, u"b.m4v"_s, u"c.m4v"_s})
    QVERIFY(QFile::exists(m_p->path(name)));
}

void TestDrain::withoutAutoAddTheRecordIsShown() {
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QVERIFY(m_p->names().isEmpty());
  QCOMPARE(m_p->controller->addToQueue(), std::optional(AppDelegate::Admission::added));
  QCOMPARE(m_p->names(), QStringList(u"a.mkv"_s));
  QVERIFY(m_p->intake().isIdle());
  // The record is not shown any more.
  QCOMPARE(m_p->controller->addToQueue(), std::optional<AppDelegate::Admission>());
}

void TestDrain::addToQueueNeedsARecord() {
  QCOMPARE(m_p->controller->addToQueue(), std::optional<AppDelegate::Admission>());
  QVERIFY(!m_p->controller->makeJob(QUrl::fromLocalFile(m_p->path(u"out.m4v"_s))));
}

void TestDrain::addToQueueNeedsAFolderThatMayBeUsed() {
  AppServices services = m_p->services();
  services.destination = [](const MKVFileInfo &, const ClaimedNames &,
                            const DestinationAnswer &answer) { answer({}); };
  m_p->restart(services);
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->controller->addToQueue(), std::optional<AppDelegate::Admission>());
  QCOMPARE(m_p->intake().state(), Intake::State::Showing);
}

void TestDrain::chosenTrackAndSubtitleGoIntoTheJob() {
  pauseClick();
  m_p->intake().openFiles({m_p->movie(u"two-tracks.mkv"_s), m_p->movie(u"two-tracks.srt"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().audioTrackIndex(), quint64(1));
  m_p->intake().setAudioTrackIndex(0);
  QVERIFY(m_p->controller->addToQueue());
  const ConversionJob *job = m_p->queue().taskArray().at(0);
  QCOMPARE(job->audioTrackIndex(), quint64(0));
  QCOMPARE(job->fileInfo().subtitleFileURL, QUrl::fromLocalFile(m_p->path(u"two-tracks.srt"_s)));
  QCOMPARE(job->fileInfo().destinationURL, QUrl::fromLocalFile(m_p->path(u"two-tracks.m4v"_s)));
  QVERIFY(job->fastmode());
}

void TestDrain::chosenFolderIsUsed() {
  AppServices services = m_p->services();
  QVERIFY(QDir().mkpath(m_p->path(u"out"_s)));
  services.destination = fixedDestination({DestinationChoice::Kind::Folder, m_p->path(u"out"_s)});
  m_p->restart(services);
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  ostrak::setDefaultInt(u"DefaultExtension"_s, 0);
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s)});
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QVERIFY(QFile::exists(m_p->path(u"out/a.mp4"_s)));
}

void TestDrain::nothingStartsWhileFilesWait() {
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s), m_p->movie(u"b.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QVERIFY(m_p->controller->addToQueue());
  // One waits, so the job does too, though nothing runs; but not while that one is looked at.
  QCOMPARE(m_p->count(JobStateQueued), 1);
  QVERIFY(m_p->scenario.calls().isEmpty());
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"b.mkv"_s);
}

void TestDrain::refusedLastFileStartsWhatWaits() {
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  m_p->intake().openFiles(
      {m_p->movie(u"a.mkv"_s), m_p->movie(u"b.mkv"_s), m_p->movie(u"bad.mkv"_s)});
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  QCOMPARE(m_p->converted(), QStringList({u"b.mkv"_s, u"a.mkv"_s}));
}

void TestDrain::skippedLastFileStartsWhatWaits() {
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s), m_p->movie(u"b.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QVERIFY(m_p->controller->addToQueue());
  QCOMPARE(m_p->intake().state(), Intake::State::Probing);
  m_p->intake().cancelAdd();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
}

void TestDrain::addingTwiceLosesNoFile_data() {
  QTest::addColumn<bool>("secondIsAdmitted");
  QTest::newRow("refused twice") << false;
  QTest::newRow("refused, then added") << true;
}

// After a refusal intake is at the next file while the refused record can still be added.
void TestDrain::addingTwiceLosesNoFile() {
  QFETCH(const bool, secondIsAdmitted);
  AppServices services = m_p->services();
  QString folder = m_p->path(u"nowhere"_s);
  services.destination = [&folder](const MKVFileInfo &record, const ClaimedNames &claimed,
                                   const DestinationAnswer &answer) {
    fixedDestination({DestinationChoice::Kind::Folder, folder})(record, claimed, answer);
  };
  m_p->restart(services);
  m_p->intake().openFiles({m_p->movie(u"a.mkv"_s), m_p->movie(u"b.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->controller->addToQueue(), std::optional(AppDelegate::Admission::notWritable));
  QCOMPARE(m_p->intake().state(), Intake::State::Probing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"a.mkv"_s);
  if (secondIsAdmitted) folder = m_p->program.root();
  QCOMPARE(m_p->controller->addToQueue() == AppDelegate::Admission::added, secondIsAdmitted);
  QTRY_VERIFY(m_p->intake().state() != Intake::State::Probing);
  QCOMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"b.mkv"_s);
}

QTEST_GUILESS_MAIN(TestDrain)
#include "tst_drain.moc"
