#include <QCoreApplication>
#include <QRegularExpression>
#include <QSysInfo>
#include <QTest>

#include "JobBench.h"
#include "SmallDisk.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {
const QString noSpaceText =
    u"Movie conversion failed because there is not enough free space left on the destination "
    u"volume. "
    u"Please make sure your harddisk has enough free space before starting conversion"_s;
}

// What the user is told of a run that failed.
class TestJobFailure final : public QObject {
  Q_OBJECT

 private:
  // A job of this record that has failed with this output.
  static ConversionJob &failedJob(JobBench &bench, const QByteArray &output,
                                  const MKVFileInfo &record) {
    bench.scenario.conversion().printError(output).exit(1);
    if (!bench.scenario.write()) qFatal("the scenario cannot be written");
    ConversionJob &job = bench.addJob(record);
    if (job.start() != StartOutcome::launched) qFatal("the job does not start");
    if (!bench.waitForEnd(job) || job.state() != JobStateFailed) qFatal("the job does not fail");
    return job;
  }

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void explainsWhenAsked_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<bool>("builtinSubtitles");
    QTest::addColumn<bool>("subtitleFile");
    QTest::addColumn<FailureKind>("kind");
    QTest::addColumn<QString>("title");
    const QString failed = u"Conversion Failed"_s;
    const QString information = u"Information"_s;
    QTest::newRow("timed out") << QByteArray("out.m4v: Operation timed out\n") << false << false
                               << FailureKind::unreliableDisk << failed;
    QTest::newRow("bad descriptor") << QByteArray("out.m4v: Bad file descriptor\n") << false
                                    << false << FailureKind::unreliableDisk << failed;
    QTest::newRow("damaged") << QByteArray(
                                    "Read error at pos. 1\nError while decoding stream #0:1\n")
                             << false << false << FailureKind::damagedSource << failed;
    QTest::newRow("codec of the video")
        << QByteArray(
               "[mp4] track 0: could not find tag, codec not currently supported in container\n")
        << false << false << FailureKind::videoNotEmbeddable << failed;
    QTest::newRow("embedded subtitles")
        << QByteArray("x\n") << true << true << FailureKind::embeddedSubtitles << information;
    QTest::newRow("subtitle file")
        << QByteArray("x\n") << false << true << FailureKind::subtitleFile << information;
    QTest::newRow("unknown") << QByteArray("x\n") << false << false << FailureKind::unknown
                             << information;
  }
  void explainsWhenAsked() {
    QFETCH(QByteArray, output);
    QFETCH(bool, builtinSubtitles);
    QFETCH(bool, subtitleFile);
    QFETCH(FailureKind, kind);
    QFETCH(QString, title);
    JobBench bench;
    bench.controller.settings.DisableBuiltinSubtitles = !builtinSubtitles;
    MKVFileInfo info = bench.record();
    info.subtitleTrackIDs = {2};
    if (subtitleFile) info.subtitleFileURL = QUrl::fromLocalFile(bench.program.path(u"in/a.srt"_s));
    ConversionJob &job = failedJob(bench, output, info);
    QVERIFY(bench.alertMessages().isEmpty());
    QCOMPARE(job.diagnosis().kind, kind);
    bench.program.presenter().answer(ostrak::secondButton);
    job.reveal();
    QVERIFY(bench.program.presenter().presented.isEmpty());  // not below the handler
    QCOMPARE(bench.alertMessages(), QStringList{job.diagnosis().text});
    const ostrak::Alert alert = bench.program.presenter().presented.first();
    QCOMPARE(alert.title, title);
    QCOMPARE(alert.problemReport, kind == FailureKind::unknown);
    QCOMPARE(alert.subject, bench.program.path(u"in/movie.mkv"_s));
    QVERIFY(bench.revealer.revealed.isEmpty());
    QVERIFY(bench.opener.opened.isEmpty());
  }

  void sendsAProblemReport() {
    JobBench bench;
    ConversionJob &job = failedJob(bench, "a strange & unheard of thing\n", bench.record());
    // Not in the file yet.
    bench.program.library().userDefaults().setValue(u"told"_s, u"at the last moment"_s);
    bench.program.presenter().answer(ostrak::firstButton);
    job.reveal();
    // The job may have left by the time of the answer.
    job.remove();
    bench.jobs.clear();
    QCOMPARE(bench.alertMessages().size(), 1);
    QTRY_COMPARE(bench.opener.opened.size(), 1);
    const QUrl link = bench.opener.opened.first();
    QCOMPARE(link.scheme(), u"mailto"_s);
    const QString text = QUrl::fromPercentEncoding(link.toEncoded());
    const QString app = bench.program.library().appName();
    const QString version = bench.program.library().appVersionString();
    QVERIFY(text.contains(bench.program.library().infoValue(u"FeedbackEmail"_s)));
    QVERIFY(text.contains(app + u" v"_s + version + u" Problem Report"_s));
    QVERIFY(text.contains(u"a strange & unheard of thing"_s));
    QVERIFY(text.contains(u"-progress "_s + bench.services.progressFolder));
    QVERIFY(text.contains(QSysInfo::prettyProductName() + u' ' + QSysInfo::kernelVersion()));
    const QByteArray preferences = wholefile::read(bench.program.library().prefsPath()).toBase64();
    QVERIFY(QByteArray::fromBase64(preferences).contains("at the last moment"));
    QVERIFY(text.contains(QString::fromLatin1(preferences)));
  }

  void noSpaceIsToldAtTheEndAndWhenAsked() {
    JobBench bench;
    ConversionJob &job =
        failedJob(bench, "av_interleaved_write_frame(): No space left on device\n", bench.record());
    QCOMPARE(bench.alertMessages(), QStringList{noSpaceText});
    QCOMPARE(bench.program.presenter().presented.first().title, u"Conversion Failed"_s);
    QCOMPARE(bench.program.presenter().presented.first().buttons, QStringList{u"OK"_s});
    job.reveal();
    QCOMPARE(bench.alertMessages(), (QStringList{noSpaceText, noSpaceText}));
  }

  // A disk that is really full, in the words of the system.
  void aFullDisk() {
    JobBench bench;
    const SmallDisk disk(bench.program.path(u"out"_s));
    bench.scenario.conversion()
        .noDestination()
        .announce(u"running"_s)
        .wait(u"go"_s)
        .destination(4 * 1024 * 1024);
    QVERIFY(bench.scenario.write());
    ConversionJob &job = bench.addJob();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitFor(u"running"_s));
    const QString path = bench.outputPath(u"movie.m4v"_s);
    if (!disk.isThere()) {
      qInfo("no file system may be mounted here: a device that is always full takes its place");
      QVERIFY(QFile::remove(path));
      QVERIFY(QFile::link(u"/dev/full"_s, path));
    }
    QVERIFY(bench.scenario.release(u"go"_s));
    QVERIFY(bench.waitForEnd(job));
    QCOMPARE(job.state(), JobStateFailed);
    QVERIFY(job.jobOutput().contains(u"No space left on device"_s));
    QCOMPARE(job.diagnosis().kind, FailureKind::noSpace);
    QCOMPARE(bench.alertMessages(), QStringList{noSpaceText});
    job.remove();
    // What the run wrote goes; the link is another's.
    QCOMPARE(bench.outputs().size(), disk.isThere() ? 0 : 1);
    QCOMPARE(bench.inhibitor.held(), 0);
  }

  void aSourceThatWasGoneIsExplained() {
    JobBench bench;
    ConversionJob &job = bench.addJob();
    QFile::remove(bench.program.path(u"in/movie.mkv"_s));
    QCOMPARE(job.start(), StartOutcome::sourceRemoved);
    job.reveal();
    QCOMPARE(bench.alertMessages().size(), 2);
    QCOMPARE(bench.alertMessages().last(),
             u"Movie conversion failed because you've removed/renamed the source movie file or "
             u"unmounted it's volume."_s);
  }

  void revealsTheOutputOrTheSource_data() {
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QString>("path");
    QTest::newRow("output") << false << u"out/movie.m4v"_s;
    QTest::newRow("source, with Shift") << true << u"in/movie.mkv"_s;
  }
  void revealsTheOutputOrTheSource() {
    QFETCH(bool, shift);
    QFETCH(QString, path);
    JobBench bench;
    bench.keyboard.shift = shift;
    ConversionJob &job = bench.addJob();
    job.reveal();
    QCOMPARE(job.start(), StartOutcome::launched);
    QVERIFY(bench.waitForEnd(job));
    job.reveal();
    const QString whole = bench.program.path(path);
    QCOMPARE(bench.revealer.revealed, (QStringList{whole, whole}));
    QVERIFY(bench.alertMessages().isEmpty());
  }

  void aFailureKeepsItsOutputAndArguments() {
    JobBench bench;
    ConversionJob &job = failedJob(bench, "it broke\n", bench.record());
    QCOMPARE(job.jobOutput(), u"it broke"_s);
    QCOMPARE(job.arguments(), bench.scenario.arguments(u"conversion"_s).first());
    QCOMPARE(job.stateInfoString(),
             u"Status: Failed   Click the arrow at the right to get more information."_s);
  }
};

QTEST_GUILESS_MAIN(TestJobFailure)
#include "tst_job_failure.moc"
