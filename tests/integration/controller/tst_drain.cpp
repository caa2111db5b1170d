#include <signal.h>
#include <unistd.h>

#include <QtTest>

#include "ControllerProgram.h"
#include "Defaults.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

// From intake into the queue, out of it again, and the end of the program.
class TestDrain final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_p = std::make_unique<ControllerProgram>();
  }
  void cleanup() { m_p.reset(); }

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
  void quittingAsksOnlyWhileAJobConverts();
  void endRemovesEverythingAndLeavesNoOrphan();
  void endStartsNothing();
  void endWithoutCallingItLeavesNoOrphan();
  void endFlushesTheSettings();
  void quitComesWhenTheQueueIsDone();
  void quitWaitsForIntake();
  void quitDoesNotComeAfterAFailure();
  void quitDoesNotComeWhileANewJobRuns();
  void launchRepairsAndTells();
  void launchTellsAboutTheSpeedHint();

 private:
  std::unique_ptr<ControllerProgram> m_p;
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
  m_p->controller->pauseContinueClicked(true);
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

void TestDrain::quittingAsksOnlyWhileAJobConverts() {
  QVERIFY(m_p->controller->applicationShouldTerminate());
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2.mkv"_s);
  m_p->program.presenter().answer(ostrak::secondButton);
  QVERIFY(!m_p->controller->applicationShouldTerminate());
  m_p->program.presenter().answer(ostrak::firstButton);
  QVERIFY(m_p->controller->applicationShouldTerminate());
  QCOMPARE(m_p->program.presenter().presented.size(), 2);
  const ostrak::Alert &question = m_p->program.presenter().presented.at(0);
  QCOMPARE(question.title, u"Decant"_s);
  QCOMPARE(question.message, u"Conversion is in progresss. Are you sure you want to quit?"_s);
  QCOMPARE(question.buttons, QStringList({u"Quit"_s, u"Cancel"_s}));
  m_p->controller->pauseContinueClicked(true);
  QVERIFY(m_p->controller->applicationShouldTerminate());
  QCOMPARE(m_p->program.presenter().presented.size(), 2);
}

void TestDrain::endRemovesEverythingAndLeavesNoOrphan() {
  m_p->add(u"1.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  m_p->add(u"2slow.mkv"_s);
  m_p->add(u"3.mkv"_s);
  QTRY_VERIFY(QFileInfo(m_p->path(u"2slow.m4v"_s)).size() > 0);
  const auto pid = m_p->scenario.calls().constLast().value(u"pid"_s).toInt();
  QCOMPARE(::kill(pid, 0), 0);
  m_p->controller->applicationWillTerminate();
  QVERIFY(m_p->names().isEmpty());
  QVERIFY(::kill(pid, 0) != 0);
  QVERIFY(!QFile::exists(m_p->path(u"2slow.m4v"_s)));
  QVERIFY(QFile::exists(m_p->path(u"1.m4v"_s)));
  for (const QString &name : {u"1.mkv"_s, u"2slow.mkv"_s, u"3.mkv"_s})
    QVERIFY(QFile::exists(m_p->path(name)));
  QCOMPARE(m_p->sleepInhibitor.held(), 0);
}

void TestDrain::endStartsNothing() {
  // The running job goes first, with all others behind it.
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  for (int i = 2; i < 20; ++i)
    m_p->add(QString::number(i) + u".mkv"_s);
  QTRY_COMPARE(m_p->scenario.calls().size(), 1);
  m_p->controller->applicationWillTerminate();
  QCOMPARE(m_p->converted(), QStringList(u"1slow.mkv"_s));
}

void TestDrain::endWithoutCallingItLeavesNoOrphan() {
  m_p->add(u"1slow.mkv"_s);
  QTRY_VERIFY(QFileInfo(m_p->path(u"1slow.m4v"_s)).size() > 0);
  const auto pid = m_p->scenario.calls().constLast().value(u"pid"_s).toInt();
  m_p->controller.reset();
  QVERIFY(::kill(pid, 0) != 0);
  QVERIFY(!QFile::exists(m_p->path(u"1slow.m4v"_s)));
}

void TestDrain::endFlushesTheSettings() {
  ostrak::setDefaultInt(u"AACBitrate"_s, 3);
  m_p->controller->applicationWillTerminate();
  const ostrak::UserDefaults other(ostrak::tk->prefsPath(),
                                   ostrak::UserDefaults::Persistence::InMemory);
  QCOMPARE(other.storedValue(u"AACBitrate"_s).toInt(), 3);
}

void TestDrain::quitComesWhenTheQueueIsDone() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2slow.mkv"_s);
  QCOMPARE(m_p->quits, 0);
  m_p->letGo();
  QTRY_COMPARE(m_p->quits, 1);
  QCOMPARE(m_p->count(JobStateFinished), 2);
}

void TestDrain::quitWaitsForIntake() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->intake().openFiles({m_p->movie(u"shown.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  m_p->letGo();
  QTRY_COMPARE(m_p->notifier.posted.size(), 1);
  QCoreApplication::processEvents();
  QCOMPARE(m_p->quits, 0);
  m_p->intake().cancelAdd();
  QCOMPARE(m_p->quits, 1);
}

void TestDrain::quitDoesNotComeAfterAFailure() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1fail.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFailed), 1);
  m_p->add(u"2.mkv"_s);
  QTRY_COMPARE(m_p->notifier.posted.size(), 2);
  QCoreApplication::processEvents();
  QCOMPARE(m_p->quits, 0);
}

void TestDrain::quitDoesNotComeWhileANewJobRuns() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->intake().openFiles({m_p->movie(u"hang.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  m_p->letGo();
  QTRY_COMPARE(m_p->notifier.posted.size(), 1);
  // The wish to quit is waiting; what was shown becomes a job and runs instead.
  QVERIFY(m_p->controller->addToQueue());
  QCoreApplication::processEvents();
  QCOMPARE(m_p->count(JobStateConverting), 1);
  QCOMPARE(m_p->quits, 0);
}

void TestDrain::launchRepairsAndTells() {
  ostrak::setDefaultInt(u"ExternalSubtitleEncoding"_s, 1);
  ostrak::setDefaultInt(u"CustomUnknownHandling"_s, 2);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 5);
  ostrak::setDefaultInt(u"AC3SurroundBitrate"_s, 9);
  m_p->controller->applicationWillFinishLaunching();
  QCOMPARE(settingInt("ExternalSubtitleEncoding"), 0);
  QCOMPARE(settingInt("CustomUnknownHandling"), 1);
  QCOMPARE(settingInt("DefaultDestination"), 1);
  QCOMPARE(settingInt("HasUpgradedFromPre13"), 1);
  QVERIFY(m_p->program.presenter().presented.isEmpty());
  QTRY_COMPARE(m_p->program.presenter().presented.size(), 1);
  QCOMPARE(
      m_p->program.presenter().presented.at(0).message,
      u"The stored value \"9\" of \"AC3SurroundBitrate\" is out of range (allowed: 0 to 3); 1 is "
      "used."_s);
}

void TestDrain::launchTellsAboutTheSpeedHint() {
  QSignalSpy hint(m_p->controller.get(), &AppDelegate::speedHintDue);
  m_p->controller->applicationWillFinishLaunching();
  QVERIFY(hint.isEmpty());
  ostrak::setDefaultInt(u"WelcomeShown"_s, 0);
  ostrak::setDefaultInt(u"ostrak_"_s + ostrak::tk->appVersionString() + u"_usages"_s, 4);
  m_p->controller->applicationWillFinishLaunching();
  QCOMPARE(hint.size(), 1);
}

QTEST_GUILESS_MAIN(TestDrain)
#include "tst_drain.moc"
