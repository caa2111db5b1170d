#include <unistd.h>

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include "ConversionTool.h"
#include "Exceptions.h"
#include "JobBench.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Starts that meet an obstacle.
class TestJobStart final : public QObject {
  Q_OBJECT

 private:
  // What holds for every start that did not launch.
  static void verifyNothingHappened(JobBench &bench) {
    QVERIFY(bench.scenario.calls().isEmpty());
    QCOMPARE(bench.inhibitor.held(), 0);
    QCOMPARE(bench.inhibitor.reasons().size(), 1);
    QVERIFY(bench.progressFiles().isEmpty());
    QVERIFY(bench.notifier.posted.isEmpty());
    QVERIFY(!bench.controller.calls.contains(u"started"_s));
  }

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void theSourceIsGone() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    QFile::remove(bench.program.path(u"in/movie.mkv"_s));
    QCOMPARE(job.start(), StartOutcome::sourceRemoved);
    // Nobody was asked below the handler.
    QVERIFY(bench.program.presenter().presented.isEmpty());
    QCOMPARE(job.state(), JobStateFailed);
    QVERIFY(job.finishedError());
    QCOMPARE(job.jobOutput(), u"USER_REMOVED"_s);
    verifyNothingHappened(bench);
    QVERIFY(bench.outputs().isEmpty());
    const QString text =
        u"It seems you've removed the file movie.mkv or unmounted it's volume so conversion can't "
        u"proceed."_s;
    QCOMPARE(bench.alertMessages(), QStringList{text});
    const ostrak::Alert alert = bench.program.presenter().presented.first();
    QCOMPARE(alert.title, bench.program.library().appName());
    QCOMPARE(alert.buttons, QStringList{u"OK"_s});
    QCOMPARE(alert.subject, bench.program.path(u"in/movie.mkv"_s));
    QCOMPARE(job.diagnosis().kind, FailureKind::sourceRemoved);
  }

  void theToolIsUnusable_data() {
    QTest::addColumn<std::function<void(const QString &)>>("spoil");
    using Spoil = std::function<void(const QString &)>;
    QTest::newRow("missing") << Spoil([](const QString &) {});
    QTest::newRow("not executable")
        << Spoil([](const QString &path) { JobBench::write(path, "x"); });
    QTest::newRow("empty") << Spoil([](const QString &path) {
      JobBench::write(path, "");
      QFile(path).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    });
    QTest::newRow("a link to nowhere")
        << Spoil([](const QString &path) { QFile::link(u"/nowhere/ffmpeg"_s, path); });
    QTest::newRow("a folder") << Spoil([](const QString &path) { QDir().mkpath(path); });
  }
  void theToolIsUnusable() {
    QFETCH(std::function<void(const QString &)>, spoil);
    JobBench bench;
    bench.program.setTool({});
    spoil(bench.program.toolPath());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::toolMissing);
    QCOMPARE(job.state(), JobStateFailed);
    QVERIFY(job.finishedError());
    verifyNothingHappened(bench);
    QVERIFY(bench.outputs().isEmpty());
    QCOMPARE(bench.alertMessages().size(), 1);
    QVERIFY(bench.alertMessages().first().contains(bench.program.toolPath()));
    // The same sentence again for whoever asks later.
    job.reveal();
    QCOMPARE(bench.alertMessages().size(), 2);
    QCOMPARE(bench.alertMessages().first(), bench.alertMessages().last());
  }

  void thereIsNoRoom_data() {
    QTest::addColumn<std::optional<quint64>>("free");
    QTest::addColumn<std::optional<quint64>>("maximum");
    QTest::addColumn<QString>("message");
    using Bytes = std::optional<quint64>;
    const QString tooFull = u"There is not enough free space on your target disk for conversion."_s;
    const QString tooSmall = u"Your target disk doesn't support large files."_s;
    QTest::newRow("a byte short") << Bytes(999) << Bytes() << tooFull;
    QTest::newRow("exactly enough") << Bytes(1000) << Bytes() << QString();
    QTest::newRow("unknown") << Bytes() << Bytes() << QString();
    QTest::newRow("no large files") << Bytes(5000) << Bytes(999) << tooSmall;
    QTest::newRow("just large enough") << Bytes(5000) << Bytes(1000) << QString();
    QTest::newRow("both: space comes first") << Bytes(0) << Bytes(0) << tooFull;
  }
  void thereIsNoRoom() {
    QFETCH(std::optional<quint64>, free);
    QFETCH(std::optional<quint64>, maximum);
    QFETCH(QString, message);
    JobBench bench;
    bench.volumes.free = free;
    bench.volumes.maximum = maximum;
    ConversionJob &job = bench.addJob();
    if (message.isNull()) {
      QCOMPARE(job.start(), StartOutcome::launched);
      QVERIFY(bench.waitForEnd(job));
      return;
    }
    QCOMPARE(job.start(), StartOutcome::noRoom);
    QCOMPARE(job.state(), JobStateQueued);
    QVERIFY(!job.finishedError());
    QVERIFY(bench.controller.changes.isEmpty());
    verifyNothingHappened(bench);
    QVERIFY(bench.outputs().isEmpty());
    QCOMPARE(bench.alertMessages(), QStringList{message});
    // Once there is room it runs.
    bench.volumes.free = 5000;
    bench.volumes.maximum.reset();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(!job.startAlert());
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
  }

  void roomIsNotAskedForWithoutAudio() {
    JobBench bench;
    bench.volumes.free = 0;
    MKVFileInfo info = bench.record();
    info.audioTrackInformation.clear();
    ConversionJob &job = bench.addJob(info);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
    QVERIFY(!job.fastmode());
  }

  // Without room, what the user agreed to replace is still there.
  void noRoomLosesNothing() {
    JobBench bench;
    bench.volumes.free = 10;
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "precious");
    ConversionJob &job = bench.addJob();
    job.setReplacesDestination(true);
    QCOMPARE(job.start(), StartOutcome::noRoom);
    QCOMPARE(wholefile::read(bench.outputPath(u"movie.m4v"_s)), QByteArray("precious"));
  }

  void whatIsReplacedCountsAsRoom() {
    JobBench bench;
    bench.volumes.free = 992;
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "precious");
    ConversionJob &job = bench.addJob();
    job.setReplacesDestination(true);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
  }

  void theFolderIsNoFolder() {
    JobBench bench;
    bench.scenario.conversion().destination(64);
    QVERIFY(bench.scenario.write());
    MKVFileInfo info = bench.record();
    JobBench::write(bench.outputPath(u"file"_s), "not a folder");
    info.destinationURL = QUrl::fromLocalFile(bench.outputPath(u"file/movie.m4v"_s));
    ConversionJob &job = bench.addJob(info);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFailed);
    QVERIFY(job.jobOutput().contains(u"Not a directory"_s));
    job.remove();
    QCOMPARE(wholefile::read(bench.outputPath(u"file"_s)), QByteArray("not a folder"));
  }

  void theUserMayNotWriteThere() {
    if (::geteuid() == 0) {
      // Root may write everywhere; a folder that is gone refuses it all the same.
      JobBench bench;
      ConversionJob &job = bench.addJob();
      QVERIFY(QDir(bench.program.path(u"out"_s)).removeRecursively());
      QCOMPARE(job.start(), StartOutcome::launched);
      QVERIFY(bench.waitForEnd(job));
      QCOMPARE(job.state(), JobStateFailed);
      QVERIFY(job.jobOutput().contains(u"No such file or directory"_s));
      return;
    }
    JobBench bench;
    ConversionJob &job = bench.addJob();
    QFile folder(bench.program.path(u"out"_s));
    QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QVERIFY(folder.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(job.state(), JobStateFailed);
    QVERIFY(job.jobOutput().contains(u"Permission denied"_s));
  }

  // An answer that comes with no end in sight is none, and the tool does not outlive the question.
  void theFixupTestIsGivenUp() {
    JobBench bench;
    bench.scenario.fixup().ignoreTerm().printError("aac_adtstoasc\n").hang();
    QVERIFY(bench.scenario.write());
    MKVFileInfo info = bench.record();
    info.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}};
    // Whether the tool on a busy machine has printed its words by then or not: it is the same.
    const std::chrono::milliseconds deadline(300);
    QVERIFY(!needFixup(bench.program.toolPath(), info, 0, bench.outputPath(u"test.m4v"_s),
                       {.delays = {std::chrono::milliseconds(20)}, .deadline = deadline}));
    QVERIFY(!bench.anyChildAlive());
  }

  // The program is to end: the question is not waited for.
  void theFixupTestIsInterrupted() {
    JobBench bench;
    bench.scenario.fixup().announce(u"asked"_s).hang();
    QVERIFY(bench.scenario.write());
    MKVFileInfo info = bench.record();
    info.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}};
    const auto interrupted = [&bench] { return bench.scenario.announced(u"asked"_s); };
    // Without a deadline: only the interruption can end it.
    QVERIFY(!needFixup(bench.program.toolPath(), info, 0, bench.outputPath(u"test.m4v"_s),
                       {.deadline = std::chrono::milliseconds(-1), .interrupted = interrupted}));
    QVERIFY(!bench.anyChildAlive());
  }

  // What cannot be launched after the test of one second leaves nothing of it.
  void aListThatCannotBeBuiltLeavesNothing() {
    JobBench bench;
    bench.controller.settings.IncludeSurroundTrack = true;
    bench.controller.settings.AC3SurroundBitrate = 9;
    MKVFileInfo info = bench.record();
    info.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}, {u"#2: eng (dts) [5.1]"_s, 48000}};
    ConversionJob &job = bench.addJob(info);
    QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, std::ignore = job.start());
    QCOMPARE(bench.scenario.arguments(u"fixup"_s).size(), 1);
    QVERIFY(bench.outputs().isEmpty());
    QVERIFY(bench.progressFiles().isEmpty());
    QCOMPARE(bench.inhibitor.held(), 0);
    QCOMPARE(job.state(), JobStateQueued);
  }

  void theProgressFileIsUnique() {
    JobBench bench;
    const QString stale = bench.services.progressFolder + u"/movie.mkv.log"_s;
    JobBench::write(stale, "out_time_ms=99000000\n");
    bench.scenario.conversion().progressAt(10).wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(job.arguments().contains(bench.services.progressFolder + u"/movie.mkv-0.log"_s));
    QTRY_COMPARE_WITH_TIMEOUT(job.progress(), 10.0, 30'000);
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.progressFiles(), QStringList{u"movie.mkv.log"_s});
  }

  // Two programs may convert files of one name: the file is there before the tool makes it.
  void theProgressFileIsClaimed() {
    JobBench bench;
    bench.scenario.conversion().wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QCOMPARE(bench.progressFiles(), QStringList{u"movie.mkv.log"_s});
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    QVERIFY(bench.progressFiles().isEmpty());
  }
};

QTEST_GUILESS_MAIN(TestJobStart)
#include "tst_job_start.moc"
