#include <unistd.h>

#include <QDir>
#include <QRegularExpression>
#include <QTest>

#include "JobBench.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// No file is ever lost: neither a source, by whatever name, nor what others have put at a
// destination.
class TestJobNothingLost final : public QObject {
  Q_OBJECT

 private:
  static QByteArray source(const JobBench &bench) {
    return wholefile::read(bench.program.path(u"in/movie.mkv"_s));
  }

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void theDestinationIsTheSource_data() {
    QTest::addColumn<std::function<QString(const JobBench &)>>("disguise");
    QTest::addColumn<bool>("agreed");
    using Disguise = std::function<QString(const JobBench &)>;
    const Disguise same = [](const JobBench &bench) {
      return bench.program.path(u"in/movie.mkv"_s);
    };
    const Disguise dotted = [](const JobBench &bench) {
      return bench.program.path(u"in/./../in//movie.mkv"_s);
    };
    const Disguise symbolic = [](const JobBench &bench) {
      QFile::link(bench.program.path(u"in/movie.mkv"_s), bench.outputPath(u"movie.m4v"_s));
      return bench.outputPath(u"movie.m4v"_s);
    };
    const Disguise hard = [](const JobBench &bench) {
      const QByteArray from = bench.program.path(u"in/movie.mkv"_s).toLocal8Bit();
      const QByteArray to = bench.outputPath(u"movie.m4v"_s).toLocal8Bit();
      if (::link(from.constData(), to.constData()) != 0) qFatal("no hard link can be made");
      return bench.outputPath(u"movie.m4v"_s);
    };
    const Disguise folder = [](const JobBench &bench) {
      QFile::link(bench.program.path(u"in"_s), bench.outputPath(u"linked"_s));
      return bench.outputPath(u"linked/movie.mkv"_s);
    };
    const QList<std::pair<QByteArray, Disguise>> disguises{{"the same path", same},
                                                           {"a dotted path", dotted},
                                                           {"a symbolic link", symbolic},
                                                           {"a hard link", hard},
                                                           {"through a linked folder", folder}};
    for (const auto &[name, disguise] : disguises) {
      QTest::newRow(name.constData()) << disguise << false;
      QTest::newRow(QByteArray(name + ", replacing agreed").constData()) << disguise << true;
    }
  }
  void theDestinationIsTheSource() {
    QFETCH(std::function<QString(const JobBench &)>, disguise);
    QFETCH(bool, agreed);
    JobBench bench;
    MKVFileInfo info = bench.record();
    info.destinationURL = QUrl::fromLocalFile(disguise(bench));
    ConversionJob &job = bench.addJob(info);
    job.setReplacesDestination(agreed);
    QCOMPARE(job.start(), StartOutcome::destinationRefused);
    QCOMPARE(job.state(), JobStateFailed);
    QCOMPARE(bench.alertMessages().size(), 1);
    job.remove();
    QCOMPARE(source(bench), QByteArray(1000, 's'));
    QVERIFY(QFile::exists(info.destinationURL.toLocalFile()));
    QVERIFY(bench.scenario.calls().isEmpty());
    QCOMPARE(bench.inhibitor.held(), 0);
  }

  void theDestinationIsAnothersSource_data() {
    QTest::addColumn<bool>("agreed");
    QTest::newRow("replacing agreed") << true;
    QTest::newRow("a name like others") << false;
  }
  void theDestinationIsAnothersSource() {
    QFETCH(const bool, agreed);
    JobBench bench;
    const QString other = bench.outputPath(u"movie.m4v"_s);
    JobBench::write(other, "to be converted later");
    bench.controller.otherSources = {other};
    ConversionJob &job = bench.addJob();
    job.setReplacesDestination(agreed);
    QCOMPARE(job.start(), agreed ? StartOutcome::destinationRefused : StartOutcome::launched);
    if (!agreed) QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.outputs(), agreed ? QStringList{u"movie.m4v"_s}
                                     : (QStringList{u"movie-0.m4v"_s, u"movie.m4v"_s}));
    QCOMPARE(wholefile::read(other), QByteArray("to be converted later"));
  }

  void theDestinationIsTheSubtitleFile() {
    JobBench bench;
    const QString subtitle = bench.outputPath(u"movie.m4v"_s);
    JobBench::write(subtitle, "1\n00:00:00,000 --> 00:00:01,000\nHello\n");
    MKVFileInfo info = bench.record();
    info.subtitleFileURL = QUrl::fromLocalFile(subtitle);
    ConversionJob &job = bench.addJob(info);
    job.setReplacesDestination(true);
    QCOMPARE(job.start(), StartOutcome::destinationRefused);
    QVERIFY(QFile::exists(subtitle));
  }

  void aFileHasAppearedMeanwhile() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "holiday");
    QCOMPARE(job.start(), StartOutcome::launched);
    QCOMPARE(job.fileInfo().destinationURL.toLocalFile(), bench.outputPath(u"movie-0.m4v"_s));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(wholefile::read(bench.outputPath(u"movie.m4v"_s)), QByteArray("holiday"));
    QCOMPARE(bench.scenario.arguments(u"conversion"_s).first().last(),
             bench.outputPath(u"movie-0.m4v"_s));
    QCOMPARE(bench.notifier.posted.first().path, bench.outputPath(u"movie-0.m4v"_s));
  }

  void aLinkToNowhereHasAppeared() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    QVERIFY(QFile::link(bench.outputPath(u"elsewhere"_s), bench.outputPath(u"movie.m4v"_s)));
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.outputs(), (QStringList{u"movie-0.m4v"_s, u"movie.m4v"_s}));
    QVERIFY(!QFile::exists(bench.outputPath(u"elsewhere"_s)));
  }

  // Somebody makes each name just before the job does.
  void theNameIsTakenAtTheLastMoment() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "first");
    int claims = 0;
    bench.controller.onClaim = [&](const QString &path) {
      if (++claims < 3) JobBench::write(path, "theirs");
    };
    QCOMPARE(job.start(), StartOutcome::launched);
    QCOMPARE(claims, 3);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.outputs(), (QStringList{u"movie-0-0-0.m4v"_s, u"movie-0-0.m4v"_s,
                                           u"movie-0.m4v"_s, u"movie.m4v"_s}));
    QCOMPARE(wholefile::read(bench.outputPath(u"movie-0-0.m4v"_s)), QByteArray("theirs"));
  }

  void everyNameIsTakenAtTheLastMoment() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "first");
    bench.controller.onClaim = [](const QString &path) { JobBench::write(path, "theirs"); };
    QCOMPARE(job.start(), StartOutcome::destinationRefused);
    const QStringList kept = bench.outputs();
    QVERIFY(kept.size() > 2);
    job.remove();
    QCOMPARE(bench.outputs(), kept);
  }

  void agreedReplacementReplaces() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "old");
    job.setReplacesDestination(true);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.outputs(), QStringList{u"movie.m4v"_s});
    QCOMPARE(wholefile::read(bench.outputPath(u"movie.m4v"_s)).size(), 64);
  }

  // A link that is replaced is not followed: what it leads to is not ours.
  void replacingALinkSparesItsTarget() {
    JobBench bench;
    JobBench::write(bench.outputPath(u"target"_s), "somebody's");
    QVERIFY(QFile::link(bench.outputPath(u"target"_s), bench.outputPath(u"movie.m4v"_s)));
    ConversionJob &job = bench.addJob();
    job.setReplacesDestination(true);
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(wholefile::read(bench.outputPath(u"target"_s)), QByteArray("somebody's"));
  }

  void aQueuedJobDeletesNothing() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "holiday");
    job.setReplacesDestination(true);
    job.remove();
    QCOMPARE(wholefile::read(bench.outputPath(u"movie.m4v"_s)), QByteArray("holiday"));
    QCOMPARE(source(bench), QByteArray(1000, 's'));
  }

  void aJobThatNeverRanDeletesNothing() {
    JobBench bench;
    bench.program.setTool({});
    ConversionJob &job = bench.addJob();
    JobBench::write(bench.outputPath(u"movie.m4v"_s), "holiday");
    QCOMPARE(job.start(), StartOutcome::toolMissing);
    job.remove();
    QCOMPARE(wholefile::read(bench.outputPath(u"movie.m4v"_s)), QByteArray("holiday"));
  }

  void aFailedJobDeletesItsOwnFile() {
    JobBench bench;
    bench.scenario.conversion().exit(1);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(bench.outputs(), QStringList{u"movie.m4v"_s});
    job.remove();
    QVERIFY(bench.outputs().isEmpty());
    QCOMPARE(source(bench), QByteArray(1000, 's'));
  }

  void aFailedJobSparesWhatOthersPutThere_data() {
    QTest::addColumn<bool>("sameFile");
    QTest::newRow("another file of that name") << false;
    QTest::newRow("the same file, written to since") << true;
  }
  void aFailedJobSparesWhatOthersPutThere() {
    QFETCH(bool, sameFile);
    JobBench bench;
    bench.scenario.conversion().exit(1);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    const QString path = bench.outputPath(u"movie.m4v"_s);
    if (!sameFile) QVERIFY(QFile::remove(path));
    JobBench::write(path, "repaired by hand");
    job.remove();
    QCOMPARE(wholefile::read(path), QByteArray("repaired by hand"));
  }

  void aRunningJobSparesWhatOthersPutThere_data() {
    QTest::addColumn<bool>("deleted");
    QTest::newRow("where it was moved away from") << false;
    QTest::newRow("where it was deleted") << true;
  }
  void aRunningJobSparesWhatOthersPutThere() {
    QFETCH(bool, deleted);
    JobBench bench;
    bench.scenario.conversion().noDestination().announce(u"running"_s).hang();
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitFor(u"running"_s));
    const QString path = bench.outputPath(u"movie.m4v"_s);
    // A deleted file frees its number, and the next one made is likely to get it.
    QVERIFY(deleted ? QFile::remove(path) : QFile::rename(path, bench.outputPath(u"kept.m4v"_s)));
    JobBench::write(path, "another");
    job.remove();
    ConversionJob::finishStopping();
    QCOMPARE(wholefile::read(path), QByteArray("another"));
    QCOMPARE(QFile::exists(bench.outputPath(u"kept.m4v"_s)), !deleted);
  }

  void aFinishedJobKeepsItsFile() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    job.remove();
    QCOMPARE(bench.outputs(), QStringList{u"movie.m4v"_s});
  }
};

QTEST_GUILESS_MAIN(TestJobNothingLost)
#include "tst_job_nothinglost.moc"
