#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <csignal>

#include "Defaults.h"
#include "JobBench.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {
const QString countKey = u"convertedFileCount"_s;
}

// How a run ends, and the steps that follow.
class TestJobEnd final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void judgesTheEnd_data() {
    QTest::addColumn<std::function<void(Scenario &)>>("play");
    QTest::addColumn<bool>("finished");
    using Play = std::function<void(Scenario &)>;
    const auto row = [](const char *name, const Play &play, bool finished) {
      QTest::newRow(name) << play << finished;
    };
    row(
        "status 0", [](Scenario &s) { s.exit(0); }, true);
    row(
        "status 0 with warnings", [](Scenario &s) { s.printError("deprecated\n").exit(0); }, true);
    row(
        "status 1", [](Scenario &s) { s.exit(1); }, false);
    row(
        "status 255", [](Scenario &s) { s.exit(255); }, false);
    row(
        "killed", [](Scenario &s) { s.die(SIGKILL); }, false);
    row(
        "crashed", [](Scenario &s) { s.die(SIGSEGV); }, false);
    row(
        "terminated by another", [](Scenario &s) { s.die(SIGTERM); }, false);
    row(
        "status 0 without a trailer",
        [](Scenario &s) { s.printError("Error writing trailer of x: No space\n").exit(0); }, false);
    row(
        "status 0 and not closed",
        [](Scenario &s) { s.printError("Error closing file x: Input/output error\n").exit(0); },
        false);
    row(
        "status 0 with an empty file", [](Scenario &s) { s.destination(0).exit(0); }, false);
    row(
        "status 0 without having written", [](Scenario &s) { s.noDestination().exit(0); }, false);
    row(
        "status 0 and the file vanished", [](Scenario &s) { s.deleteDestination().exit(0); },
        false);
  }
  void judgesTheEnd() {
    QFETCH(std::function<void(Scenario &)>, play);
    QFETCH(bool, finished);
    JobBench bench;
    play(bench.scenario.conversion());
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    const QList<FakeController::Change> expected{
        {JobStateQueued, JobStateConverting},
        {JobStateConverting, finished ? JobStateFinished : JobStateFailed}};
    QCOMPARE(bench.controller.changes, expected);
    QCOMPARE(job.finishedOK(), finished);
    QCOMPARE(job.finishedError(), !finished);
    QCOMPARE(job.progress(), 100.0);
    // Nothing of the run remains but what it wrote.
    QCOMPARE(bench.inhibitor.held(), 0);
    QVERIFY(!bench.anyChildAlive());
    QVERIFY(bench.progressFiles().isEmpty());
    QVERIFY(wholefile::read(bench.outputPath(u"movie.m4v"_s)).size() > 0 ||
            bench.outputs().isEmpty());
  }

  void toldOfASourceThatIsCutOff_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<bool>("autoClean");
    QTest::addColumn<qsizetype>("alerts");
    const QByteArray cutOff = "[matroska,webm @ 0x1] File ended prematurely\n";
    QTest::newRow("whole") << QByteArray("deprecated\n") << false << qsizetype(0);
    QTest::newRow("cut off") << cutOff << false << qsizetype(1);
    QTest::newRow("cut off and cleaned away") << cutOff << true << qsizetype(1);
    QTest::newRow("cut off, in a flood")
        << QByteArray(300'000, 'x') + '\n' + cutOff + QByteArray(300'000, 'y') + '\n'
        << false << qsizetype(1);
  }
  void toldOfASourceThatIsCutOff() {
    QFETCH(QByteArray, output);
    QFETCH(bool, autoClean);
    JobBench bench;
    bench.controller.completion.AutoClean = autoClean;
    bench.scenario.conversion().printError(output).exit(0);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    // The new file has what there was, which is a success.
    QCOMPARE(job.state(), JobStateFinished);
    const QStringList told = bench.alertMessages();
    QTEST(told.size(), "alerts");
    for (const QString &message : told)
      QVERIFY2(message.contains(u"'movie.mkv' is incomplete"), qPrintable(message));
  }

  void endsOnlyAfterTheLastOutput() {
    JobBench bench;
    bench.scenario.conversion().printError("a\n").printError("b\n").exit(3);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QString outputAtEnd;
    bool partialAtEnd = false;
    bench.controller.onStateChanged = [&](ConversionJob &changed) {
      if (changed.state() != JobStateFailed) return;
      outputAtEnd = changed.jobOutput();
      partialAtEnd =
          changed.finishedError() && bench.inhibitor.held() == 0 && bench.progressFiles().isEmpty();
    };
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(outputAtEnd, u"ab"_s);
    QVERIFY(partialAtEnd);
  }

  void aToolThatCannotBeExecutedFailsOnce() {
    JobBench bench;
    // Executable and not empty, and still nothing that the system can run.
    QFile::remove(bench.program.toolPath());
    JobBench::write(bench.program.toolPath(),
                    "\x7f"
                    "ELF no more");
    QFile(bench.program.toolPath()).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.controller.changes.size(), 2);
    QCOMPARE(job.state(), JobStateFailed);
    QVERIFY(!job.jobOutput().isEmpty());
    QCOMPARE(job.startOutcome(), StartOutcome::toolMissing);
    QCOMPARE(bench.alertMessages().size(), 1);
    QVERIFY(bench.alertMessages().first().contains(bench.program.toolPath()));
    QCOMPARE(bench.inhibitor.held(), 0);
    QVERIFY(bench.outputs().isEmpty());
  }

  void stepsOfASuccess_data() {
    QTest::addColumn<CompletionSettings>("settings");
    QTest::addColumn<QStringList>("calls");
    const QStringList begin{u"state 1"_s, u"started"_s, u"state 3"_s};
    const QStringList end{u"startNextJobInQueue"_s, u"notified"_s, u"increaseUsages 1 1"_s};
    const QStringList removal{u"removeJob"_s, u"startNextJobInQueue"_s};
    QTest::newRow("plain") << CompletionSettings{} << begin + end;
    QTest::newRow("AutoClean") << CompletionSettings{true, false, 0, false}
                               << begin + removal + end;
    QTest::newRow("AutoRemove to the Trash")
        << CompletionSettings{false, true, 0, false} << begin + QStringList{u"trashSource"_s} + end;
    QTest::newRow("AutoRemove for good") << CompletionSettings{false, true, 2, false}
                                         << begin + QStringList{u"deleteSource"_s} + end;
    QTest::newRow("leaves the queue first, then the source goes")
        << CompletionSettings{true, true, 0, false}
        << begin + removal + QStringList{u"trashSource"_s} + end;
    QTest::newRow("QuitAfterConversion")
        << CompletionSettings{false, false, 0, true} << begin + end + QStringList{u"terminate"_s};
  }
  void stepsOfASuccess() {
    QFETCH(CompletionSettings, settings);
    QFETCH(QStringList, calls);
    JobBench bench;
    bench.controller.completion = settings;
    bench.notifier.onPost = [&bench] { bench.controller.calls.append(u"notified"_s); };
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QTRY_COMPARE_WITH_TIMEOUT(bench.controller.calls, calls, 30'000);
    QCOMPARE(bench.outputs(), QStringList{u"movie.m4v"_s});  // a finished output stays
  }

  void stepsOfAFailure() {
    JobBench bench;
    // None of the wishes for a success holds.
    bench.controller.completion = {true, true, 1, true};
    bench.notifier.onPost = [&bench] { bench.controller.calls.append(u"notified"_s); };
    bench.scenario.conversion().exit(1);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    const QStringList calls{u"state 1"_s,  u"started"_s,
                            u"state 4"_s,  u"startNextJobInQueue"_s,
                            u"notified"_s, u"increaseUsages 1 1"_s};
    QTRY_COMPARE_WITH_TIMEOUT(bench.controller.calls, calls, 30'000);
    QVERIFY(QFile::exists(bench.program.path(u"in/movie.mkv"_s)));
    QVERIFY(bench.program.logged().last().endsWith(u"in/movie.mkv failed: status 1"_s));
  }

  void quitsOnlyWhenNothingRunsAndNothingFailed_data() {
    QTest::addColumn<bool>("failedBefore");
    QTest::addColumn<bool>("anotherRuns");
    QTest::addColumn<bool>("quits");
    QTest::newRow("alone") << false << false << true;
    QTest::newRow("one has failed") << true << false << false;
    QTest::newRow("another runs") << false << true << false;
  }
  void quitsOnlyWhenNothingRunsAndNothingFailed() {
    QFETCH(bool, failedBefore);
    QFETCH(bool, anotherRuns);
    QFETCH(bool, quits);
    JobBench bench;
    bench.scenario.conversion(u"bad.mkv"_s).exit(1);
    bench.scenario.conversion(u"long.mkv"_s).wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    bench.controller.completion.QuitAfterConversion = true;
    if (failedBefore) {
      ConversionJob &bad = bench.addJob(bench.record(u"bad.mkv"_s));
      QCOMPARE(bad.start(), StartOutcome::launched);
      QVERIFY(bench.waitForEnd(bad));
    }
    if (anotherRuns) {
      ConversionJob &longer = bench.addJob(bench.record(u"long.mkv"_s));
      QCOMPARE(longer.start(), StartOutcome::launched);
    }
    bench.controller.calls.clear();
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.controller.calls.contains(u"terminate"_s), quits);
    // With another one running the queue is not asked either.
    QCOMPARE(bench.controller.calls.contains(u"startNextJobInQueue"_s), !anotherRuns);
    QVERIFY(bench.scenario.release(u"go"_s));
  }

  void notifiesOncePerRun() {
    JobBench bench;
    bench.scenario.conversion(u"bad %@.mkv"_s).exit(1);
    QVERIFY(bench.scenario.write());
    ConversionJob &good = bench.addJob();
    QCOMPARE(good.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(good));
    ConversionJob &bad = bench.addJob(bench.record(u"bad %@.mkv"_s));
    QCOMPARE(bad.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(bad));
    QCOMPARE(bench.notifier.posted.size(), 2);
    const Notification &success = bench.notifier.posted.at(0);
    const QString app = bench.program.library().appName();
    QCOMPARE(success.title, app + u" Conversion Finished"_s);
    QCOMPARE(success.text, app + u" has finished converting the file movie.mkv."_s);
    QCOMPARE(success.actionTitle, u"Show"_s);
    QCOMPARE(success.path, bench.outputPath(u"movie.m4v"_s));
    const Notification &failure = bench.notifier.posted.at(1);
    QCOMPARE(failure.title, app + u" Conversion Failed"_s);
    QCOMPARE(failure.text, app + u" has failed to convert the file bad %@.mkv."_s);
    QVERIFY(failure.actionTitle.isNull());
    QVERIFY(failure.path.isNull());
    QVERIFY(!success.id.isEmpty() && !failure.id.isEmpty());
    QVERIFY(success.id != failure.id);
  }

  void countsEveryRun() {
    JobBench bench;
    bench.scenario.conversion(u"bad.mkv"_s).exit(1);
    QVERIFY(bench.scenario.write());
    ostrak::setDefaultInt(countKey, 41);
    for (const QString &name : {u"movie.mkv"_s, u"bad.mkv"_s}) {
      ConversionJob &job = bench.addJob(bench.record(name));
      QCOMPARE(job.start(), StartOutcome::launched);
      QVERIFY(bench.waitForEnd(job));
    }
    QCOMPARE(ostrak::defaultInt(countKey), 43);
  }

  // The next job is started from inside the end of this one, and this one is gone by then.
  void startsTheNextFromItsEnd() {
    JobBench bench;
    bench.controller.completion.AutoClean = true;
    ConversionJob &first = bench.addJob();
    ConversionJob &second = bench.addJob(bench.record(u"second.mkv"_s));
    bench.controller.onStartNext = [&second] {
      if (second.state() == JobStateQueued) QCOMPARE(second.start(), StartOutcome::launched);
    };
    QCOMPARE(first.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(second));
    QCOMPARE(bench.outputs(), (QStringList{u"movie.m4v"_s, u"second.m4v"_s}));
    QVERIFY(bench.controller.jobs.isEmpty());
  }
};

QTEST_GUILESS_MAIN(TestJobEnd)
#include "tst_job_end.moc"
