#include <QTest>

#include "ConversionMethod.h"
#include "PlanForTests.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

// A plan whose one track is handled by this method.
ConversionPlan planOfMethod(ConversionMethod method) {
  ConversionPlan plan = planWith({u"#1: eng (opus)"_s});
  plan.settings.ConversionPreset = ConversionPresetCustom;
  plan.settings.CustomUnknownHandling = method;
  return plan;
}

// What stands between the audio codec's option and the progress option.
QStringList encoding(const ConversionPlan &plan) {
  return between(buildArguments(plan), u"-acodec"_s, u"-progress"_s);
}

QStringList maps(const ConversionPlan &plan) {
  return between(buildArguments(plan), u"-stats"_s, u"-scodec"_s);
}

// Stereo AAC with a surround track beside it wanted.
ConversionPlan planWithSurround(const QStringList &tracks, quint64 chosen) {
  ConversionPlan plan = planWith(tracks);
  plan.audioTrackIndex = chosen;
  plan.settings.IncludeSurroundTrack = true;
  return plan;
}

}  // namespace

class TestAudioArguments : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void bitrates_data() {
    QTest::addColumn<int>("method");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    const QStringList aac{u"96k"_s, u"128k"_s, u"160k"_s, u"192k"_s};
    const QStringList stereo{u"160k"_s, u"192k"_s, u"224k"_s, u"256k"_s};
    const QStringList surround{u"384k"_s, u"448k"_s, u"512k"_s, u"576k"_s};
    for (int i = 0; i < 4; ++i) {
      QTest::addRow("aac %d", i) << 0 << i
                                 << QStringList{u"aac"_s, u"-ac"_s, u"2"_s, u"-b:a"_s, aac[i]};
      QTest::addRow("ac3 stereo %d", i)
          << 1 << i << QStringList{u"ac3"_s, u"-ac"_s, u"2"_s, u"-b:a"_s, stereo[i]};
      QTest::addRow("ac3 surround %d", i)
          << 2 << i << QStringList{u"ac3"_s, u"-ac"_s, u"6"_s, u"-b:a"_s, surround[i]};
      QTest::addRow("copy %d", i) << 3 << i << QStringList{u"copy"_s};
    }
  }
  void bitrates() {
    QFETCH(int, method);
    QFETCH(int, index);
    ConversionPlan plan = planOfMethod(ConversionMethod(method));
    // The other two settings must not be looked at.
    plan.settings.AACBitrate = method == 0 ? index : 3 - index;
    plan.settings.AC3StereoBitrate = method == 1 ? index : 3 - index;
    plan.settings.AC3SurroundBitrate = method == 2 ? index : 3 - index;
    QTEST(encoding(plan), "expected");
    QCOMPARE(maps(plan), (QStringList{u"-map"_s, u"0:0"_s, u"-map"_s, u"0:1"_s}));
  }

  void sampleRate_data() {
    QTest::addColumn<int>("HZ");
    QTest::addColumn<bool>("resampled");
    QTest::newRow("unknown") << 0 << false;
    QTest::newRow("44.1 kHz") << 44100 << false;
    QTest::newRow("48 kHz") << 48000 << false;
    QTest::newRow("just above") << 48001 << true;
    QTest::newRow("96 kHz") << 96000 << true;
  }
  void sampleRate() {
    QFETCH(int, HZ);
    QFETCH(bool, resampled);
    for (const auto method : {ConversionMethodAAC, ConversionMethodAC3Stereo,
                              ConversionMethodAC3Surround, ConversionMethodCopy}) {
      ConversionPlan plan = planOfMethod(method);
      plan.fileInfo.audioTrackInformation[0].HZ = HZ;
      const bool expected = resampled && method != ConversionMethodCopy;
      const QStringList options = encoding(plan);
      QCOMPARE(options.contains(u"-ar"_s), expected);
      if (expected) QCOMPARE(options.mid(1, 3), (QStringList{u"-ar"_s, u"48000"_s, u"-ac"_s}));
    }
  }

  void volume_data() {
    QTest::addColumn<float>("percent");
    QTest::addColumn<QString>("factor");  // null: no filter
    QTest::newRow("100") << 100.0F << QString();
    QTest::newRow("99") << 99.0F << QString();
    QTest::newRow("101") << 101.0F << QString();
    QTest::newRow("just below 99") << 98.99F << u"0.99"_s;
    QTest::newRow("just above 101") << 101.01F << u"1.01"_s;
    QTest::newRow("0") << 0.0F << u"0.00"_s;
    QTest::newRow("150") << 150.0F << u"1.50"_s;
    QTest::newRow("a tie goes to the even digit") << 112.5F << u"1.12"_s;
    QTest::newRow("133.3") << 133.3F << u"1.33"_s;
    QTest::newRow("1000") << 1000.0F << u"10.00"_s;
  }
  void volume() {
    QFETCH(float, percent);
    QFETCH(QString, factor);
    ConversionPlan plan = planOfMethod(ConversionMethodAC3Stereo);
    plan.settings.AudioVolume = percent;
    const QStringList options = encoding(plan);
    if (factor.isNull()) {
      QVERIFY(!options.contains(u"-filter_complex"_s));
      QCOMPARE(maps(plan).last(), u"0:1"_s);
    } else {
      const QString filter = u"[0:1]volume="_s + factor + u"[out]"_s;
      QCOMPARE(options.mid(0, 4), (QStringList{u"ac3"_s, u"-filter_complex"_s, filter, u"-ac"_s}));
      QCOMPARE(maps(plan), (QStringList{u"-map"_s, u"0:0"_s, u"-map"_s, u"[out]"_s}));
    }
  }

  void copiedTrackKeepsItsVolume() {
    ConversionPlan plan = planOfMethod(ConversionMethodCopy);
    plan.settings.AudioVolume = 200;
    QCOMPARE(encoding(plan), QStringList{u"copy"_s});
    QCOMPARE(maps(plan).last(), u"0:1"_s);
  }

  void volumeComesBeforeSampleRate() {
    ConversionPlan plan = planOfMethod(ConversionMethodAAC);
    plan.settings.AudioVolume = 50;
    plan.fileInfo.audioTrackInformation[0].HZ = 192000;
    QCOMPARE(encoding(plan),
             (QStringList{u"aac"_s, u"-filter_complex"_s, u"[0:1]volume=0.50[out]"_s, u"-ar"_s,
                          u"48000"_s, u"-ac"_s, u"2"_s, u"-b:a"_s, u"128k"_s}));
  }

  void surroundTrack_data() {
    QTest::addColumn<QStringList>("tracks");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<QString>("map");  // null: none
    QTest::addColumn<bool>("transcoded");
    QTest::newRow("the chosen ac3")
        << QStringList{u"#1: eng (ac3) [5.1]"_s} << 0 << u"0:1"_s << false;
    QTest::newRow("the chosen dts")
        << QStringList{u"#1: eng (dts) [5.1]"_s} << 0 << u"0:1"_s << true;
    QTest::newRow("the chosen dts before another's ac3")
        << QStringList{u"#1: eng (ac3) [5.1]"_s, u"#2: eng (dts) [5.1]"_s} << 1 << u"0:2"_s << true;
    QTest::newRow("stereo only") << QStringList{u"#1: eng (ac3)"_s, u"#2: eng (dts)"_s} << 0
                                 << QString() << false;
    QTest::newRow("beside stereo")
        << QStringList{u"#1: eng (mp3)"_s, u"#2: eng (ac3) [5.1]"_s} << 0 << u"0:2"_s << false;
    QTest::newRow("before the chosen one")
        << QStringList{u"#1: eng (dts) [5.1]"_s, u"#2: eng (mp3)"_s} << 1 << u"0:1"_s << true;
    QTest::newRow("another language")
        << QStringList{u"#1: eng (mp3)"_s, u"#2: ger (ac3) [5.1]"_s} << 0 << QString() << false;
    QTest::newRow("first of two") << QStringList{u"#1: eng (aac)"_s, u"#2: eng (ac3) [5.1]"_s,
                                                 u"#3: eng (ac3) [5.1]"_s}
                                  << 0 << u"0:2"_s << false;
    QTest::newRow("ac3 beats dts")
        << QStringList{u"#1: eng (aac)"_s, u"#2: eng (dts) [5.1]"_s, u"#3: eng (ac3) [5.1]"_s} << 0
        << u"0:3"_s << false;
    QTest::newRow("ac3 of another language does not")
        << QStringList{u"#1: eng (aac)"_s, u"#2: eng (dts) [5.1]"_s, u"#3: ger (ac3) [5.1]"_s} << 0
        << u"0:2"_s << true;
    QTest::newRow("chosen surround of another codec")
        << QStringList{u"#1: eng (truehd) [5.1]"_s, u"#2: eng (ac3) [5.1]"_s} << 0 << u"0:2"_s
        << false;
    QTest::newRow("surround of other codecs only")
        << QStringList{u"#1: eng (truehd) [5.1]"_s, u"#2: eng (eac3) [5.1]"_s} << 0 << QString()
        << false;
    QTest::newRow("5.1 in the language is no mark")
        << QStringList{u"#1: 5.1 (ac3)"_s} << 0 << QString() << false;
  }
  void surroundTrack() {
    QFETCH(QStringList, tracks);
    QFETCH(int, chosen);
    QFETCH(QString, map);
    QFETCH(bool, transcoded);
    ConversionPlan plan = planWithSurround(tracks, quint64(chosen));
    plan.settings.AC3SurroundBitrate = 3;
    const QStringList codec =
        transcoded ? QStringList{u"-c:a:1"_s, u"ac3"_s, u"-ac:2"_s, u"6"_s, u"-b:a:1"_s, u"576k"_s}
                   : QStringList{u"-c:a:1"_s, u"copy"_s};
    ConversionPlan without = plan;
    without.settings.IncludeSurroundTrack = false;
    QStringList expectedMaps = maps(without);
    QStringList expectedEncoding = encoding(without);
    if (!map.isNull()) {
      expectedMaps << u"-map"_s << map;
      expectedEncoding << codec;
    }
    QCOMPARE(maps(plan), expectedMaps);
    QCOMPARE(encoding(plan), expectedEncoding);
  }

  void dtsSurroundCanBeCopied() {
    ConversionPlan plan = planWithSurround({u"#1: eng (dts) [5.1]"_s}, 0);
    plan.settings.IncludeSurroundTrackTranscoded = false;
    QCOMPARE(encoding(plan).mid(5), (QStringList{u"-c:a:1"_s, u"copy"_s}));
  }

  void onlyThePresetForAACAddsSurround() {
    for (const int preset : {ConversionPresetAC3, ConversionPresetCustom}) {
      ConversionPlan plan = planWithSurround({u"#1: eng (ac3) [5.1]"_s}, 0);
      plan.settings.ConversionPreset = preset;
      QVERIFY(!buildArguments(plan).contains(u"-c:a:1"_s));
      QCOMPARE(maps(plan).size(), 4);
    }
  }

  void volumeLeavesTheSurroundMapAlone() {
    ConversionPlan plan = planWithSurround({u"#1: eng (ac3) [5.1]"_s}, 0);
    plan.settings.AudioVolume = 120;
    QCOMPARE(maps(plan),
             (QStringList{u"-map"_s, u"0:0"_s, u"-map"_s, u"[out]"_s, u"-map"_s, u"0:1"_s}));
  }
};

QTEST_GUILESS_MAIN(TestAudioArguments)
#include "tst_audioarguments.moc"
