#include <sys/stat.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QTest>
#include <QUrl>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

namespace {

// In the manner of ffmpeg 5.1.
QByteArray reportWith(const QByteArray &streams) {
  return "Input #0, matroska,webm, from '@INPUT@':\n"
         "  Duration: 01:52:07.46, start: 0.000000, bitrate: 9871 kb/s\n" +
         streams;
}

const QByteArray largeFilm =
    "  Stream #0:0: Video: hevc (Main), yuv420p(tv), 3840x2160, 24 fps (default)\n"
    "  Stream #0:1(ger): Audio: dts (DTS), 48000 Hz, 5.1(side), fltp, 1536 kb/s\n"
    "  Stream #0:2(eng): Audio: ac3, 44100 Hz, stereo, fltp, 192 kb/s (default)\n"
    "  Stream #0:3(eng): Subtitle: subrip\n"
    "  Stream #0:4(eng): Subtitle: hdmv_pgs_subtitle\n";

QByteArray messageOf(const QJsonObject &object) {
  const QJsonArray alerts = object.value("alerts"_L1).toArray();
  return alerts.last().toObject().value("message"_L1).toString().toUtf8();
}

}  // namespace

class TestCliProbe final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void tellsEverything();
  void bestTrackFollowsTheLanguages_data();
  void bestTrackFollowsTheLanguages();
  void unknowns();
  void silencedAlertsAreListed();
  void refusedFilesInOrder();
  void anyExtension();
  void oddNames_data();
  void oddNames();
  void invalidNames();
  void unreadable();
  void brokenReport();
  void missingTool_data();
  void missingTool();
  void forPeople();
};

void TestCliProbe::tellsEverything() {
  const DecantProgram program;
  const QString source = program.file(u"Film 1.mkv"_s, QByteArray(1234, 'x'));
  program.scenario().probe().reportText(reportWith(largeFilm)).write();
  const DecantOutcome outcome = program.run({u"probe"_s, u"--json"_s, u"./Film 1.mkv"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.error, QByteArray());
  QCOMPARE(outcome.objects().size(), 1);
  const QJsonObject object = outcome.objects().first();
  QCOMPARE(object.value("file"_L1), u"./Film 1.mkv"_s);
  QCOMPARE(object.value("ok"_L1), true);
  QCOMPARE(object.value("bestAudioTrack"_L1), 1);
  const QJsonObject record = object.value("record"_L1).toObject();
  QCOMPARE(record.value("fileName"_L1), u"Film 1.mkv"_s);
  QString url = u"file://"_s + program.path(u"./Film%201.mkv"_s);
  QCOMPARE(record.value("fileURL"_L1), url);
  QCOMPARE(record.value("fileSize"_L1), 1234);
  QCOMPARE(record.value("runtimeSeconds"_L1), 6727);
  QCOMPARE(record.value("videoTrackID"_L1), 0);
  QCOMPARE(record.value("subtitleTrackIDs"_L1), QJsonArray{3});
  QCOMPARE(record.value("audioTrackInformation"_L1),
           (QJsonArray{QJsonObject{{u"text"_s, u"#1: ger (dts) [5.1]"_s}, {u"HZ"_s, 48000}},
                       QJsonObject{{u"text"_s, u"#2: eng (ac3)"_s}, {u"HZ"_s, 44100}}}));
  QCOMPARE(record.value("informationString"_L1),
           u"Duration: 01:52:07  Bitrate: 9871 kb/s  Resolution: 3840x2160  Audiotracks: 2 (2)"_s);
  QStringList identifiers;
  for (const auto &alert : object.value("alerts"_L1).toArray())
    identifiers.append(alert.toObject().value("identifier"_L1).toString());
  QCOMPARE(identifiers, (QStringList{u"wrongvideowarning"_s, u"warningtoohighres"_s}));
}

void TestCliProbe::bestTrackFollowsTheLanguages_data() {
  QTest::addColumn<QString>("LANGUAGE");
  QTest::addColumn<QString>("LANG");
  QTest::addColumn<int>("best");
  QTest::newRow("German first") << u"de:en"_s << u"C"_s << 0;
  QTest::newRow("LANG") << QString() << u"de_DE.UTF-8"_s << 0;
  QTest::newRow("none") << QString() << u"C"_s << 1;
}

void TestCliProbe::bestTrackFollowsTheLanguages() {
  QFETCH(const QString, LANGUAGE);
  QFETCH(const QString, LANG);
  QFETCH(const int, best);
  DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario().probe().reportText(reportWith(largeFilm)).write();
  program.environment().insert(u"LANG"_s, LANG);
  if (!LANGUAGE.isNull()) program.environment().insert(u"LANGUAGE"_s, LANGUAGE);
  const DecantOutcome outcome = program.run({u"probe"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(outcome.objects().first().value("bestAudioTrack"_L1), best);
}

void TestCliProbe::unknowns() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario()
      .probe()
      .reportText("  Duration: N/A, start: 0.0\n  Stream #0:0: Video: h264, yuv420p, 320x240\n")
      .write();
  const QJsonObject object = program.run({u"probe"_s, u"--json"_s, u"a.mkv"_s}).objects().first();
  QVERIFY(object.value("bestAudioTrack"_L1).isNull());
  QVERIFY(object.value("record"_L1)["runtimeSeconds"_L1].isNull());
  QCOMPARE(object.value("record"_L1)["audioTrackInformation"_L1], QJsonArray());
}

void TestCliProbe::silencedAlertsAreListed() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario().probe().reportText(reportWith(largeFilm)).write();
  {
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"_warningtoohighres_0.1.0_asked"_s, 1);
  }
  const QJsonObject object = program.run({u"probe"_s, u"--json"_s, u"a.mkv"_s}).objects().first();
  QCOMPARE(object.value("alerts"_L1).toArray().size(), 2);
}

void TestCliProbe::refusedFilesInOrder() {
  const DecantProgram program;
  program.file(u"good.mkv"_s);
  program.file(u"folder/x.mkv"_s);
  program.file(u"empty.mkv"_s, {});
  program.scenario()
      .probe(u"empty.mkv"_s)
      .printError("@INPUT@: Invalid data found when processing input\n")
      .write();
  QCOMPARE(::mkfifo(program.path(u"pipe.mkv"_s).toUtf8().constData(), 0600), 0);
  const DecantOutcome outcome =
      program.run({u"probe"_s, u"--json"_s, u"gone.mkv"_s, u"folder"_s, u"pipe.mkv"_s,
                   u"good.mkv"_s, u"empty.mkv"_s, u"/dev/null"_s});
  QCOMPARE(outcome.status, 1);
  const QList<QJsonObject> objects = outcome.objects();
  QCOMPARE(objects.size(), 6);
  for (qsizetype i = 0; i < objects.size(); ++i) {
    const bool isGood = i == 3;
    QCOMPARE(objects.at(i).value("ok"_L1), isGood);
    QCOMPARE(objects.at(i).value("record"_L1).isNull(), !isGood);
  }
  QVERIFY(messageOf(objects.at(0)).contains("gone.mkv"));
  QVERIFY(messageOf(objects.at(1)).contains("folder"));
  QVERIFY(messageOf(objects.at(2)).contains("pipe.mkv"));
  QVERIFY(messageOf(objects.at(4)).contains("doesn't seem to be a valid MKV"));
  QVERIFY(messageOf(objects.at(5)).contains("null"));
}

void TestCliProbe::anyExtension() {
  const DecantProgram program;
  program.file(u"film.avi"_s);
  program.file(u"film"_s);
  const DecantOutcome outcome = program.run({u"probe"_s, u"--json"_s, u"film.avi"_s, u"film"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.objects().size(), 2);
}

void TestCliProbe::oddNames_data() {
  QTest::addColumn<QString>("name");
  for (const QString &name :
       {u"it's \"odd\".mkv"_s, u"two\nlines.mkv"_s, u"100%n%41%s.mkv"_s, u"-dash.mkv"_s,
        u"file:x.mkv"_s, u"pipe:1.mkv"_s, u" .mkv"_s, u"Größe 映画 🎬.mkv"_s, u"a?b#c&d;e.mkv"_s,
        u"back\\slash.mkv"_s, u"\x1b[2J.mkv"_s})
    QTest::newRow(qPrintable(name)) << name;
}

void TestCliProbe::oddNames() {
  QFETCH(const QString, name);
  const DecantProgram program;
  const QString source = program.file(name);
  const DecantOutcome outcome = program.run({u"probe"_s, u"--json"_s, u"--"_s, name});
  QCOMPARE(outcome.status, 0);
  const QJsonObject object = outcome.objects().first();
  QCOMPARE(object.value("file"_L1), name);
  QCOMPARE(object.value("record"_L1)["fileName"_L1], name);
  const QString url = object.value("record"_L1)["fileURL"_L1].toString();
  QCOMPARE(QUrl::fromEncoded(url.toLatin1()).toLocalFile(), source);
  QCOMPARE(program.run({u"probe"_s, u"--"_s, name}).status, 0);
}

void TestCliProbe::invalidNames() {
  const DecantProgram program;
  program.file(u"good.mkv"_s);
  const DecantOutcome outcome = program.shell(
      "name=$'Gr\\xf6\\xdf''e.mkv'; cp good.mkv $name; $decant probe --json $name good.mkv; "
      "status=$?; rm $name; exit $status");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.objects().size(), 2);
  QVERIFY(messageOf(outcome.objects().first()).contains("'Gr\\xf6\\xdfe.mkv'"));
  QVERIFY(messageOf(outcome.objects().first()).contains("rename"));
  QCOMPARE(outcome.objects().last().value("ok"_L1), true);
}

void TestCliProbe::unreadable() {
  const DecantProgram program;
  program.file(u"secret.mkv"_s);
  program.file(u"good.mkv"_s);
  const DecantOutcome outcome = program.shellAsNobody("$decant probe --json secret.mkv good.mkv");
  // Root reads everything, so the right is only taken from somebody else.
  QCOMPARE(outcome.status, 0);
  QFile::setPermissions(program.path(u"secret.mkv"_s), QFile::Permissions());
  const DecantOutcome refused = program.shellAsNobody("$decant probe --json secret.mkv good.mkv");
  QCOMPARE(refused.status, 1);
  QVERIFY(messageOf(refused.objects().first()).contains("secret.mkv"));
  QCOMPARE(refused.objects().last().value("ok"_L1), true);
}

void TestCliProbe::brokenReport() {
  const DecantProgram program;
  program.file(u"odd.mkv"_s);
  program.file(u"good.mkv"_s);
  program.scenario()
      .probe(u"odd.mkv"_s)
      .reportText("  Duration: 00:00:10.00\n  Stream #0:0: Video: h264\n")
      .write();
  const DecantOutcome outcome = program.run({u"probe"_s, u"--json"_s, u"odd.mkv"_s, u"good.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.objects().first().value("ok"_L1), false);
  QVERIFY(messageOf(outcome.objects().first()).contains("odd.mkv"));
  QCOMPARE(outcome.objects().last().value("ok"_L1), true);
}

void TestCliProbe::missingTool_data() {
  QTest::addColumn<QByteArray>("spoil");
  QTest::newRow("missing") << QByteArray("rm \"$tool\"");
  QTest::newRow("empty") << QByteArray(": > \"$tool\"");
  QTest::newRow("not executable") << QByteArray("chmod a-x \"$tool\"");
  QTest::newRow("a folder") << QByteArray("rm \"$tool\"; mkdir \"$tool\"");
}

void TestCliProbe::missingTool() {
  QFETCH(const QByteArray, spoil);
  DecantProgram program;
  program.file(u"a.mkv"_s);
  program.environment().insert(u"tool"_s, program.tool());
  const DecantOutcome outcome = program.shell(spoil + "; $decant probe --json a.mkv");
  QCOMPARE(outcome.status, 1);
  const QByteArray message = messageOf(outcome.objects().first());
  QVERIFY2(message.contains(program.tool().toUtf8()), message.constData());
  QVERIFY(message.contains("install ffmpeg"));
}

void TestCliProbe::forPeople() {
  const DecantProgram program;
  program.file(u"a.mkv"_s, QByteArray(10, 'x'));
  const DecantOutcome outcome = program.run({u"probe"_s, u"a.mkv"_s, u"gone.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.error, QByteArray());
  const QList<QByteArray> lines = outcome.output.split('\n');
  QCOMPARE(lines.first(), QByteArray("file:       a.mkv"));
  QVERIFY(lines.contains("size:       10 bytes"));
  QVERIFY(lines.contains("duration:   0:01:40"));
  QVERIFY(outcome.output.contains("\n\nfile:     gone.mkv\nrefused:  "));
}

QTEST_GUILESS_MAIN(TestCliProbe)
#include "tst_cli_probe.moc"
