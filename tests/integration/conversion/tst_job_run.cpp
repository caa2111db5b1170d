#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <csignal>

#include "JobBench.h"

using namespace Qt::StringLiterals;
using namespace decant;

// A run in progress, with a tool that behaves well.
class TestJobRun final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void runsTheToolWithItsArguments() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    QSignalSpy states(&job, &ConversionJob::stateChanged);
    QCOMPARE(job.start(), StartOutcome::launched);
    QCOMPARE(job.state(), JobStateConverting);
    QCOMPARE(bench.inhibitor.held(), 1);
    QCOMPARE(bench.inhibitor.reasons(), QStringList{u"Converting MKV file."_s});
    QCOMPARE(bench.controller.calls, (QStringList{u"state 1"_s, u"started"_s}));
    const QStringList arguments = job.arguments();
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
    QCOMPARE(bench.scenario.arguments(u"conversion"_s), QList<QStringList>{arguments});
    QVERIFY(bench.scenario.arguments(u"fixup"_s).isEmpty());
    QCOMPARE(bench.outputs(), QStringList{u"movie.m4v"_s});
    QCOMPARE(states.size(), 2);
  }

  void hidesVariablesThatChangeTheOutput() {
    JobBench bench;
    qputenv("FFREPORT", "file=report.log");
    qputenv("AV_LOG_FORCE_COLOR", "1");
    MKVFileInfo info = bench.record();
    info.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}};
    ConversionJob &job = bench.addJob(info);
    QCOMPARE(job.start(), StartOutcome::launched);
    qunsetenv("FFREPORT");
    qunsetenv("AV_LOG_FORCE_COLOR");
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.scenario.calls().size(), 2);  // the test of one second, too
    for (const QJsonObject &call : bench.scenario.calls())
      QVERIFY(call.value(u"variables"_s).toArray().isEmpty());
  }

  void asksForTheFixupOfCopiedAac_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("dies");
    QTest::addColumn<bool>("fixup");
    const QByteArray wish = "use the audio bitstream filter 'aac_adtstoasc'\n";
    QTest::newRow("asked for") << wish << false << true;
    QTest::newRow("asked for by one that crashes") << wish << true << true;
    QTest::newRow("not needed") << QByteArray("all is well\n") << false << false;
  }
  void asksForTheFixupOfCopiedAac() {
    QFETCH(QByteArray, answer);
    QFETCH(bool, dies);
    QFETCH(bool, fixup);
    JobBench bench;
    bench.scenario.fixup().printError(answer);
    if (dies)
      bench.scenario.die(SIGSEGV);
    else
      bench.scenario.exit(1);
    QVERIFY(bench.scenario.write());
    MKVFileInfo info = bench.record();
    info.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}};
    ConversionJob &job = bench.addJob(info);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(job.fastmode());
    QCOMPARE(job.arguments().contains(u"aac_adtstoasc"_s), fixup);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
  }

  void writesItsProgressWhereItCan_data() {
    QTest::addColumn<bool>("impossible");
    QTest::newRow("folder is gone") << false;
    QTest::newRow("folder cannot be made") << true;
  }
  void writesItsProgressWhereItCan() {
    QFETCH(bool, impossible);
    JobBench bench;
    const QString folder = bench.services.progressFolder;
    QVERIFY(QDir(folder).removeRecursively());
    if (impossible) JobBench::write(folder, "a file");
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    const QStringList arguments = job.arguments();
    const QString file = arguments.value(arguments.indexOf(u"-progress"_s) + 1);
    QCOMPARE(QFileInfo(file).path(), impossible ? bench.program.library().tempDir() : folder);
    QVERIFY(QFile::exists(file));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
  }

  void tellsTheLogOfASubtitleFile() {
    JobBench bench;
    MKVFileInfo info = bench.record();
    info.subtitleFileURL = QUrl::fromLocalFile(bench.program.path(u"in/a.srt"_s));
    JobBench::write(info.subtitleFileURL.toLocalFile(), "1\n");
    QCOMPARE(bench.addJob(info).start(), StartOutcome::launched);
    QCOMPARE(
        bench.program.logged().filter(u"subtitles"_s),
        QStringList(u"Info: adding subtitles from file "_s + bench.program.path(u"in/a.srt"_s)));
  }

  void tellsProgressWithinBounds_data() {
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<std::optional<int>>("runtime");
    QTest::addColumn<double>("percent");
    const std::optional<int> hundred = 100;
    QTest::newRow("a quarter") << QByteArray("out_time_ms=25000000\n") << hundred << 25.0;
    QTest::newRow("the first of a part counts")
        << QByteArray("out_time_ms=10000000\nout_time_ms=90000000\n") << hundred << 10.0;
    QTest::newRow("beyond the end") << QByteArray("out_time_ms=250000000\n") << hundred << 100.0;
    QTest::newRow("zero") << QByteArray("out_time_ms=0\n") << hundred << 0.0;
    QTest::newRow("N/A") << QByteArray("out_time_ms=N/A\n") << hundred << 0.0;
    QTest::newRow("negative") << QByteArray("out_time_ms=-577\n") << hundred << 0.0;
    QTest::newRow("no running time")
        << QByteArray("out_time_ms=25000000\n") << std::optional<int>() << 0.0;
    QTest::newRow("a running time of zero")
        << QByteArray("out_time_ms=25000000\n") << std::optional<int>(0) << 0.0;
  }
  void tellsProgressWithinBounds() {
    QFETCH(QByteArray, part);
    QFETCH(std::optional<int>, runtime);
    QFETCH(double, percent);
    JobBench bench;
    bench.scenario.conversion()
        .progress(part)
        .announce(u"first"_s)
        .wait(u"next"_s)
        .progressAt(60)
        .wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    MKVFileInfo info = bench.record();
    info.runtimeSeconds = runtime;
    ConversionJob &job = bench.addJob(info);
    QSignalSpy changes(&job, &ConversionJob::progressChanged);
    QList<double> seen;
    connect(&job, &ConversionJob::progressChanged, this, [&] { seen.append(job.progress()); });
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitFor(u"first"_s));
    if (percent > 0) {
      QTRY_COMPARE_WITH_TIMEOUT(job.progress(), percent, 30'000);
      QVERIFY(job.stateInfoString().contains(u"ETA: "_s));
    } else {
      QVERIFY(bench.waitForLooksAtProgress());
    }
    QVERIFY(bench.scenario.release(u"next"_s));
    // Where there is a running time, a second part shows that the first one was read.
    if (runtime.value_or(0) > 0) {
      QTRY_COMPARE_WITH_TIMEOUT(job.progress(), 60.0, 30'000);
    }
    QVERIFY(job.etaSeconds() >= 0);
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.progress(), 100.0);
    QList<double> expected{100.0};
    if (runtime.value_or(0) > 0) expected.prepend(60.0);
    if (percent > 0) expected.prepend(percent);
    QCOMPARE(seen, expected);
  }

  void readsOnlyWhatIsNew() {
    JobBench bench;
    bench.scenario.conversion().progressAt(10).announce(u"ten"_s).wait(u"on"_s).progressAt(40).wait(
        u"go"_s);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QTRY_COMPARE_WITH_TIMEOUT(job.progress(), 10.0, 30'000);
    QVERIFY(bench.scenario.release(u"on"_s));
    QTRY_COMPARE_WITH_TIMEOUT(job.progress(), 40.0, 30'000);
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
  }

  void keepsWhatWasSaid_data() {
    QTest::addColumn<QList<QByteArray>>("pieces");
    QTest::addColumn<QString>("output");
    using Pieces = QList<QByteArray>;
    QTest::newRow("silence") << Pieces{} << QString();
    QTest::newRow("lines, with nothing between") << Pieces{"one\n", "two\n"} << u"onetwo"_s;
    QTest::newRow("statistics cut in the middle")
        << Pieces{"one\nframe=  100 fps= 25 q=-1.0 size=  10kB ti", "me=00:00:04 bitra",
                  "te= 312.5kbits/s speed=8x\rtwo\n"}
        << u"onetwo"_s;
    QTest::newRow("foreign bytes") << Pieces{"t\xe4sch \xff\n"} << u"t\uFFFDsch \uFFFD"_s;
    QTest::newRow("an unfinished last line") << Pieces{"one\n", "tail"} << u"onetail"_s;
  }
  void keepsWhatWasSaid() {
    QFETCH(QList<QByteArray>, pieces);
    QFETCH(QString, output);
    JobBench bench;
    bench.scenario.conversion();
    int number = 0;
    // Each piece is a read of its own: the tool goes on when the one before has been taken in.
    for (const QByteArray &piece : pieces) {
      const QString name = QString::number(number++);
      bench.scenario.printError(piece).announce(u"said"_s + name).wait(u"go"_s + name);
    }
    bench.scenario.exit(1);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    for (int i = 0; i < number; ++i) {
      QVERIFY(bench.waitFor(u"said"_s + QString::number(i)));
      QCoreApplication::processEvents();
      QVERIFY(bench.scenario.release(u"go"_s + QString::number(i)));
    }
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.jobOutput(), output);
  }

  void survivesAFlood() {
    JobBench bench;
    bench.scenario.conversion()
        .printError("Error while decoding stream #0:1\n")
        .flood(20)
        .printError("the last word\n")
        .exit(1);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QVERIFY(job.jobOutput().size() < 600 * 1024);
    QVERIFY(job.jobOutput().endsWith(u"the last word"_s));
    QCOMPARE(job.diagnosis().kind, FailureKind::damagedSource);
  }

  void forgetsTheOutputOfASuccess() {
    JobBench bench;
    bench.scenario.conversion().printError("a warning\n");
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
    QVERIFY(job.jobOutput().isEmpty());
    QVERIFY(job.arguments().isEmpty());
  }

  void startsOnce() {
    JobBench bench;
    bench.scenario.conversion().wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QCOMPARE(job.start(), StartOutcome::notQueued);
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.start(), StartOutcome::notQueued);
    QCOMPARE(bench.scenario.calls().size(), 1);
    QCOMPARE(bench.inhibitor.held(), 0);
  }
};

QTEST_GUILESS_MAIN(TestJobRun)
#include "tst_job_run.moc"
