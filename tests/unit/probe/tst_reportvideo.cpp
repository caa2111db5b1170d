#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "Reports.h"

using namespace Qt::StringLiterals;
using decant::ProbeOutcome;

// Video streams: codec, size, warnings, and pictures that are no video.
class TestReportVideo final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void videoLines_data();
  void videoLines();
  void lastVideoWins();
  void pictureIsIgnored_data();
  void pictureIsIgnored();
  void onlyAPictureIsNoVideo();
};

void TestReportVideo::videoLines_data() {
  QTest::addColumn<QString>("details");
  QTest::addColumn<QString>("codec");
  QTest::addColumn<QString>("resolution");
  QTest::addColumn<QString>("alerts");

  const auto row = [](const char *name, const char *details, const char *codec,
                      const char *resolution, const char *alerts) {
    QTest::newRow(name) << QString::fromLatin1(details) << QString::fromLatin1(codec)
                        << QString::fromLatin1(resolution) << QString::fromLatin1(alerts);
  };
  row("comma after the size", "h264 (High), yuv420p, 1920x1080, 25 fps", "h264", "1920x1080", "");
  row("bracket after the size", "mpeg4, yuv420p, 640x480 [SAR 1:1 DAR 4:3], 25 fps", "mpeg4",
      "640x480", "");
  row("codec tag before the size", "h264 (avc1 / 0x31637661), yuv420p, 320x240, 25 fps", "h264",
      "320x240", "");
  row("no size", "h264 (High), none, 25 fps", "h264", "(null)", "");
  row("size without digits", "h264 (High), yuv420p, x, 25 fps", "h264", "x", "");
  row("width 1920", "h264, yuv420p, 1920x1088, 25 fps", "h264", "1920x1088", "");
  row("width 1921", "h264, yuv420p, 1921x1080, 25 fps", "h264", "1921x1080", "warningtoohighres");
  row("absurd size", "h264, yuv420p, 99999999999x99999999999, 25 fps", "h264",
      "99999999999x99999999999", "warningtoohighres");
  row("hevc", "hevc (Main), yuv420p, 1280x720, 25 fps", "hevc", "1280x720", "wrongvideowarning");
  row("ten bits", "h264 (High 10), yuv420p10le, 1280x720", "h264", "1280x720", "10bitvideowarning");
  row("4 references", "h264 (High), yuv420p, 1920x1080 |refs: 4|, 25 fps", "h264", "1920x1080", "");
  row("5 references", "h264 (High), yuv420p, 1920x1080 |refs: 5|, 25 fps", "h264", "1920x1080",
      "warningtoomanyrefframes");
  row("5 at 1088", "h264, 1920x1088, |refs: 5|", "h264", "1920x1088", "warningtoomanyrefframes");
  row("5 at 800", "h264, 1920x800, |refs: 5|", "h264", "1920x800", "");
  row("6 at 800", "h264, 1920x800, |refs: 6|", "h264", "1920x800", "warningtoomanyrefframes");
  row("9 at 720", "h264, 1280x720, |refs: 9|", "h264", "1280x720", "");
  row("10 at 720", "h264, 1280x720, |refs: 10|", "h264", "1280x720", "warningtoomanyrefframes");
  row("20 at 576", "h264, 720x576, |refs: 20|", "h264", "720x576", "");
  row("21 at 576", "h264, 720x576, |refs: 21|", "h264", "720x576", "warningtoomanyrefframes");
  row("27 at 480", "h264, 640x480, |refs: 27|", "h264", "640x480", "");
  row("28 at 480", "h264, 640x480, |refs: 28|", "h264", "640x480", "warningtoomanyrefframes");
  row("references of no size", "h264, none, |refs: 99|", "h264", "(null)", "");
  row("references of zero size", "h264, 0x0, |refs: 99|", "h264", "0x0", "");
  row("all at once", "hevc (High 10), 3840x2160, |refs: 9|", "hevc", "3840x2160",
      "wrongvideowarning|10bitvideowarning|warningtoohighres|warningtoomanyrefframes");
}

void TestReportVideo::videoLines() {
  QFETCH(QString, details);
  QFETCH(QString, codec);
  QFETCH(QString, resolution);
  QFETCH(QString, alerts);
  const ProbeOutcome outcome = parsed({u"    Stream #0:4(eng): Video: "_s + details});
  QVERIFY(outcome.record);
  QCOMPARE(outcome.record->videoTrackID, std::optional<int>(4));
  QCOMPARE(outcome.record->videoCodec, codec);
  QCOMPARE(outcome.record->informationString,
           QString(u"Duration: (null)  Bitrate: (null)  Resolution: "_s + resolution +
                   u"  Audiotracks: 0 (0)"_s));
  QCOMPARE(identifiersOf(outcome.alerts).join(u'|'), alerts);
}

void TestReportVideo::lastVideoWins() {
  const ProbeOutcome outcome = parsed({videoLine(), u"  Stream #0:1: Audio: aac, 48000 Hz"_s,
                                       u"  Stream #0:2: Video: mpeg4, none |refs: 10|"_s});
  QCOMPARE(outcome.record->videoTrackID, std::optional<int>(2));
  QCOMPARE(outcome.record->videoCodec, u"mpeg4"_s);
  QVERIFY(outcome.record->informationString.contains(u"Resolution: 1280x720"_s));
  QCOMPARE(identifiersOf(outcome.alerts), QStringList{u"warningtoomanyrefframes"_s});
}

void TestReportVideo::pictureIsIgnored_data() {
  QTest::addColumn<QStringList>("picture");
  QTest::newRow("mimetype") << QStringList{u"  Stream #0:2: Video: prores, 4000x3000 |refs: 99|"_s,
                                           u"    Metadata:"_s,
                                           u"      mimetype        : image/jpeg"_s};
  QTest::newRow("mimetype without blanks")
      << QStringList{u"  Stream #0:2: Video: png, 4000x3000"_s, u"mimetype:image/png"_s};
  QTest::newRow("mimetype after a duration")
      << QStringList{u"  Stream #0:2: Video: png, 4000x3000"_s, durationLine(),
                     u"      mimetype        : image/png"_s};
  QTest::newRow("mark") << QStringList{
      u"  Stream #0:2[0x0]: Video: prores (High 10), 4000x3000, 90k tbn (attached pic)"_s};
}

void TestReportVideo::pictureIsIgnored() {
  QFETCH(QStringList, picture);
  const ProbeOutcome outcome = parsed(QStringList{durationLine(), videoLine()} + picture);
  QVERIFY(outcome.record);
  QCOMPARE(outcome.record->videoTrackID, std::optional<int>(0));
  QVERIFY(outcome.record->informationString.contains(u"Resolution: 1280x720"_s));
  QVERIFY(outcome.alerts.isEmpty());
}

void TestReportVideo::onlyAPictureIsNoVideo() {
  const ProbeOutcome outcome = parsed({durationLine(), u"  Stream #0:0: Audio: aac, 48000 Hz"_s,
                                       u"  Stream #0:1: Video: mjpeg, 500x500 (attached pic)"_s});
  QVERIFY(!outcome.record);
  QCOMPARE(identifiersOf(outcome.alerts), QStringList{u"plain"_s});
}

QTEST_GUILESS_MAIN(TestReportVideo)
#include "tst_reportvideo.moc"
