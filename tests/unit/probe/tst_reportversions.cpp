#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "BuildTree.h"
#include "Reports.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using decant::MKVFileInfo;

// Whole reports in the manner of many versions and containers, and what is read from each.
class TestReportVersions final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void report_data();
  void report();
};

namespace {

struct Expected {
  const char *row;
  const char *file;
  const char *path;
  const char *tracks;  // separated by "|"
  const char *rates;
  const char *subtitles;
  int video;  // -1: refused
  const char *codec;
  int seconds;  // -1: unknown
  const char *summary;
  const char *alerts;
};

constexpr Expected expectations[] = {
    {"1.0, mkv", "ffmpeg-1.0-mkv", "/movies/lighthouse.mkv", "#1: eng (ac3) [5.1]|#2: ger (aac)",
     "48000|48000", "3|5", 0, "h264", 6727,
     "Duration: 01:52:07  Bitrate: 9871 kb/s  Resolution: 1920x1080  Audiotracks: 2 (3)", ""},
    {"2.8, mp4", "ffmpeg-2.8-mp4", "/movies/holiday.mp4", "#1: und (aac)", "44100", "", 0, "h264",
     200, "Duration: 00:03:20  Bitrate: 2117 kb/s  Resolution: 640x480  Audiotracks: 1 (0)", ""},
    {"3.4, ts", "ffmpeg-3.4-ts", "/movies/broadcast.ts", "#1: deu (mp2)|#2: deu (ac3) [5.1]",
     "48000|48000", "", 0, "h264", 3598,
     "Duration: 00:59:58  Bitrate: 6412 kb/s  Resolution: 1280x720  Audiotracks: 2 (1)", ""},
    {"4.1, mov", "ffmpeg-4.1-mov", "/movies/IMG_0042.MOV", "#1: und (aac)", "44100", "", 0, "hevc",
     9, "Duration: 00:00:09  Bitrate: 50231 kb/s  Resolution: 3840x2160  Audiotracks: 1 (0)",
     "wrongvideowarning|warningtoohighres"},
    {"4.4, wmv", "ffmpeg-4.4-wmv", "/movies/training.wmv", "", "", "", -1, "", -1, "", "plain"},
    {"5.0, flv", "ffmpeg-5.0-flv", "/movies/clip.flv", "", "", "", -1, "", -1, "", "plain"},
    {"5.1, mp4 with cover and deceptive tags", "ffmpeg-5.1-mp4", "/movies/cover.mp4",
     "#1: deu (aac)|#2: fra (ac3) [5.1]", "44100|48000", "", 0, "h264", 2,
     "Duration: 00:00:02  Bitrate: 444 kb/s  Resolution: 1280x720  Audiotracks: 2 (1)", ""},
    {"5.1, mkv with cover and fonts", "ffmpeg-5.1-mkv", "/movies/cover.mkv", "#1: jpn (flac)",
     "48000", "", 0, "h264", 1440,
     "Duration: 00:24:00  Bitrate: 4312 kb/s  Resolution: 1920x1080  Audiotracks: 1 (1)",
     "10bitvideowarning"},
    {"5.1, mpg", "ffmpeg-5.1-mpg", "/movies/old.mpg", "#1: unk (mp2)", "48000", "", 0, "mpeg2video",
     2, "Duration: 00:00:02  Bitrate: 1262 kb/s  Resolution: 720x576  Audiotracks: 1 (0)",
     "wrongvideowarning"},
    {"5.1, ogm", "ffmpeg-5.1-ogm", "/movies/classic.ogm", "#1: japanese (vorbis)", "44100", "2", 0,
     "mpeg4", 1351,
     "Duration: 00:22:31  Bitrate: 1077 kb/s  Resolution: 512x384  Audiotracks: 1 (1)", ""},
    {"6.1, webm", "ffmpeg-6.1-webm", "/movies/talk.webm", "", "", "", -1, "", -1, "", "plain"},
    {"7.1, mkv", "ffmpeg-7.1-mkv", "/movies/feature.mkv",
     "#1: eng (eac3) [5.1]|#2: fre (truehd) [5.1]|#3: chi (dts) [5.1]", "48000|96000|48000", "5", 0,
     "av1", 7384,
     "Duration: 02:03:04  Bitrate: 2698 kb/s  Resolution: 3840x1600  Audiotracks: 3 (2)",
     "wrongvideowarning|warningtoohighres"},
    {"8.0, mp4 with audio first", "ffmpeg-8.0-mp4", "/movies/phone.mp4", "#0: eng (aac)", "48000",
     "", 1, "h264", 31,
     "Duration: 00:00:31  Bitrate: 17233 kb/s  Resolution: 1920x1080  Audiotracks: 1 (0)", ""},
};

QString joined(const QStringList &list) {
  return list.join(u'|');
}

}  // namespace

void TestReportVersions::report_data() {
  QTest::addColumn<int>("index");
  for (int index = 0; index < static_cast<int>(std::size(expectations)); ++index) {
    QTest::newRow(expectations[index].row) << index;
  }
}

void TestReportVersions::report() {
  QFETCH(int, index);
  const Expected &expected = expectations[index];
  const QString path = QString::fromLatin1(expected.path);
  const QByteArray text = wholefile::read(buildtree::source(u"tests/unit/probe/reports/"_s) +
                                          QLatin1StringView(expected.file) + u".txt"_s);
  QVERIFY(!text.isEmpty());

  const decant::ProbeOutcome outcome =
      decant::parseReport(QString::fromUtf8(text), sourceAt(path), {});
  QCOMPARE(joined(identifiersOf(outcome.alerts)), QString::fromLatin1(expected.alerts));
  QCOMPARE(outcome.record.has_value(), expected.video >= 0);
  if (expected.video < 0) return;

  const MKVFileInfo &record = *outcome.record;
  QStringList rates;
  for (const auto &track : record.audioTrackInformation)
    rates.append(QString::number(track.HZ));
  QStringList subtitles;
  for (const int id : record.subtitleTrackIDs)
    subtitles.append(QString::number(id));
  QCOMPARE(joined(textsOf(record.audioTrackInformation)), QString::fromLatin1(expected.tracks));
  QCOMPARE(joined(rates), QString::fromLatin1(expected.rates));
  QCOMPARE(joined(subtitles), QString::fromLatin1(expected.subtitles));
  QCOMPARE(record.videoTrackID, std::optional<int>(expected.video));
  QCOMPARE(record.videoCodec, QString::fromLatin1(expected.codec));
  QCOMPARE(record.runtimeSeconds.value_or(-1), expected.seconds);
  QCOMPARE(record.informationString, QString::fromLatin1(expected.summary));
  QCOMPARE(record.fileName, path.sliced(path.lastIndexOf(u'/') + 1));
  QCOMPARE(record.fileURL, QUrl::fromLocalFile(path));
  QCOMPARE(record.fileSize, 4711u);
  QVERIFY(record.destinationURL.isEmpty() && record.subtitleFileURL.isEmpty());
}

QTEST_GUILESS_MAIN(TestReportVersions)
#include "tst_reportversions.moc"
