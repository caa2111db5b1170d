#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

class TestCliConvert final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void runsInOrderNextToTheSources();
  void firstConversionRunsBesideLaterProbes();
  void intoAFolder();
  void nothingIsOverwritten();
  void settingsOfTheRun();
  void storedSettingsThatDoNotCount();
  void audioTrack();
  void namedSubtitle();
  void countsUsages();
  void autoRemoveIsWaitedFor();
};

void TestCliConvert::runsInOrderNextToTheSources() {
  const DecantProgram program;
  for (const auto name : {"b.mkv"_L1, "a.mkv"_L1, "c/c.MP4"_L1})
    program.file(name);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"b.mkv"_s, u"a.mkv"_s, u"./c/c.MP4"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.error, QByteArray());
  QCOMPARE(outcome.texts(u"started"_s, "source"_L1),
           (QStringList{program.path(u"b.mkv"_s), program.path(u"a.mkv"_s),
                        program.path(u"./c/c.MP4"_s)}));
  QCOMPARE(outcome.texts(u"finished"_s, "destination"_L1),
           (QStringList{program.path(u"b.m4v"_s), program.path(u"a.m4v"_s),
                        program.path(u"./c/c.m4v"_s)}));
  QList<int> numbers;
  for (const QJsonObject &event : outcome.events(u"finished"_s))
    numbers.append(event.value("job"_L1).toInt());
  QCOMPARE(numbers, (QList<int>{1, 2, 3}));
  QCOMPARE(outcome.story().last(), u"summary 3 0"_s);
  QVERIFY(program.files().contains(u"c/c.m4v"_s));
}

void TestCliConvert::firstConversionRunsBesideLaterProbes() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
    program.file(name);
  const Scenario scenario = program.scenario();
  // The second probe ends only when the first conversion has begun, and that only after the probe.
  Scenario(scenario)
      .probe(u"b.mkv"_s)
      .wait(u"converting"_s)
      .announce(u"probed"_s)
      .defaultReport()
      .conversion(u"a.mkv"_s)
      .announce(u"converting"_s)
      .wait(u"probed"_s)
      .write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 0);
  const QStringList story = outcome.story();
  QCOMPARE(story.first(2), (QStringList{u"queued 1"_s, u"started 1"_s}));
  QCOMPARE(story.last(), u"summary 2 0"_s);
}

void TestCliConvert::intoAFolder() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"-o"_s, u"new/out/"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.texts(u"finished"_s, "destination"_L1),
           QStringList{program.path(u"new/out/a.m4v"_s)});
  QCOMPARE(program.files(),
           (QStringList{u"a.mkv"_s, u"new/"_s, u"new/out/"_s, u"new/out/a.m4v"_s}));
}

void TestCliConvert::nothingIsOverwritten() {
  const DecantProgram program;
  for (const auto name : {"1/a.mkv"_L1, "2/a.mp4"_L1})
    program.file(name);
  program.file(u"out/a.m4v"_s, "mine");
  const DecantOutcome outcome = program.run(
      {u"convert"_s, u"--json"_s, u"-o"_s, u"out"_s, u"1/a.mkv"_s, u"2/a.mp4"_s, u"out/a.m4v"_s});
  QCOMPARE(outcome.texts(u"finished"_s, "destination"_L1),
           (QStringList{program.path(u"out/a-0.m4v"_s), program.path(u"out/a-1.m4v"_s)}));
  QCOMPARE(wholefile::read(program.path(u"out/a.m4v"_s)), QByteArray("mine"));
}

void TestCliConvert::settingsOfTheRun() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--set"_s, u"DefaultExtension=0"_s, u"--set"_s,
                   u"ProduceStreamableFiles=1"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QVERIFY(program.files().contains(u"a.mp4"_s));
  QVERIFY(program.conversion().contains(u"faststart"_s));
  for (const char *key : {"DefaultExtension", "ProduceStreamable", "InsertJobs", "AutoAdd"})
    QVERIFY2(!program.settings().contains(key), key);
  QCOMPARE(program.run({u"convert"_s, u"a.mkv"_s}).status, 0);
  QVERIFY(program.files().contains(u"a.m4v"_s));
}

void TestCliConvert::storedSettingsThatDoNotCount() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
    program.file(name);
  for (const auto key : {"AutoAdd"_L1, "AutoClean"_L1, "QuitAfterConversion"_L1})
    QCOMPARE(program.run({u"settings"_s, u"set"_s, key, u"1"_s}).status, 0);
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"DefaultDestination"_s, u"1"_s}).status, 0);
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.story().last(), u"summary 2 0"_s);
  QVERIFY(program.settings().contains("AutoClean=1"));
}

void TestCliConvert::audioTrack() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"one.mkv"_s);
  program.scenario()
      .probe(u"/a.mkv"_s)
      .reportText(
          "  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n"
          "  Stream #0:0: Video: h264, yuv420p, 320x240\n"
          "  Stream #0:3(eng): Audio: ac3, 48000 Hz, stereo, fltp\n"
          "  Stream #0:5(ger): Audio: ac3, 48000 Hz, stereo, fltp\n")
      .write();
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"--audio"_s, u"5"_s, u"one.mkv"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story(), (QStringList{u"failed refused"_s, u"queued 1"_s, u"started 1"_s,
                                         u"finished 1"_s, u"summary 1 1"_s}));
  const QJsonObject failed = outcome.events(u"failed"_s).first();
  QCOMPARE(failed.value("source"_L1), program.path(u"one.mkv"_s));
  QVERIFY(failed.value("text"_L1).toString().contains(u"#5"_s));
  QVERIFY(failed.value("text"_L1).toString().contains(u"#1: eng (aac)"_s));
  QVERIFY(program.conversion().contains(u"0:5"_s));
  QVERIFY(!program.conversion().contains(u"0:3"_s));
}

void TestCliConvert::namedSubtitle() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"a.srt"_s);
  program.file(u"other.srt"_s);
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--subtitle"_s, u"other.srt"_s, u"a.srt"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QVERIFY(program.conversion().contains(program.path(u"other.srt"_s)));
  QVERIFY(!program.conversion().contains(program.path(u"a.srt"_s)));
}

void TestCliConvert::countsUsages() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  program.scenario().conversion(u"b.mkv"_s).exit(1).write();
  QCOMPARE(program.run({u"convert"_s, u"a.mkv"_s, u"b.mkv"_s}).status, 1);
  QVERIFY(program.settings().contains("\nconvertedFileCount=2"));
  QVERIFY(program.settings().contains("\nostrak_usages=2"));
}

void TestCliConvert::autoRemoveIsWaitedFor() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
    program.file(name);
  // Only the output of the first is as long as its source.
  program.scenario()
      .probe(u"b.m4v"_s)
      .reportText("  Duration: 00:00:01.00, start: 0.0, bitrate: 1 kb/s\n")
      .write();
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--set"_s, u"AutoRemove=1"_s, u"--set"_s, u"AutoRemoveType=1"_s,
                   u"a.mkv"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(program.files(), (QStringList{u"a.m4v"_s, u"b.m4v"_s, u"b.mkv"_s}));
}

QTEST_GUILESS_MAIN(TestCliConvert)
#include "tst_cli_convert.moc"
