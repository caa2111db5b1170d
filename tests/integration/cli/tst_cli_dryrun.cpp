#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

namespace {

QStringList argumentsOf(const QJsonObject &object) {
  return object.value("arguments"_L1).toVariant().toStringList();
}

}  // namespace

class TestCliDryRun final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void argumentsAreThoseOfAConversion_data();
  void argumentsAreThoseOfAConversion();
  void json();
  void withoutAudio();
  void refused();
  void claimedNames();
  void fixupTest();
  void writesNothing();
  void roomAndRightsAreNotChecked();
  void shellLines();
};

void TestCliDryRun::argumentsAreThoseOfAConversion_data() {
  QTest::addColumn<QStringList>("options");
  QTest::newRow("plain") << QStringList{};
  QTest::newRow("into a folder") << QStringList{u"-o"_s, u"out"_s};
  QTest::newRow("settings") << QStringList{u"--set"_s, u"ConversionPreset=1"_s,
                                           u"--set"_s, u"AudioVolume=150"_s,
                                           u"--set"_s, u"ProduceStreamableFiles=1"_s};
  QTest::newRow("copied aac") << QStringList{u"--set"_s, u"ConversionPreset=1"_s, u"--audio"_s,
                                             u"2"_s};
  QTest::newRow("subtitle") << QStringList{u"--subtitle"_s, u"s.srt"_s};
}

void TestCliDryRun::argumentsAreThoseOfAConversion() {
  QFETCH(const QStringList, options);
  const DecantProgram program;
  program.file(u"a b.mkv"_s);
  program.file(u"s.srt"_s);
  program.scenario()
      .probe()
      .reportText(
          "  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n"
          "  Stream #0:0: Video: hevc, yuv420p, 320x240\n"
          "  Stream #0:1(eng): Audio: dts, 96000 Hz, 5.1(side), fltp\n"
          "  Stream #0:2(ger): Audio: aac, 48000 Hz, stereo, fltp\n")
      .fixup()
      .printError(
          "Malformed AAC bitstream detected: use the audio bitstream filter "
          "'aac_adtstoasc' to fix it ('-bsf:a aac_adtstoasc' option with ffmpeg)\n")
      .exit(1)
      .write();
  const QStringList files{u"a b.mkv"_s};
  const DecantOutcome dry =
      program.run(QStringList{u"convert"_s, u"--dry-run"_s, u"--json"_s} + options + files);
  QCOMPARE(dry.status, 0);
  QCOMPARE(program.scenario().arguments(u"conversion"_s).size(), 0);
  QCOMPARE(program.run(QStringList{u"convert"_s} + options + files).status, 0);
  QCOMPARE(argumentsOf(dry.objects().first()),
           program.scenario().arguments(u"conversion"_s).first());
}

void TestCliDryRun::json() {
  const DecantProgram program;
  const QString source = program.file(u"a.mkv"_s);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--dry-run"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(outcome.objects().size(), 1);
  const QJsonObject object = outcome.objects().first();
  QCOMPARE(object.keys(), (QStringList{u"arguments"_s, u"audioTrackIndex"_s, u"destination"_s,
                                       u"fastmode"_s, u"method"_s, u"source"_s}));
  QCOMPARE(object.value("source"_L1), source);
  QCOMPARE(object.value("destination"_L1), program.path(u"a.m4v"_s));
  QCOMPARE(object.value("method"_L1), 3);
  QCOMPARE(object.value("fastmode"_L1), true);
  QCOMPARE(object.value("audioTrackIndex"_L1), 0);
  QVERIFY(argumentsOf(object).contains(program.supportFolder() + u"/Documents/a.mkv.log"_s));
  QCOMPARE(argumentsOf(object).last(), program.path(u"a.m4v"_s));
}

void TestCliDryRun::withoutAudio() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario()
      .probe()
      .reportText(
          "  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n"
          "  Stream #0:0: Video: h264, yuv420p, 320x240\n")
      .write();
  const QJsonObject object =
      program.run({u"convert"_s, u"--dry-run"_s, u"--json"_s, u"a.mkv"_s}).objects().first();
  QVERIFY(object.contains(u"method"_s) && object.value("method"_L1).isNull());
  QVERIFY(object.contains(u"audioTrackIndex"_s) && object.value("audioTrackIndex"_L1).isNull());
  QCOMPARE(object.value("fastmode"_L1), false);
}

void TestCliDryRun::refused() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"notes.txt"_s);
  const QStringList files{u"gone.mkv"_s, u"notes.txt"_s, u"a.mkv"_s};
  const DecantOutcome outcome =
      program.run(QStringList{u"convert"_s, u"--dry-run"_s, u"--json"_s} + files);
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.error, QByteArray());
  const QList<QJsonObject> objects = outcome.objects();
  QCOMPARE(objects.size(), 3);
  QCOMPARE(objects.at(0).keys(), (QStringList{u"error"_s, u"source"_s}));
  QCOMPARE(objects.at(0).value("source"_L1), program.path(u"gone.mkv"_s));
  const QJsonObject error = objects.at(0).value("error"_L1).toObject();
  QCOMPARE(error.keys(), (QStringList{u"kind"_s, u"text"_s, u"title"_s}));
  QCOMPARE(error.value("kind"_L1), u"refused"_s);
  QVERIFY(objects.at(2).contains(u"arguments"_s));
  const DecantOutcome people = program.run(QStringList{u"convert"_s, u"--dry-run"_s} + files);
  QCOMPARE(people.status, 1);
  QCOMPARE(people.output.count('\n'), 1);
  QCOMPARE(people.error.count('\n'), 2);
}

void TestCliDryRun::claimedNames() {
  const DecantProgram program;
  program.file(u"1/a.mkv"_s);
  program.file(u"2/a.mkv"_s);
  program.file(u"out/a-0.m4v"_s);
  const DecantOutcome outcome = program.run(
      {u"convert"_s, u"--dry-run"_s, u"--json"_s, u"-o"_s, u"out"_s, u"1/a.mkv"_s, u"2/a.mkv"_s});
  QCOMPARE(outcome.objects().at(0).value("destination"_L1), program.path(u"out/a.m4v"_s));
  QCOMPARE(outcome.objects().at(1).value("destination"_L1), program.path(u"out/a-1.m4v"_s));
}

void TestCliDryRun::fixupTest() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  QCOMPARE(program.run({u"convert"_s, u"--dry-run"_s, u"a.mkv"_s}).status, 0);
  const QList<QStringList> tests = program.scenario().arguments(u"fixup"_s);
  QCOMPARE(tests.size(), 1);
  QVERIFY2(tests.first().last().startsWith(program.tempFolder()), qPrintable(tests.first().last()));
  QVERIFY(
      QDir(program.tempFolder()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden));
}

void TestCliDryRun::writesNothing() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  const QStringList before = program.files();
  QCOMPARE(program.run({u"convert"_s, u"--dry-run"_s, u"-o"_s, u"new"_s, u"a.mkv"_s}).status, 0);
  QCOMPARE(program.files(), before);
  QVERIFY(!QFileInfo::exists(program.settingsFile()));
  // Folders of the program's own may be made, as long as they stay empty.
  QDirIterator own(program.supportFolder(), QDir::Files | QDir::Hidden,
                   QDirIterator::Subdirectories);
  QVERIFY(!own.hasNext());
}

void TestCliDryRun::roomAndRightsAreNotChecked() {
  const DecantProgram program;
  program.file(u"large.mkv"_s, QByteArray(2048 * 1024, 'x'));
  program.file(u"file"_s);
  const DecantOutcome outcome =
      program.shell("ulimit -f 1024; $decant convert --dry-run --json -o file large.mkv");
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.objects().first().value("destination"_L1), program.path(u"file/large.m4v"_s));
}

void TestCliDryRun::shellLines() {
  const DecantProgram program;
  program.file(u"it's 1.mkv"_s);
  program.file(u"two\nlines.mkv"_s);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--dry-run"_s, u"it's 1.mkv"_s, u"two\nlines.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.output.count('\n'), 2);
  // What it prints does what a conversion does.
  QCOMPARE(program.shell(outcome.output).status, 0);
  const QStringList made = program.files();
  QVERIFY(made.contains(u"it's 1.m4v"_s) && made.contains(u"two\nlines.m4v"_s));
}

QTEST_GUILESS_MAIN(TestCliDryRun)
#include "tst_cli_dryrun.moc"
