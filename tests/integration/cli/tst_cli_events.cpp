#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

class TestCliEvents final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void progress();
  void timeLeftIsHeldBackAtFirst();
  void progressOfUnknownLength();
  void failuresOfARun_data();
  void failuresOfARun();
  void alertsBelongToTheirFile();
  void sourceThatIsCutOffIsTold();
  void silencedAlertsStaySilent();
  void refusedFiles();
  void brokenReportIsToldOnce();
  void plainFailure();
};

void TestCliEvents::progress() {
  const DecantProgram program;
  const QString source = program.file(u"a.mkv"_s);
  program.scenario().conversion().progressAt(25).wait(u"go"_s).write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QByteArray early;
  // Each event is there when it happens.
  QTRY_VERIFY_WITH_TIMEOUT((early += process->readAllStandardOutput()).contains("progress"), 30000);
  QVERIFY(program.scenario().release(u"go"_s));
  DecantOutcome outcome = DecantProgram::end(*process);
  outcome.output.prepend(early);
  QCOMPARE(outcome.status, 0);
  const QJsonObject event = outcome.events(u"progress"_s).first();
  QCOMPARE(event.value("percent"_L1), 25);
  QVERIFY(event.value("etaSeconds"_L1).isDouble());
  QCOMPARE(event.value("job"_L1), 1);
  QCOMPARE(event.value("source"_L1), source);
  const QJsonObject finished = outcome.events(u"finished"_s).first();
  QVERIFY(finished.value("seconds"_L1).toDouble() > 0);
}

void TestCliEvents::timeLeftIsHeldBackAtFirst() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario()
      .conversion()
      .progressAt(0.5)
      .wait(u"first"_s)
      .progressAt(1)
      .wait(u"second"_s)
      .write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  DecantOutcome outcome;
  for (const auto &step : {u"first"_s, u"second"_s}) {
    const qsizetype before = outcome.events(u"progress"_s).size();
    QTRY_VERIFY_WITH_TIMEOUT((outcome.output += process->readAllStandardOutput(),
                              outcome.events(u"progress"_s).size() > before),
                             30000);
    QVERIFY(program.scenario().release(step));
  }
  QCOMPARE(DecantProgram::end(*process).status, 0);
  const QList<QJsonObject> events = outcome.events(u"progress"_s);
  QCOMPARE(events.at(0).value("percent"_L1), 0.5);
  QVERIFY(events.at(0).value("etaSeconds"_L1).isNull());
  QCOMPARE(events.at(1).value("percent"_L1), 1);
  QVERIFY(events.at(1).value("etaSeconds"_L1).isDouble());
}

void TestCliEvents::progressOfUnknownLength() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario()
      .probe()
      .reportText("  Stream #0:0: Video: h264, yuv420p, 320x240\n")
      .conversion()
      .progressAt(25)
      .wait(u"go"_s)
      .write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QByteArray early;
  QTRY_VERIFY_WITH_TIMEOUT((early += process->readAllStandardOutput()).contains("progress"), 30000);
  QVERIFY(program.scenario().release(u"go"_s));
  DecantOutcome outcome = DecantProgram::end(*process);
  outcome.output.prepend(early);
  const QJsonObject event = outcome.events(u"progress"_s).first();
  QVERIFY(event.contains(u"percent"_s) && event.value("percent"_L1).isNull());
  QVERIFY(event.contains(u"etaSeconds"_s) && event.value("etaSeconds"_L1).isNull());
}

void TestCliEvents::failuresOfARun_data() {
  QTest::addColumn<QByteArray>("printed");
  QTest::addColumn<int>("status");
  QTest::addColumn<QString>("kind");
  QTest::addColumn<QString>("title");
  const QString failed = u"Conversion Failed"_s;
  QTest::newRow("full disk") << QByteArray(
                                    "av_interleaved_write_frame(): No space left on device\n")
                             << 1 << u"noSpace"_s << failed;
  QTest::newRow("bad disk") << QByteArray("Operation timed out\n") << 1 << u"unreliableDisk"_s
                            << failed;
  QTest::newRow("damaged") << QByteArray("Read error at pos. 1\nError while decoding stream #0:0\n")
                           << 1 << u"damagedSource"_s << failed;
  QTest::newRow("video") << QByteArray(
                                "Could not find tag for codec vp9 in stream #0, codec not "
                                "currently supported in container\n")
                         << 1 << u"videoNotEmbeddable"_s << failed;
  QTest::newRow("trailer") << QByteArray(
                                  "Error writing trailer of a.m4v: No space left on device\n")
                           << 0 << u"noSpace"_s << failed;
  QTest::newRow("unknown") << QByteArray("Something odd\n") << 1 << u"unknown"_s
                           << u"Information"_s;
}

void TestCliEvents::failuresOfARun() {
  QFETCH(const QByteArray, printed);
  QFETCH(const int, status);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  program.scenario().conversion(u"a.mkv"_s).printError(printed).exit(status).write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 1);
  // Told once: the alert that the window would show at once has the same words.
  QCOMPARE(outcome.events(u"failed"_s).size(), 1);
  QCOMPARE(outcome.events(u"alert"_s).size(), 0);
  const QJsonObject failed = outcome.events(u"failed"_s).first();
  QTEST(failed.value("kind"_L1).toString(), "kind");
  QTEST(failed.value("title"_L1).toString(), "title");
  QVERIFY(!failed.value("text"_L1).toString().isEmpty());
  QCOMPARE(failed.value("job"_L1), 1);
  QCOMPARE(outcome.story().last(), u"summary 1 1"_s);
  // What a failed run has left goes.
  QCOMPARE(program.files(), (QStringList{u"a.mkv"_s, u"b.m4v"_s, u"b.mkv"_s}));
  QCOMPARE(outcome.error, QByteArray());
}

void TestCliEvents::alertsBelongToTheirFile() {
  const DecantProgram program;
  const QString source = program.file(u"a.mkv"_s);
  program.scenario()
      .probe()
      .reportText(
          "  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n"
          "  Stream #0:0: Video: hevc, yuv420p, 3840x2160\n")
      .write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 0);
  const QList<QJsonObject> alerts = outcome.events(u"alert"_s);
  QStringList identifiers;
  for (const QJsonObject &alert : alerts) {
    identifiers.append(alert.value("identifier"_L1).toString());
    QCOMPARE(alert.value("job"_L1), 1);
    QCOMPARE(alert.value("source"_L1), source);
    QCOMPARE(alert.value("title"_L1), u"Warning"_s);
    QVERIFY(alert.value("message"_L1).toString().contains(u"a.mkv"_s));
  }
  QCOMPARE(identifiers, (QStringList{u"wrongvideowarning"_s, u"warningtoohighres"_s}));
  QCOMPARE(outcome.story().first(), u"queued 1"_s);
  QCOMPARE(outcome.story().last(), u"summary 1 0"_s);
  QVERIFY(!program.settings().contains("_asked=1"));
}

void TestCliEvents::sourceThatIsCutOffIsTold() {
  const DecantProgram program;
  const QString source = program.file(u"a.mkv"_s);
  program.scenario()
      .conversion()
      .printError("[mov,mp4 @ 0x1] stream 0, offset 0xd12d: partial file\n")
      .exit(0)
      .write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 0);
  const QList<QJsonObject> alerts = outcome.events(u"alert"_s);
  QCOMPARE(alerts.size(), 1);
  QCOMPARE(alerts.first().value("identifier"_L1), u"incompletesourcewarning"_s);
  QCOMPARE(alerts.first().value("source"_L1), source);
  QVERIFY(alerts.first().value("message"_L1).toString().contains(u"'a.mkv' is incomplete"_s));
  QCOMPARE(outcome.events(u"finished"_s).size(), 1);
}

void TestCliEvents::silencedAlertsStaySilent() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  {
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"_wrongvideowarning_0.1.0_asked"_s, 1);
  }
  program.scenario()
      .probe()
      .reportText(
          "  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n"
          "  Stream #0:0: Video: hevc, yuv420p, 320x240\n")
      .write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(outcome.events(u"alert"_s).size(), 0);
}

void TestCliEvents::refusedFiles() {
  const DecantProgram program;
  for (const auto name : {"vp9.mkv"_L1, "text.mkv"_L1, "notes.txt"_L1, "good.mkv"_L1})
    program.file(name);
  program.scenario()
      .probe(u"vp9.mkv"_s)
      .reportText(
          "  Duration: 00:00:10.00, start: 0.0, bitrate: 1 kb/s\n"
          "  Stream #0:0: Video: hevc, yuv420p, 320x240\n"
          "  Stream #0:1: Video: vp9, yuv420p, 320x240\n")
      .probe(u"text.mkv"_s)
      .printError("@INPUT@: Invalid data found when processing input\n")
      .write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"vp9.mkv"_s, u"text.mkv"_s,
                                             u"gone.mkv"_s, u"notes.txt"_s, u"good.mkv"_s});
  QCOMPARE(outcome.status, 1);
  // The warning that came before the refusal is told, too, but no refusal twice; no number is used
  // up.
  QCOMPARE(outcome.story(),
           (QStringList{u"failed refused"_s, u"alert wrongvideowarning"_s, u"failed refused"_s,
                        u"failed refused"_s, u"failed refused"_s, u"queued 1"_s, u"started 1"_s,
                        u"finished 1"_s, u"summary 1 4"_s}));
  const QList<QJsonObject> failed = outcome.events(u"failed"_s);
  QVERIFY(failed.at(0).value("text"_L1).toString().contains(u"invalid video codec (vp9)"_s));
  QVERIFY(failed.at(1).value("text"_L1).toString().contains(u"valid MKV"_s));
  QVERIFY(failed.at(2).value("text"_L1).toString().contains(u"gone.mkv"_s));
  QVERIFY(failed.at(3).value("text"_L1).toString().contains(u"webm"_s));
  QCOMPARE(failed.at(3).value("source"_L1), program.path(u"notes.txt"_s));
  for (const QJsonObject &event : failed)
    QVERIFY(!event.contains(u"job"_s));
}

void TestCliEvents::brokenReportIsToldOnce() {
  const DecantProgram program;
  program.file(u"odd.mkv"_s);
  program.file(u"good.mkv"_s);
  program.scenario()
      .probe(u"odd.mkv"_s)
      .reportText("  Duration: 00:00:10.00\n  Stream #0:0: Video: h264\n")
      .write();
  const DecantOutcome outcome =
      program.run({u"convert"_s, u"--json"_s, u"odd.mkv"_s, u"good.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story(), (QStringList{u"failed refused"_s, u"queued 1"_s, u"started 1"_s,
                                         u"finished 1"_s, u"summary 1 1"_s}));
  QVERIFY(outcome.events(u"failed"_s).first().value("text"_L1).toString().contains(u"odd.mkv"_s));
}

void TestCliEvents::plainFailure() {
  const DecantProgram program;
  const QByteArray a = program.file(u"a.mkv"_s).toUtf8();
  const QByteArray notes = program.file(u"notes.txt"_s).toUtf8();
  program.scenario().conversion().printError("No space left on device\n").exit(1).write();
  const DecantOutcome outcome = program.run({u"convert"_s, u"notes.txt"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 1);
  const QByteArray lines = "1 " + a + ": started\n1 " + a + ": failed\n";
  QCOMPARE(outcome.output, lines);
  const QList<QByteArray> told = outcome.error.split('\n');
  QCOMPARE(told.size(), 3);
  QVERIFY(told.at(0).contains(notes));
  const QByteArray about = "decant: " + a + ": Movie conversion failed because there is not enough";
  QVERIFY2(told.at(1).startsWith(about), told.at(1).constData());
}

QTEST_GUILESS_MAIN(TestCliEvents)
#include "tst_cli_events.moc"
