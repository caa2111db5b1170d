#include <QTest>

#include "ConversionMethod.h"
#include "MuxerAdditions.h"
#include "PlanForTests.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

ConversionPlan planTo(const QString &destination, const QString &videoCodec,
                      const QStringList &tracks) {
  ConversionPlan plan = planWith(tracks);
  plan.fileInfo.destinationURL = QUrl::fromLocalFile(destination);
  plan.fileInfo.videoCodec = videoCodec;
  return plan;
}

// A copied track of this codec.
ConversionPlan planCopying(const QString &destination, const QString &audioCodec) {
  ConversionPlan plan = planTo(destination, u"h264"_s, {u"#1: eng ("_s + audioCodec + u')'});
  plan.settings.ConversionPreset = ConversionPresetCustom;
  plan.settings.CustomAC3Handling = ConversionMethodCopy;
  plan.settings.CustomDTSHandling = ConversionMethodCopy;
  plan.settings.CustomMP3Handling = ConversionMethodCopy;
  plan.settings.CustomVorbisHandling = ConversionMethodCopy;
  plan.settings.CustomUnknownHandling = ConversionMethodCopy;
  return plan;
}

const QStringList muxer{u"-f"_s, u"mp4"_s};
const QStringList tag{u"-tag:v"_s, u"hvc1"_s};

// The documented list with `additions` directly after "-y".
QStringList documentedWith(const ConversionPlan &plan, const QStringList &additions) {
  QStringList expected = buildArguments(plan);
  const qsizetype place = expected.indexOf(u"-y"_s) + 1;
  return expected.first(place) + additions + expected.sliced(place);
}

}  // namespace

class TestMuxerAdditions : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void video_data() {
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QStringList>("m4v");
    QTest::addColumn<QStringList>("mp4");
    const QStringList none;
    QTest::newRow("h264") << u"h264"_s << none << none;
    QTest::newRow("mpeg4") << u"mpeg4"_s << none << none;
    QTest::newRow("unknown") << QString() << none << none;
    QTest::newRow("hevc") << u"hevc"_s << muxer + tag << tag;
    QTest::newRow("av1") << u"av1"_s << muxer << none;
    QTest::newRow("vp9") << u"vp9"_s << muxer << none;
    QTest::newRow("mpeg2video") << u"mpeg2video"_s << muxer << none;
    QTest::newRow("msmpeg4v3") << u"msmpeg4v3"_s << muxer << none;
  }
  void video() {
    QFETCH(QString, codec);
    QFETCH(QStringList, m4v);
    QFETCH(QStringList, mp4);
    for (const QStringList &tracks : {QStringList(), QStringList{u"#1: eng (aac)"_s}}) {
      const ConversionPlan toM4v = planTo(u"/out/a.m4v"_s, codec, tracks);
      QCOMPARE(completeArguments(toM4v), documentedWith(toM4v, m4v));
      const ConversionPlan toMp4 = planTo(u"/out/a.mp4"_s, codec, tracks);
      QCOMPARE(completeArguments(toMp4), documentedWith(toMp4, mp4));
    }
  }

  void copiedAudio_data() {
    QTest::addColumn<QString>("codec");
    QTest::addColumn<bool>("unusual");
    // The last is aac too: the probe calls it so when the user wants that profile transcoded.
    for (const auto &codec : {u"aac"_s, u"ac3"_s, u"alac"_s, u"he-aac"_s})
      QTest::newRow(qPrintable(codec)) << codec << false;
    for (const auto &codec : {u"dts"_s, u"mp3"_s, u"eac3"_s, u"opus"_s, u"flac"_s, u"vorbis"_s})
      QTest::newRow(qPrintable(codec)) << codec << true;
  }
  void copiedAudio() {
    QFETCH(QString, codec);
    QFETCH(bool, unusual);
    const ConversionPlan toM4v = planCopying(u"/out/a.m4v"_s, codec);
    QCOMPARE(completeArguments(toM4v), documentedWith(toM4v, unusual ? muxer : QStringList()));
    const ConversionPlan toMp4 = planCopying(u"/out/a.mp4"_s, codec);
    QCOMPARE(completeArguments(toMp4), buildArguments(toMp4));
    ConversionPlan transcoding = toM4v;
    transcoding.settings.ConversionPreset = ConversionPresetAAC;
    QCOMPARE(completeArguments(transcoding), buildArguments(transcoding));
  }

  void onlyTheChosenTrackCounts() {
    ConversionPlan plan = planCopying(u"/out/a.m4v"_s, u"ac3"_s);
    plan.fileInfo.audioTrackInformation.append({u"#2: eng (flac)"_s, 48000});
    QCOMPARE(completeArguments(plan), buildArguments(plan));
    plan.audioTrackIndex = 1;
    QCOMPARE(completeArguments(plan), documentedWith(plan, muxer));
  }

  void surroundTrack_data() {
    QTest::addColumn<QString>("track");
    QTest::addColumn<bool>("transcodes");
    QTest::addColumn<bool>("unusual");
    QTest::newRow("ac3") << u"#1: eng (ac3) [5.1]"_s << false << false;
    QTest::newRow("dts transcoded") << u"#1: eng (dts) [5.1]"_s << true << false;
    QTest::newRow("dts copied") << u"#1: eng (dts) [5.1]"_s << false << true;
  }
  void surroundTrack() {
    QFETCH(QString, track);
    QFETCH(bool, transcodes);
    QFETCH(bool, unusual);
    ConversionPlan plan = planTo(u"/out/a.m4v"_s, u"h264"_s, {track});
    plan.settings.IncludeSurroundTrack = true;
    plan.settings.IncludeSurroundTrackTranscoded = transcodes;
    QCOMPARE(completeArguments(plan), documentedWith(plan, unusual ? muxer : QStringList()));
  }

  // ffmpeg chooses its muxer by the destination's ending, whatever its case; a "m4v" elsewhere in
  // the path is nothing to it.
  void ending_data() {
    QTest::addColumn<QString>("destination");
    QTest::addColumn<bool>("ipod");
    QTest::newRow("upper case") << u"/out/a.M4V"_s << true;
    QTest::newRow("with a number") << u"/out/a-0.m4v"_s << true;
    QTest::newRow("marks of a location") << u"/out/a#b?.m4v"_s << true;
    QTest::newRow("folder") << u"/out.m4v/a.mp4"_s << false;
    QTest::newRow("in the middle") << u"/out/a.m4v.mp4"_s << false;
    QTest::newRow("without the dot") << u"/out/am4v"_s << false;
  }
  void ending() {
    QFETCH(QString, destination);
    QFETCH(bool, ipod);
    const ConversionPlan plan = planTo(destination, u"vp9"_s, {});
    QCOMPARE(completeArguments(plan), documentedWith(plan, ipod ? muxer : QStringList()));
  }

  void additionsComeBeforeStreamable() {
    ConversionPlan plan = planTo(u"/out/a.m4v"_s, u"hevc"_s, {u"#1: eng (aac)"_s});
    plan.settings.ProduceStreamableFiles = true;
    const QStringList arguments = completeArguments(plan);
    QCOMPARE(arguments.sliced(arguments.indexOf(u"-y"_s)),
             (QStringList{u"-y"_s, u"-f"_s, u"mp4"_s, u"-tag:v"_s, u"hvc1"_s, u"-movflags"_s,
                          u"faststart"_s, u"/out/a.m4v"_s}));
  }

  void eachAdditionStandsAlone() {
    const ConversionPlan plan = planTo(u"/out/a.m4v"_s, u"hevc"_s, {});
    const QStringList documented = buildArguments(plan);
    QVERIFY(!documented.contains(u"-f"_s) && !documented.contains(u"-tag:v"_s));
    QCOMPARE(withTagForHevc(documented, plan), documentedWith(plan, tag));
    QCOMPARE(withMuxerForUnusualStreams(documented, plan), documentedWith(plan, muxer));
  }
};

QTEST_GUILESS_MAIN(TestMuxerAdditions)
#include "tst_muxeradditions.moc"
