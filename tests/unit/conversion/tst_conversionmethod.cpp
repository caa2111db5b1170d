#include <QTest>

#include "ConversionMethod.h"
#include "Exceptions.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

// Every custom setting with a value of its own where four values allow it.
ConversionSettings customSettings() {
  ConversionSettings settings;
  settings.ConversionPreset = ConversionPresetCustom;
  settings.CustomAC3Handling = 3;
  settings.CustomAC351Handling = 1;
  settings.CustomDTSHandling = 0;
  settings.CustomDTS51Handling = 2;
  settings.CustomMP3Handling = 3;
  settings.CustomVorbisHandling = 0;
  settings.CustomUnknownHandling = 1;
  return settings;
}

const QStringList otherCodecs{u"eac3"_s,   u"flac"_s,      u"opus"_s, u"truehd"_s,
                              u"he-aac"_s, u"AAC"_s,       u"AC3"_s,  u"aac "_s,
                              u"dts-hd"_s, u"pcm_s16le"_s, u"alac"_s, u""_s};

}  // namespace

class TestConversionMethod : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void aacIsAlwaysCopied() {
    for (const int preset : {-1, 0, 1, 2, 3, 99}) {
      for (const bool surround : {false, true}) {
        ConversionSettings settings = customSettings();
        settings.ConversionPreset = preset;
        settings.CustomUnknownHandling = 0;
        settings.AC3Downmix = true;
        QCOMPARE(calculateConversionMethod(u"aac"_s, surround, settings), ConversionMethodCopy);
      }
    }
  }

  void presetAACTranscodesEverythingElse() {
    ConversionSettings settings = customSettings();
    settings.ConversionPreset = ConversionPresetAAC;
    const QStringList codecs = otherCodecs + QStringList{u"ac3"_s, u"dts"_s, u"mp3"_s, u"vorbis"_s};
    for (const QString &codec : codecs) {
      QCOMPARE(calculateConversionMethod(codec, false, settings), ConversionMethodAAC);
      QCOMPARE(calculateConversionMethod(codec, true, settings), ConversionMethodAAC);
    }
  }

  void presetAC3_data() {
    QTest::addColumn<QString>("codec");
    QTest::addColumn<bool>("surround");
    QTest::addColumn<bool>("ac3Downmix");
    QTest::addColumn<bool>("dtsDownmix");
    QTest::addColumn<int>("method");
    for (const bool other : {false, true}) {
      const QByteArray suffix = other ? ", other downmix on" : ", other downmix off";
      QTest::addRow("ac3 stereo%s", suffix.data()) << u"ac3"_s << false << false << other << 3;
      QTest::addRow("ac3 stereo down%s", suffix.data()) << u"ac3"_s << false << true << other << 3;
      QTest::addRow("ac3 5.1%s", suffix.data()) << u"ac3"_s << true << false << other << 3;
      QTest::addRow("ac3 5.1 down%s", suffix.data()) << u"ac3"_s << true << true << other << 1;
      QTest::addRow("dts stereo%s", suffix.data()) << u"dts"_s << false << other << false << 1;
      QTest::addRow("dts stereo down%s", suffix.data()) << u"dts"_s << false << other << true << 1;
      QTest::addRow("dts 5.1%s", suffix.data()) << u"dts"_s << true << other << false << 2;
      QTest::addRow("dts 5.1 down%s", suffix.data()) << u"dts"_s << true << other << true << 1;
    }
    for (const QString &codec : otherCodecs + QStringList{u"mp3"_s, u"vorbis"_s}) {
      QTest::addRow("'%s' stereo", qPrintable(codec)) << codec << false << false << false << 1;
      QTest::addRow("'%s' 5.1", qPrintable(codec)) << codec << true << false << false << 1;
    }
  }
  void presetAC3() {
    QFETCH(QString, codec);
    QFETCH(bool, surround);
    QFETCH(bool, ac3Downmix);
    QFETCH(bool, dtsDownmix);
    // Every value but 0 and 2 is treated like 1.
    for (const int preset : {1, -1, 3, 1000}) {
      ConversionSettings settings = customSettings();
      settings.ConversionPreset = preset;
      settings.AC3Downmix = ac3Downmix;
      settings.DTSDownmix = dtsDownmix;
      QTEST(int(calculateConversionMethod(codec, surround, settings)), "method");
    }
  }

  void presetCustom_data() {
    QTest::addColumn<QString>("codec");
    QTest::addColumn<bool>("surround");
    QTest::addColumn<int>("method");
    QTest::newRow("ac3 stereo") << u"ac3"_s << false << 3;
    QTest::newRow("ac3 5.1") << u"ac3"_s << true << 1;
    QTest::newRow("dts stereo") << u"dts"_s << false << 0;
    QTest::newRow("dts 5.1") << u"dts"_s << true << 2;
    QTest::newRow("mp3 stereo") << u"mp3"_s << false << 3;
    QTest::newRow("mp3 5.1 is unknown") << u"mp3"_s << true << 1;
    QTest::newRow("vorbis stereo") << u"vorbis"_s << false << 0;
    QTest::newRow("vorbis 5.1 is unknown") << u"vorbis"_s << true << 1;
    for (const QString &codec : otherCodecs) {
      QTest::addRow("'%s' stereo", qPrintable(codec)) << codec << false << 1;
      QTest::addRow("'%s' 5.1", qPrintable(codec)) << codec << true << 1;
    }
  }
  void presetCustom() {
    QFETCH(QString, codec);
    QFETCH(bool, surround);
    QTEST(int(calculateConversionMethod(codec, surround, customSettings())), "method");
  }

  void customValueIsReturnedAsItStands() {
    ConversionSettings settings = customSettings();
    for (int value = 0; value <= 3; ++value) {
      settings.CustomUnknownHandling = value;
      QCOMPARE(int(calculateConversionMethod(u"opus"_s, true, settings)), value);
    }
  }

  void customValueOutOfRangeIsRefused() {
    ConversionSettings settings = customSettings();
    for (const int value : {-1, 4, 255}) {
      settings.CustomDTSHandling = value;
      QVERIFY_THROWS_EXCEPTION(ostrak::RangeError,
                               (void)calculateConversionMethod(u"dts"_s, false, settings));
      // The setting of another class of track is not looked at.
      QCOMPARE(calculateConversionMethod(u"dts"_s, true, settings), ConversionMethodAC3Surround);
    }
  }

  void methodOfTrack_data() {
    QTest::addColumn<QString>("description");
    QTest::addColumn<int>("method");
    QTest::newRow("stereo") << u"#1: eng (ac3)"_s << 3;
    QTest::newRow("surround") << u"#1: eng (ac3) [5.1]"_s << 1;
    QTest::newRow("5.1 in the language") << u"#1: 5.1 (ac3)"_s << 1;
    QTest::newRow("aac") << u"#12: und (aac) [5.1]"_s << 3;
  }
  void methodOfTrack() {
    QFETCH(QString, description);
    ConversionSettings settings;
    settings.ConversionPreset = ConversionPresetAC3;
    settings.AC3Downmix = true;
    QTEST(int(conversionMethodOf({description, 0}, settings)), "method");
  }
};

QTEST_GUILESS_MAIN(TestConversionMethod)
#include "tst_conversionmethod.moc"
