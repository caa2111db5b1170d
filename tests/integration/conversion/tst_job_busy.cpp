#include <QTest>

#include "JobBench.h"

using namespace Qt::StringLiterals;
using namespace decant;

// A start that blocks says so, and says when it is over, however it ends.
class TestJobBusy final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aroundTheTestOfOneSecond();
  void notWithoutATest();
  void notWhenThereIsAnObstacle();
};

void TestJobBusy::aroundTheTestOfOneSecond() {
  JobBench bench;
  QStringList steps;
  bench.services.busy = [&](bool busy) {
    const bool asked = !bench.scenario.arguments(u"fixup"_s).isEmpty();
    steps.append((busy ? u"busy"_s : u"done"_s) + (asked ? u" asked"_s : QString()));
  };
  MKVFileInfo info = bench.record();
  info.audioTrackInformation = {{u"#1: eng (aac)"_s, 48000}};
  ConversionJob &job = bench.addJob(info);
  QCOMPARE(job.start(), StartOutcome::launched);
  QCOMPARE(steps, QStringList({u"busy"_s, u"done asked"_s}));
  QVERIFY(bench.waitForEnd(job));
}

void TestJobBusy::notWithoutATest() {
  JobBench bench;
  int calls = 0;
  bench.services.busy = [&](bool) { ++calls; };
  ConversionJob &job = bench.addJob();
  QCOMPARE(job.start(), StartOutcome::launched);
  QVERIFY(bench.waitForEnd(job));
  QCOMPARE(calls, 0);
}

void TestJobBusy::notWhenThereIsAnObstacle() {
  JobBench bench;
  int calls = 0;
  bench.services.busy = [&](bool) { ++calls; };
  ConversionJob &job = bench.addJob();
  QFile::remove(bench.program.path(u"in/movie.mkv"_s));
  QCOMPARE(job.start(), StartOutcome::sourceRemoved);
  QCOMPARE(calls, 0);
}

QTEST_GUILESS_MAIN(TestJobBusy)
#include "tst_job_busy.moc"
