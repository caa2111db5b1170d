#include <sys/wait.h>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <csignal>

#include "JobBench.h"
#include "StoppingRun.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Jobs that are removed, in every state, and the children that they leave behind.
class TestJobRemove final : public QObject {
  Q_OBJECT

 private:
  // A running job whose tool has announced "running".
  static ConversionJob &startedJob(JobBench &bench) {
    if (!bench.scenario.write()) qFatal("the scenario cannot be written");
    ConversionJob &job = bench.addJob();
    if (job.start() != StartOutcome::launched) qFatal("the job does not start");
    if (!bench.waitFor(u"running"_s)) qFatal("the tool does not run");
    return job;
  }

  static bool nothingRemains(const JobBench &bench) {
    return !bench.anyChildAlive() && bench.outputs().isEmpty() && bench.progressFiles().isEmpty() &&
           bench.inhibitor.held() == 0;
  }

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void endsARunningJob_data() {
    QTest::addColumn<std::function<void(Scenario &)>>("play");
    QTest::addColumn<bool>("paused");
    using Play = std::function<void(Scenario &)>;
    const Play obedient = [](Scenario &s) { s.announce(u"running"_s).hang(); };
    const Play polite = [](Scenario &s) { s.exitOnTerm(0).announce(u"running"_s).hang(); };
    const Play stubborn = [](Scenario &s) { s.ignoreTerm().announce(u"running"_s).hang(); };
    QTest::newRow("obedient") << obedient << false;
    QTest::newRow("ends with status 0, as if it had finished") << polite << false;
    QTest::newRow("deaf to SIGTERM") << stubborn << false;
    QTest::newRow("paused") << obedient << true;
    QTest::newRow("paused, ends with status 0") << polite << true;
    QTest::newRow("paused and deaf to SIGTERM") << stubborn << true;
  }
  void endsARunningJob() {
    QFETCH(std::function<void(Scenario &)>, play);
    QFETCH(bool, paused);
    JobBench bench;
    bench.services.stopDelays.grace = std::chrono::milliseconds(50);
    play(bench.scenario.conversion().progressAt(10));
    ConversionJob &job = startedJob(bench);
    if (paused) job.pause();
    bench.controller.calls.clear();
    bench.controller.changes.clear();
    job.remove();
    // It has left at once, without waiting for the child.
    QCOMPARE(bench.controller.calls, (QStringList{u"removeJob"_s, u"startNextJobInQueue"_s}));
    QCOMPARE(bench.inhibitor.held(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(nothingRemains(bench), 30'000);
    // Neither finished nor failed, and nobody is told.
    QVERIFY(bench.controller.changes.isEmpty());
    QVERIFY(!job.finishedOK() && !job.finishedError());
    QVERIFY(bench.notifier.posted.isEmpty());
    QVERIFY(!bench.controller.calls.contains(u"increaseUsages 1 1"_s));
  }

  // The file goes only after its writer: a child that is deaf for a while would write it anew.
  void deletesOnlyAfterTheChildHasEnded() {
    JobBench bench;
    bench.scenario.conversion().ignoreTerm().announce(u"running"_s).wait(u"go"_s);
    ConversionJob &job = startedJob(bench);
    job.remove();
    QCoreApplication::processEvents();
    QVERIFY(bench.anyChildAlive());
    QCOMPARE(bench.outputs(), QStringList{u"movie.m4v"_s});
    QVERIFY(bench.scenario.release(u"go"_s));
    QTRY_VERIFY_WITH_TIMEOUT(nothingRemains(bench), 30'000);
  }

  void theJobMayGoBeforeItsChild() {
    JobBench bench;
    bench.scenario.conversion().ignoreTerm().announce(u"running"_s).wait(u"go"_s);
    startedJob(bench).remove();
    bench.jobs.clear();
    QVERIFY(bench.anyChildAlive());
    QVERIFY(bench.scenario.release(u"go"_s));
    QTRY_VERIFY_WITH_TIMEOUT(nothingRemains(bench), 30'000);
  }

  void theEndOfTheProgramWaits_data() { endsARunningJob_data(); }
  void theEndOfTheProgramWaits() {
    QFETCH(std::function<void(Scenario &)>, play);
    QFETCH(bool, paused);
    JobBench bench;
    bench.services.stopDelays.grace = std::chrono::milliseconds(50);
    play(bench.scenario.conversion().progressAt(10));
    ConversionJob &job = startedJob(bench);
    if (paused) job.pause();
    job.remove();
    // Without a turn of the event loop from here on.
    ConversionJob::finishStopping();
    QVERIFY(nothingRemains(bench));
  }

  void severalAreWaitedFor() {
    JobBench bench;
    bench.services.stopDelays.grace = std::chrono::milliseconds(50);
    bench.scenario.conversion(u"a.mkv"_s).ignoreTerm().announce(u"a"_s).hang();
    bench.scenario.conversion(u"b.mkv"_s).ignoreTerm().announce(u"b"_s).hang();
    QVERIFY(bench.scenario.write());
    for (const QString &name : {u"a"_s, u"b"_s}) {
      ConversionJob &job = bench.addJob(bench.record(name + u".mkv"_s));
      QCOMPARE(job.start(), StartOutcome::launched);
      QVERIFY(bench.waitFor(name));
      job.remove();
    }
    ConversionJob::finishStopping();
    QVERIFY(nothingRemains(bench));
    ConversionJob::finishStopping();  // once more is harmless
  }

  void aJobThatIsOnlyDeletedLeavesNothing() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).hang();
    startedJob(bench);
    bench.controller.jobs.clear();
    bench.jobs.clear();
    QVERIFY(nothingRemains(bench));
  }

  void nothingIsKeptOfAStoppedRun() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).hang();
    startedJob(bench).remove();
    QTRY_VERIFY_WITH_TIMEOUT(QCoreApplication::instance()->findChildren<StoppingRun *>().isEmpty(),
                             30'000);
    QVERIFY(nothingRemains(bench));
  }

  // The child has ended, its end has not been handled yet.
  void removedBetweenEndAndCompletion() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).wait(u"go"_s);
    ConversionJob &job = startedJob(bench);
    bench.controller.calls.clear();
    bench.controller.changes.clear();
    QVERIFY(bench.scenario.release(u"go"_s));
    // Gone, and not reaped: it is over before the event loop hears of it.
    const pid_t child = bench.scenario.calls().first().value(u"pid"_s).toInt();
    siginfo_t info;
    QCOMPARE(::waitid(P_PID, id_t(child), &info, WEXITED | WNOWAIT), 0);
    job.remove();
    ConversionJob::finishStopping();
    QVERIFY(nothingRemains(bench));
    QCoreApplication::processEvents();
    QVERIFY(bench.controller.changes.isEmpty());
    QVERIFY(bench.notifier.posted.isEmpty());
  }

  void removedFromItsOwnProgress() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).wait(u"go"_s).progressAt(10).hang();
    ConversionJob &job = startedJob(bench);
    connect(&job, &ConversionJob::progressChanged, &job, &ConversionJob::remove);
    QVERIFY(bench.scenario.release(u"go"_s));
    QTRY_VERIFY_WITH_TIMEOUT(nothingRemains(bench), 30'000);
    QCOMPARE(bench.controller.calls.count(u"removeJob"_s), 1);
  }

  void removedFromItsOwnStart() {
    JobBench bench;
    bench.scenario.conversion().hang();
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    bench.controller.onStateChanged = [](ConversionJob &changed) { changed.remove(); };
    QCOMPARE(job.start(), StartOutcome::launched);
    QTRY_VERIFY_WITH_TIMEOUT(nothingRemains(bench), 30'000);
  }

  void twiceIsOnce() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    job.remove();
    job.remove();
    QCOMPARE(bench.controller.calls, (QStringList{u"removeJob"_s, u"startNextJobInQueue"_s}));
    QCOMPARE(job.start(), StartOutcome::notQueued);
    job.continue_();
    job.pause();
    QCOMPARE(bench.controller.calls.size(), 2);
  }

  void asksForTheNextOnlyWhenNothingRuns() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).hang();
    startedJob(bench);
    ConversionJob &waiting = bench.addJob(bench.record(u"waiting.mkv"_s));
    bench.controller.calls.clear();
    waiting.remove();
    QCOMPARE(bench.controller.calls, QStringList{u"removeJob"_s});
  }
};

QTEST_GUILESS_MAIN(TestJobRemove)
#include "tst_job_remove.moc"
