#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "BuildTree.h"
#include "Dispatch.h"
#include "Exceptions.h"
#include "Probe.h"
#include "Samples.h"
#include "Scenario.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using decant::probeFile;
using decant::ProbeRun;

// What cannot be probed, with which tool, and how people are told.
class TestProbeRefusals final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup() { m_program.reset(); }
  void notAFile_data();
  void notAFile();
  void unreadableFile();
  void notAMovie_data();
  void notAMovie();
  void linksAreFollowed();
  void exitStatusIsIgnored();
  void argumentsAreExactlyTwo();
  void malformedReportThrows();
  void initWithURLTellsWhy();
  void initWithURLGivesTheRecord();
  void silencedAlertsAreListedButNotShown();
  void heAacSettingIsRead();
  void refusedProcessExits();
  void quittingEndsTheEventLoop();

 private:
  // The scripted tool prints this report at every call.
  void playReport(const QByteArray &report, int exitStatus = 1);

  std::unique_ptr<ScratchProgram> m_program;
};

namespace {

constexpr char goodReport[] =
    "Input #0, matroska,webm, from '@INPUT@':\n"
    "  Duration: 00:01:00.00, start: 0.000000, bitrate: 100 kb/s\n"
    "  Stream #0:0: Video: h264 (High 10), yuv420p10le, 3840x2160, 25 fps\n"
    "  Stream #0:1(eng): Audio: aac (HE-AAC), 48000 Hz, stereo, fltp\n";

ProbeRun probed(const QString &path) {
  return probeFile(QUrl::fromLocalFile(path), {});
}

QString messageOf(const ProbeRun &run) {
  return run.outcome.alerts.size() == 1 ? run.outcome.alerts.first().alert.message : QString();
}

// On a worker thread, as intake does it.
std::optional<decant::MKVFileInfo> initOnWorker(const QString &path) {
  std::optional<decant::MKVFileInfo> record;
  ostrak::dispatch_sync_back([&] { record = decant::initWithURL(QUrl::fromLocalFile(path)); });
  return record;
}

}  // namespace

void TestProbeRefusals::init() {
  QTest::failOnWarning(QRegularExpression(u"."_s));
  m_program = std::make_unique<ScratchProgram>(samples::ffmpegPath());
}

void TestProbeRefusals::playReport(const QByteArray &report, int exitStatus) {
  m_program->setTool(buildtree::scriptedTool());
  Scenario scenario(m_program->toolPath() + u".scenario"_s);
  scenario.any().printError(report).exit(exitStatus);
  QVERIFY(scenario.write());
}

void TestProbeRefusals::notAFile_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<QString>("part");
  const QString folder = samples::newFolder();
  const QString fifo = samples::newFolder() + u"/fifo.mkv"_s;
  const QString loop = samples::newFolder() + u"/loop.mkv"_s;
  QCOMPARE(::mkfifo(qUtf8Printable(fifo), 0600), 0);
  QCOMPARE(::symlink(qUtf8Printable(loop), qUtf8Printable(loop)), 0);
  const QString fifoLink = samples::newFolder() + u"/link.mkv"_s;
  QVERIFY(QFile::link(fifo, fifoLink));

  QTest::newRow("missing") << QString(folder + u"/gone.mkv"_s)
                           << u"The file 'gone.mkv' does not exist."_s;
  QTest::newRow("missing folder") << u"/nowhere/at all/a.mkv"_s
                                  << u"The file 'a.mkv' does not exist."_s;
  QTest::newRow("below a file") << QString(samples::write(u"f"_s, "x") + u"/a.mkv"_s)
                                << u"The file 'a.mkv' does not exist."_s;
  QTest::newRow("name too long") << QString(folder + u'/' + QString(300, u'x'))
                                 << u"xxx' does not exist."_s;
  QTest::newRow("link to itself") << loop << u"The file 'loop.mkv' does not exist."_s;
  QTest::newRow("folder") << folder << u" is a folder."_s;
  QTest::newRow("folder with a slash") << QString(folder + u'/') << u" is a folder."_s;
  QTest::newRow("FIFO") << fifo << u"'fifo.mkv' is not a regular file."_s;
  QTest::newRow("link to a FIFO") << fifoLink << u"'link.mkv' is not a regular file."_s;
  QTest::newRow("device") << u"/dev/zero"_s << u"'zero' is not a regular file."_s;
}

void TestProbeRefusals::notAFile() {
  QFETCH(QString, path);
  QFETCH(QString, part);
  const ProbeRun run = probed(path);
  QVERIFY(!run.outcome.record);
  QVERIFY2(messageOf(run).contains(part), qUtf8Printable(messageOf(run)));
  QCOMPARE(run.outcome.alerts.first().alert.subject, path);
  QVERIFY(run.outcome.alerts.first().alert.identifier.isNull());
  QVERIFY(!run.toolMissing && !run.processRefused);
}

void TestProbeRefusals::unreadableFile() {
  const QString path = samples::write(u"locked.mkv"_s, "x");
  QCOMPARE(::chmod(qUtf8Printable(path), 0), 0);
  const uid_t user = ::geteuid();
  // Nothing is locked for the superuser.
  constexpr uid_t nobody = 65534;
  if (user == 0) QCOMPARE(::seteuid(nobody), 0);
  const auto restore = qScopeGuard([user] { QCOMPARE(::seteuid(user), 0); });
  const ProbeRun run = probed(path);
  QVERIFY(!run.outcome.record);
  QVERIFY2(messageOf(run).startsWith(u"The file 'locked.mkv' cannot be read."_s),
           qUtf8Printable(messageOf(run)));
}

void TestProbeRefusals::notAMovie_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::newRow("empty") << QByteArray();
  QTest::newRow("text") << QByteArray("This is no movie.\n");
  QTest::newRow("text like a report") << QByteArray(goodReport);
  QTest::newRow("zeros") << QByteArray(100'000, '\0');
}

void TestProbeRefusals::notAMovie() {
  QFETCH(QByteArray, bytes);
  const ProbeRun run = probed(samples::write(u"a b.mkv"_s, bytes));
  QVERIFY(!run.outcome.record);
  QVERIFY2(messageOf(run).startsWith(
               u"Warning: the file 'a b.mkv' doesn't seem to be a valid MKV and can't"_s),
           qUtf8Printable(messageOf(run)));
}

void TestProbeRefusals::linksAreFollowed() {
  const QString link = samples::newFolder() + u"/link.mkv"_s;
  QVERIFY(QFile::link(samples::make({}), link));
  const ProbeRun run = probed(link);
  QVERIFY(run.outcome.record);
  QCOMPARE(run.outcome.record->fileName, u"link.mkv"_s);
  QVERIFY(run.outcome.record->fileSize > 1000);
}

void TestProbeRefusals::exitStatusIsIgnored() {
  for (const int status : {0, 1, 255}) {
    playReport(goodReport, status);
    QVERIFY(probed(samples::write(u"a.mkv"_s, "x")).outcome.record);
  }
}

void TestProbeRefusals::argumentsAreExactlyTwo() {
  playReport(goodReport);
  const QString path = samples::write(u"-two\n words.mkv"_s, "x");
  QVERIFY(probed(path).outcome.record);
  const Scenario scenario(m_program->toolPath() + u".scenario"_s);
  QCOMPARE(scenario.calls().size(), 1);
  QCOMPARE(scenario.calls().first().value(u"arguments"_s).toVariant().toStringList(),
           (QStringList{u"-i"_s, path}));
}

void TestProbeRefusals::malformedReportThrows() {
  playReport("  Duration: 00:01:00.00, start: 0\n");
  const QString path = samples::write(u"a.mkv"_s, "x");
  QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)probed(path));
  QVERIFY_THROWS_EXCEPTION(ostrak::RangeError,
                           (void)decant::initWithURL(QUrl::fromLocalFile(path)));
  QVERIFY(m_program->presenter().presented.isEmpty());
}

void TestProbeRefusals::initWithURLTellsWhy() {
  QVERIFY(!initOnWorker(samples::write(u"text.mkv"_s, "no movie")));
  QTRY_COMPARE(m_program->presenter().presented.size(), 1);
  QVERIFY(m_program->presenter().presented.first().message.contains(u"'text.mkv' doesn't seem"_s));
  QCOMPARE(m_program->presenter().presented.first().buttons, QStringList{u"OK"_s});
}

void TestProbeRefusals::initWithURLGivesTheRecord() {
  playReport(goodReport);
  const auto record = initOnWorker(samples::write(u"a.mkv"_s, "x"));
  QVERIFY(record);
  QCOMPARE(record->runtimeSeconds, std::optional<int>(60));
  QCOMPARE(record->audioTrackInformation.first().text, u"#1: eng (aac)"_s);
  auto &presented = m_program->presenter().presented;
  QTRY_COMPARE(presented.size(), 2);
  QCOMPARE(presented[0].identifier, u"10bitvideowarning"_s);
  QCOMPARE(presented[1].identifier, u"warningtoohighres"_s);
  QCOMPARE(presented[1].checkboxTitle, u"Don't warn again"_s);
}

void TestProbeRefusals::silencedAlertsAreListedButNotShown() {
  playReport(goodReport);
  m_program->presenter().setWhileShown([](ostrak::Alert &alert) {
    if (alert.identifier == u"10bitvideowarning") alert.value = 1;
  });
  const QString path = samples::write(u"a.mkv"_s, "x");
  QVERIFY(initOnWorker(path));
  auto &presented = m_program->presenter().presented;
  QTRY_COMPARE(presented.size(), 2);

  const ProbeRun again = probed(path);
  QCOMPARE(again.outcome.alerts.size(), 2);
  decant::raiseAlerts(again.outcome.alerts);
  QCOMPARE(presented.size(), 2);
  QTRY_COMPARE(presented.size(), 3);
  QCOMPARE(presented[2].identifier, u"warningtoohighres"_s);
}

void TestProbeRefusals::heAacSettingIsRead() {
  playReport(goodReport);
  ostrak::tk->userDefaults().setOverride(u"HEAACConvert"_s, 1);
  const auto record = initOnWorker(samples::write(u"a.mkv"_s, "x"));
  QCOMPARE(record->audioTrackInformation.first().text, u"#1: eng (he-aac)"_s);
  QTRY_COMPARE(m_program->presenter().presented.size(), 2);
}

void TestProbeRefusals::refusedProcessExits() {
  ProbeRun run;
  run.processRefused = true;
  run.outcome.alerts = {{.alert = ostrak::apptitledAlert(u"posix_spawn"_s, {u"Exit"_s})}};
  QList<int> statuses;
  decant::raiseAlerts(run, [&statuses](int status) { statuses.append(status); });
  QVERIFY(m_program->presenter().presented.isEmpty());
  QTRY_COMPARE(statuses, QList<int>{0});
  QCOMPARE(m_program->presenter().presented.size(), 1);
}

void TestProbeRefusals::quittingEndsTheEventLoop() {
  ostrak::dispatch_async_main([] { decant::quitProgram(3); });
  QCOMPARE(QCoreApplication::exec(), 3);
}

QTEST_GUILESS_MAIN(TestProbeRefusals)
#include "tst_proberefusals.moc"
