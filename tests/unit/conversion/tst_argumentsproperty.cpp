#include <QDateTime>
#include <QRandomGenerator>
#include <QTest>

#include "DeclaredArguments.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

class RandomMovie final {
 public:
  explicit RandomMovie(quint32 seed) : m_random(seed) {}

  DeclaredMovie next() {
    DeclaredMovie movie;
    const int trackCount = upTo(4);
    for (int i = 0; i < trackCount; ++i)
      movie.tracks.append(track(i));
    movie.chosen = trackCount ? quint64(upTo(trackCount - 1)) : 0;
    movie.video = upTo(12);
    movie.videoCodec = oneOf({u"h264"_s, u"h264"_s, u"mpeg4"_s, u"hevc"_s, u"av1"_s, u"vp9"_s,
                              u"mpeg2video"_s, QString()});
    for (int i = upTo(3); i > 0; --i)
      movie.subtitles.append(upTo(40));
    if (chance()) movie.subtitleFile = oneOf({u"/s/a b.srt"_s, u"/-map/0:1.srt"_s});
    movie.source = oneOf({u"/in/a.mkv"_s, u"/-stats/-i"_s, u"/ü/\"x\"\n%n.mkv"_s});
    movie.destination = oneOf({u"/out/a.m4v"_s, u"/out/a.mp4"_s, u"/-y/-progress.m4v"_s});
    movie.progressFile = oneOf({u"/p/a.mkv.log"_s, u"/-progress/-y.log"_s});
    movie.fixup = chance();
    movie.settings = settings();
    return movie;
  }

 private:
  int upTo(int most) { return int(m_random.bounded(most + 1)); }
  bool chance() { return upTo(1) == 1; }
  QString oneOf(const QStringList &choices) { return choices.at(upTo(int(choices.size()) - 1)); }

  DeclaredTrack track(int index) {
    DeclaredTrack track;
    track.number = index * 3 + upTo(2);
    track.language = oneOf({u"eng"_s, u"eng"_s, u"ger"_s, u"und"_s, u"5.1"_s});
    track.codec =
        oneOf({u"aac"_s, u"ac3"_s, u"ac3"_s, u"dts"_s, u"dts"_s, u"mp3"_s, u"vorbis"_s, u"he-aac"_s,
               u"alac"_s, u"eac3"_s, u"opus"_s, u"flac"_s, u"truehd"_s, u"pcm_s16le"_s});
    track.marked = chance();
    track.HZ = QList<int>{0, 8000, 44100, 48000, 48001, 96000, 192000}.at(upTo(6));
    return track;
  }

  ConversionSettings settings() {
    ConversionSettings settings;
    settings.ConversionPreset = upTo(3);
    settings.AC3Downmix = chance();
    settings.DTSDownmix = chance();
    for (int *method :
         {&settings.CustomAC3Handling, &settings.CustomAC351Handling, &settings.CustomDTSHandling,
          &settings.CustomDTS51Handling, &settings.CustomMP3Handling,
          &settings.CustomVorbisHandling, &settings.CustomUnknownHandling, &settings.AACBitrate,
          &settings.AC3StereoBitrate, &settings.AC3SurroundBitrate})
      *method = upTo(3);
    settings.AudioVolume =
        QList<float>{0, 98.9F, 99, 100, 101, 101.1F, 112.5F, 150, float(upTo(100000)) / 100}.at(
            upTo(8));
    settings.IncludeSurroundTrack = chance();
    settings.IncludeSurroundTrackTranscoded = chance();
    settings.DisableBuiltinSubtitles = chance();
    settings.ExternalSubtitleEncoding = upTo(38);
    settings.FixSubtitleDuration = chance();
    settings.ProduceStreamableFiles = chance();
    return settings;
  }

  QRandomGenerator m_random;
};

constexpr int moviesPerSeed = 5000;

}  // namespace

class TestArgumentsProperty : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void bothFormulationsAgree_data() {
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : {1U, 2U, 42U, 20231121U})
      QTest::addRow("seed %u", seed) << seed;
    const auto clockSeed = quint32(QDateTime::currentMSecsSinceEpoch());
    qInfo("seed from the clock: %u", clockSeed);
    QTest::addRow("seed %u from the clock", clockSeed) << clockSeed;
  }
  void bothFormulationsAgree() {
    QFETCH(quint32, seed);
    RandomMovie random(seed);
    for (int i = 0; i < moviesPerSeed; ++i) {
      const DeclaredMovie movie = random.next();
      const ConversionPlan plan = movie.plan();
      compare(buildArguments(plan), movie.arguments(false), seed, i);
      compare(completeArguments(plan), movie.arguments(true), seed, i);
      if (QTest::currentTestFailed()) return;
    }
  }

 private:
  static void compare(const QStringList &actual, const QStringList &expected, quint32 seed, int i) {
    if (actual == expected) return;
    const QString message = u"seed %1, movie %2\nbuilt:    %3\ndeclared: %4"_s.arg(
        QString::number(seed), QString::number(i), actual.join(u" · "_s), expected.join(u" · "_s));
    QFAIL(qPrintable(message));
  }
};

QTEST_GUILESS_MAIN(TestArgumentsProperty)
#include "tst_argumentsproperty.moc"
