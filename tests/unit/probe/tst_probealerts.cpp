#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "ProbeAlerts.h"
#include "Reports.h"

using namespace Qt::StringLiterals;
using decant::FileRefusal;
using decant::ProbeAlert;
using decant::ProbeOutcome;
using ostrak::Alert;

// Every alert of the probe with its identifier, its exact text and whether it is scheduled.
class TestProbeAlerts final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void warnings_data();
  void warnings();
  void plainAlerts_data();
  void plainAlerts();
  void refusedCodecs_data();
  void refusedCodecs();
  void refusedCodecInTheSecondVideo();
  void expectedCodecsAreSilent();
  void warningsKeepTheirOrder();
  void refusedFilesAreNamed_data();
  void refusedFilesAreNamed();
  void toolMissingNamesTheTool();
  void processRefusedEndsTheProgram();
  void textsAreNotFormats();
};

namespace {

ProbeAlert only(const ProbeOutcome &outcome) {
  return outcome.alerts.size() == 1 ? outcome.alerts.first() : ProbeAlert{};
}

}  // namespace

void TestProbeAlerts::warnings_data() {
  QTest::addColumn<ProbeAlert>("found");
  QTest::addColumn<QString>("identifier");
  QTest::addColumn<QString>("message");
  QTest::addColumn<bool>("scheduled");

  const auto video = [](const char *details) {
    return only(parsed({u"  Stream #0:0: Video: "_s + QString::fromLatin1(details)}));
  };
  QTest::newRow("alias") << decant::aliasAlert(sourceAt(u"/movies/movie.mkv"_s))
                         << u"warningalias"_s
                         << u"The file 'movie.mkv' is an alias. We can't open the target of the "
                            "alias because of limitations in Apple's 'sandbox'. Please complaint "
                            "to Apple if you want Aliases to work in sandboxed apps."_s
                         << true;
  QTest::newRow("codec") << video("hevc (Main), 1280x720") << u"wrongvideowarning"_s
                         << u"The file 'movie.mkv' doesn't contain a H264/MPEG4 video track "
                            "(videocodec: hevc) so the result may not be playable."_s
                         << false;
  QTest::newRow("ten bits") << video("h264 (High 10), 1280x720") << u"10bitvideowarning"_s
                            << u"The file 'movie.mkv' contains a 10-bit video track so the result "
                               "will not be playable on the iPhone or iPad. It should still play "
                               "with other players (VLC/Mplayer)."_s
                            << false;
  QTest::newRow("resolution") << video("h264, 1921x1080") << u"warningtoohighres"_s
                              << u"The file 'movie.mkv' will probably not play back fine on the "
                                 "iPhone/iPad as it has a too large resolution. You can try "
                                 "converting the produced MP4 file using 'QuickTime Player' to a "
                                 "1080p M4V file to view this video on iOS."_s
                              << true;
  QTest::newRow("reference frames")
      << video("h264, 1920x1080 |refs: 5|") << u"warningtoomanyrefframes"_s
      << u"The file 'movie.mkv' will probably not play back fine on the 'Playstation 3' or other "
         "devices as it contains more 'reference frames' than the PS3 supports. You can try "
         "converting the produced MP4 file using 'QuickTime Player' to a 720p M4V file to view "
         "this video on the PS3."_s
      << true;
}

void TestProbeAlerts::warnings() {
  QFETCH(ProbeAlert, found);
  QFETCH(QString, identifier);
  QFETCH(QString, message);
  QFETCH(bool, scheduled);
  QCOMPARE(found.alert.identifier, identifier);
  QCOMPARE(found.alert.title, u"Warning"_s);
  QCOMPARE(found.alert.message, message);
  QCOMPARE(found.alert.buttons, QStringList{u"OK"_s});
  QVERIFY(found.alert.control == Alert::Control::Suppression);
  QCOMPARE(found.alert.checkboxTitle, u"Don't warn again"_s);
  QCOMPARE(found.alert.subject, u"/movies/movie.mkv"_s);
  QCOMPARE(found.scheduled, scheduled);
}

void TestProbeAlerts::plainAlerts_data() {
  QTest::addColumn<QStringList>("lines");
  QTest::addColumn<QString>("message");
  const QString noVideo =
      u"Warning: the file 'movie.mkv' doesn't seem to be a valid MKV and can't be converted by "
      "Decant. If you are sure the file is valid please contact us regarding this issue."_s;
  QTest::newRow("refused codec")
      << QStringList{u"  Stream #0:0: Video: vp9 (Profile 0), 1280x720"_s}
      << u"Warning: the file 'movie.mkv' contains an invalid video codec (vp9) and can't be "
         "converted by Decant."_s;
  QTest::newRow("no streams") << QStringList{} << noVideo;
  QTest::newRow("only sound") << QStringList{durationLine(), u"  Stream #0:0: Audio: aac, 1 Hz"_s}
                              << noVideo;
  QTest::newRow("only a picture") << QStringList{u"  Stream #0:0: Video: png, 5x5 (attached pic)"_s}
                                  << noVideo;
}

void TestProbeAlerts::plainAlerts() {
  QFETCH(QStringList, lines);
  QFETCH(QString, message);
  const ProbeOutcome outcome = parsed(lines);
  QVERIFY(!outcome.record);
  QCOMPARE(outcome.alerts.size(), 1);
  const ProbeAlert &found = outcome.alerts.first();
  QVERIFY(found.alert.identifier.isNull());
  QCOMPARE(found.alert.title, u"Decant"_s);
  QCOMPARE(found.alert.message, message);
  QCOMPARE(found.alert.buttons, QStringList{u"OK"_s});
  QVERIFY(found.alert.control == Alert::Control::None);
  QCOMPARE(found.alert.subject, u"/movies/movie.mkv"_s);
  QVERIFY(found.scheduled);
}

void TestProbeAlerts::refusedCodecs_data() {
  QTest::addColumn<QString>("codec");
  for (const char *codec :
       {"dvvideo", "prores", "wmv3", "vp6f", "dnxhd", "vp9", "vp8", "msmpeg4v3", "aic"}) {
    QTest::newRow(codec) << QString::fromLatin1(codec);
  }
}

void TestProbeAlerts::refusedCodecs() {
  QFETCH(QString, codec);
  const ProbeOutcome outcome =
      parsed({u"  Stream #0:0: Video: "_s + codec + u", 9999x9 |refs: 99|"_s});
  QVERIFY(!outcome.record);
  QCOMPARE(identifiersOf(outcome.alerts), QStringList{u"plain"_s});
  QVERIFY(outcome.alerts.first().alert.message.contains(QString(u"codec ("_s + codec + u')')));
}

void TestProbeAlerts::refusedCodecInTheSecondVideo() {
  const ProbeOutcome outcome =
      parsed({u"  Stream #0:0: Video: hevc, 1280x720"_s,
              u"  Stream #0:1: Video: prores, 1280x720"_s, u"  Stream of nothing"_s});
  QVERIFY(!outcome.record);
  QCOMPARE(identifiersOf(outcome.alerts), (QStringList{u"wrongvideowarning"_s, u"plain"_s}));
}

void TestProbeAlerts::expectedCodecsAreSilent() {
  for (const QString &codec : {u"h264"_s, u"mpeg4"_s}) {
    QVERIFY(parsed({u"  Stream #0:0: Video: "_s + codec + u", 1920x1080"_s}).alerts.isEmpty());
  }
}

void TestProbeAlerts::warningsKeepTheirOrder() {
  const ProbeOutcome outcome = parsed({u"  Stream #0:0: Video: h264 (High 10), 640x480 |refs: 9|"_s,
                                       u"  Stream #0:1: Video: hevc, 3840x2160"_s});
  QVERIFY(outcome.record);
  QCOMPARE(identifiersOf(outcome.alerts),
           (QStringList{u"10bitvideowarning"_s, u"wrongvideowarning"_s, u"warningtoohighres"_s,
                        u"warningtoomanyrefframes"_s}));
}

void TestProbeAlerts::refusedFilesAreNamed_data() {
  QTest::addColumn<FileRefusal>("why");
  QTest::addColumn<QString>("message");
  QTest::newRow("missing") << FileRefusal::Missing
                           << u"The file 'a b.mkv' does not exist. Please check its name and "
                              "folder, then add it again."_s;
  QTest::newRow("folder") << FileRefusal::Folder
                          << u"'a b.mkv' is a folder. Please add the movie files in it instead."_s;
  QTest::newRow("no regular file") << FileRefusal::NotRegular
                                   << u"'a b.mkv' is not a regular file. Please save the movie as "
                                      "a file on disk and add that."_s;
  QTest::newRow("unreadable") << FileRefusal::Unreadable
                              << u"The file 'a b.mkv' cannot be read. Please change its "
                                 "permissions, then add it again."_s;
}

void TestProbeAlerts::refusedFilesAreNamed() {
  QFETCH(FileRefusal, why);
  QFETCH(QString, message);
  const ProbeAlert found = decant::refusedFileAlert(sourceAt(u"/movies/a b.mkv"_s), why);
  QCOMPARE(found.alert.message, message);
  QVERIFY(found.alert.identifier.isNull());
  QCOMPARE(found.alert.subject, u"/movies/a b.mkv"_s);
}

void TestProbeAlerts::toolMissingNamesTheTool() {
  const ProbeAlert found =
      decant::toolMissingAlert(sourceAt(u"/movies/movie.mkv"_s), u"/opt/decant/resources/ffmpeg"_s);
  QCOMPARE(found.alert.message,
           u"The file 'movie.mkv' can't be read because the tool '/opt/decant/resources/ffmpeg' is "
           "missing or cannot be run. Please install ffmpeg, or install Decant again."_s);
}

void TestProbeAlerts::processRefusedEndsTheProgram() {
  const ProbeAlert found = decant::processRefusedAlert(sourceAt(u"/movies/movie.mkv"_s));
  QCOMPARE(found.alert.message,
           u"A basic system capability failed (posix_spawn). Please reboot your system and try "
           "again."_s);
  QCOMPARE(found.alert.title, u"Decant"_s);
  QCOMPARE(found.alert.buttons, QStringList{u"Exit"_s});
}

void TestProbeAlerts::textsAreNotFormats() {
  const ProbeAlert found = decant::noVideoAlert(sourceAt(u"/movies/50%@ %n %s.mkv"_s));
  QVERIFY(found.alert.message.startsWith(u"Warning: the file '50%@ %n %s.mkv' doesn't seem"_s));
}

QTEST_GUILESS_MAIN(TestProbeAlerts)
#include "tst_probealerts.moc"
