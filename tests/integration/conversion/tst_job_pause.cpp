#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <csignal>

#include "JobBench.h"
#include "ProcessState.h"

using namespace Qt::StringLiterals;
using namespace decant;
using namespace std::chrono_literals;

// Pausing and continuing, in every state.
class TestJobPause final : public QObject {
  Q_OBJECT

 private:
  // What the first child does.
  static char childState(const JobBench &bench) {
    return processState(bench.scenario.calls().first().value(u"pid"_s).toInt());
  }

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void stopsAndGoesOn() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).wait(u"go"_s).progressAt(50).wait(u"end"_s);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitFor(u"running"_s));
    bench.controller.calls.clear();
    job.pause();
    QCOMPARE(job.state(), JobStatePaused);
    QCOMPARE(bench.controller.calls, QStringList{u"state 2"_s});
    QCOMPARE(bench.inhibitor.held(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(childState(bench), 'T', 30'000);
    QCOMPARE(job.stateInfoString(), u"Status: Paused"_s);
    QVERIFY(bench.scenario.release(u"go"_s));
    bench.controller.calls.clear();
    job.continue_();
    QCOMPARE(job.state(), JobStateConverting);
    QCOMPARE(bench.controller.calls, (QStringList{u"state 1"_s, u"started"_s}));
    QCOMPARE(bench.inhibitor.held(), 1);
    // Both the child and the look at its progress go on.
    QTRY_COMPARE_WITH_TIMEOUT(job.progress(), 50.0, 30'000);
    QVERIFY(bench.scenario.release(u"end"_s));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
    QCOMPARE(bench.inhibitor.held(), 0);
  }

  void pausesAreNotCounted() {
    JobBench bench;
    bench.scenario.conversion().progressAt(50).announce(u"running"_s).wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    bench.clock.now = 1000h;
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.elapsedSeconds(), 0.0);
    QCOMPARE(job.start(), StartOutcome::launched);
    bench.clock.now += 30s;
    QCOMPARE(job.elapsedSeconds(), 30.0);
    job.pause();
    bench.clock.now += 2h;
    QCOMPARE(job.elapsedSeconds(), 30.0);
    job.continue_();
    bench.clock.now += 15s;
    QCOMPARE(job.elapsedSeconds(), 45.0);
    QTRY_COMPARE_WITH_TIMEOUT(job.progress(), 50.0, 30'000);
    QCOMPARE(job.etaSeconds(), 45.0);
    QVERIFY(job.stateInfoString().endsWith(u"ETA: 45s"_s));
    bench.clock.now += 20s;
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    bench.clock.now += 1h;
    QCOMPARE(job.elapsedSeconds(), 65.0);
    QCOMPARE(job.stateInfoString(), u"Status: Finished [Conversion took: 1m 5s]"_s);
  }

  void harmlessInOtherStates() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).wait(u"go"_s);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    job.pause();
    QCOMPARE(job.state(), JobStateQueued);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitFor(u"running"_s));
    job.continue_();
    QCOMPARE(job.state(), JobStateConverting);
    QCOMPARE(bench.inhibitor.held(), 1);
    QCOMPARE(bench.inhibitor.reasons().size(), 1);
    job.pause();
    job.pause();
    QCOMPARE(job.state(), JobStatePaused);
    job.continue_();
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    bench.controller.calls.clear();
    job.pause();
    job.continue_();
    QCOMPARE(job.state(), JobStateFinished);
    QVERIFY(bench.controller.calls.isEmpty());
    QCOMPARE(bench.inhibitor.held(), 0);
    QCOMPARE(bench.scenario.calls().size(), 1);
  }

  void continuingAQueuedJobStartsIt() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    job.continue_();
    QCOMPARE(job.state(), JobStateConverting);
    // Once from the start, once from continuing.
    QCOMPARE(bench.controller.calls, (QStringList{u"state 1"_s, u"started"_s, u"started"_s}));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFinished);
  }

  // The queue's pause is lifted by now; it must not stick at a job that did not launch.
  void continuingAJobThatCannotStartTriesTheNext() {
    JobBench bench;
    bench.volumes.free = 0;
    ConversionJob &job = bench.addJob();
    job.continue_();
    QCOMPARE(job.state(), JobStateQueued);
    QCOMPARE(bench.controller.calls, (QStringList{u"started"_s, u"startNextJobInQueue"_s}));
    QCOMPARE(bench.inhibitor.held(), 0);
  }

  void aPausedChildThatDiesEndsTheJob() {
    JobBench bench;
    bench.scenario.conversion().announce(u"running"_s).hang();
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitFor(u"running"_s));
    job.pause();
    QTRY_COMPARE_WITH_TIMEOUT(childState(bench), 'T', 30'000);
    ::kill(bench.scenario.calls().first().value(u"pid"_s).toInt(), SIGKILL);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFailed);
  }
};

QTEST_GUILESS_MAIN(TestJobPause)
#include "tst_job_pause.moc"
