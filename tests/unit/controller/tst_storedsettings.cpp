#include <QList>
#include <QStringList>
#include <QTest>
#include <QVariant>

#include "Defaults.h"
#include "ProgramTest.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

int countOf(const QStringList &messages, const QString &part) {
  return static_cast<int>(std::ranges::count_if(
      messages, [&part](const QString &message) { return message.contains(part); }));
}

}  // namespace

// Values that lie in the store, however they came there.
class TestStoredSettings final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void outOfRangeReadsAsDefaultAndIsToldOnce();
  void valuesWithARuleOfTheirOwnAreReadAsTheyAre();
  void hugeStyleIsAnyOtherValue();
  void storedTextsAreRead_data();
  void storedTextsAreRead();
  void storedValuesAreComplainedAbout();
  void choicesSurviveARestart();
  void everyConversionSettingIsRead();
  void everyCompletionSettingIsRead();
};

// Told once a process, so each of these keys is used in this function only.
void TestStoredSettings::outOfRangeReadsAsDefaultAndIsToldOnce() {
  ostrak::setDefaultInt(u"AC3StereoBitrate"_s, 9);
  ostrak::setDefaultInt(u"DefaultAudio"_s, 1);
  ostrak::setDefaultInt(u"CustomVorbisHandling"_s, -1);
  ostrak::setDefaultString(u"AudioVolume"_s, u"loud"_s);
  ostrak::setDefaultInt(u"DTSDownmix"_s, 2);
  for (int i = 0; i < 3; ++i) {
    QCOMPARE(settingInt("AC3StereoBitrate"), 1);
    QCOMPARE(settingInt("DefaultAudio"), 0);
    QCOMPARE(settingInt("CustomVorbisHandling"), 1);
    QCOMPARE(settingFloat("AudioVolume"), 100.0F);
    QCOMPARE(settingBool("DTSDownmix"), false);
  }
  for (const QString &key : {u"AC3StereoBitrate"_s, u"DefaultAudio"_s, u"CustomVorbisHandling"_s,
                             u"AudioVolume"_s, u"DTSDownmix"_s})
    QCOMPARE(countOf(m_program->logged(), key), 1);
  QCOMPARE(ostrak::defaultInt(u"AC3StereoBitrate"_s), 9);
}

void TestStoredSettings::valuesWithARuleOfTheirOwnAreReadAsTheyAre() {
  ostrak::setDefaultInt(u"ConversionPreset"_s, 7);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 70);
  QCOMPARE(settingInt("ConversionPreset"), 7);
  QCOMPARE(settingInt("DefaultDestination"), 70);
  QVERIFY(storedValueComplaints().isEmpty());
  QVERIFY(m_program->logged().isEmpty());
}

void TestStoredSettings::hugeStyleIsAnyOtherValue() {
  for (const qint64 stored : {qint64{1} << 32, (qint64{1} << 32) + 2, -(qint64{1} << 32)}) {
    ostrak::tk->userDefaults().setValue(u"ConversionPreset"_s, stored);
    const int style = readConversionSettings().ConversionPreset;
    QVERIFY(style != ConversionPresetAAC && style != ConversionPresetCustom);
  }
}

void TestStoredSettings::storedTextsAreRead_data() {
  QTest::addColumn<QVariant>("stored");
  QTest::addColumn<bool>("expected");
  QTest::newRow("1") << QVariant(u"1"_s) << true;
  QTest::newRow("0") << QVariant(u"0"_s) << false;
  QTest::newRow("true") << QVariant(u"true"_s) << true;
  QTest::newRow("false") << QVariant(u"false"_s) << false;
  QTest::newRow("boolean") << QVariant(true) << true;
  QTest::newRow("floating point") << QVariant(1.0) << true;
}

void TestStoredSettings::storedTextsAreRead() {
  QFETCH(const QVariant, stored);
  QFETCH(const bool, expected);
  ostrak::setDefaultObject(u"AutoAdd"_s, stored);
  QCOMPARE(settingBool("AutoAdd"), expected);
}

void TestStoredSettings::storedValuesAreComplainedAbout() {
  QVERIFY(storedValueComplaints().isEmpty());
  ostrak::setDefaultInt(u"AACBitrate"_s, 9);
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  ostrak::setDefaultArray(u"DestinationNames"_s, {u"Films"_s});
  QCOMPARE(
      storedValueComplaints(),
      QStringList{u"The stored value \"9\" of \"AACBitrate\" is out of range (allowed: 0 to 3); "
                  "1 is used."_s});
}

void TestStoredSettings::choicesSurviveARestart() {
  ostrak::setDefaultInt(u"CustomDTSHandling"_s, 3);
  ostrak::setDefaultFloat(u"AudioVolume"_s, 99.5F);
  ostrak::setDefaultInt(u"DisableBuiltinSubtitles"_s, 0);
  m_program->restart();
  registerSettings();
  QCOMPARE(settingInt("CustomDTSHandling"), 3);
  QCOMPARE(settingFloat("AudioVolume"), 99.5F);
  QCOMPARE(settingBool("DisableBuiltinSubtitles"), false);
}

void TestStoredSettings::everyConversionSettingIsRead() {
  const ConversionSettings fresh = readConversionSettings();
  QCOMPARE(fresh.CustomDTS51Handling, 2);
  QCOMPARE(fresh.AudioVolume, 100.0F);
  QCOMPARE(fresh.IncludeSurroundTrackTranscoded, true);
  const QList<QPair<QString, int>> values{{u"ConversionPreset"_s, 2},
                                          {u"CustomAC3Handling"_s, 0},
                                          {u"CustomAC351Handling"_s, 1},
                                          {u"CustomDTSHandling"_s, 2},
                                          {u"CustomDTS51Handling"_s, 3},
                                          {u"CustomMP3Handling"_s, 0},
                                          {u"CustomUnknownHandling"_s, 0},
                                          {u"AACBitrate"_s, 2},
                                          {u"AC3SurroundBitrate"_s, 0},
                                          {u"ExternalSubtitleEncoding"_s, 38},
                                          {u"AC3Downmix"_s, 1},
                                          {u"IncludeSurroundTrack"_s, 1},
                                          {u"IncludeSurroundTrackTranscoded"_s, 0},
                                          {u"DisableBuiltinSubtitles"_s, 0},
                                          {u"FixSubtitleDuration"_s, 0},
                                          {u"ProduceStreamableFiles"_s, 1}};
  for (const auto &[key, value] : values)
    ostrak::setDefaultInt(key, value);
  const ConversionSettings read = readConversionSettings();
  QCOMPARE(read.ConversionPreset, 2);
  QCOMPARE(read.CustomAC3Handling, 0);
  QCOMPARE(read.CustomAC351Handling, 1);
  QCOMPARE(read.CustomDTSHandling, 2);
  QCOMPARE(read.CustomDTS51Handling, 3);
  QCOMPARE(read.CustomMP3Handling, 0);
  QCOMPARE(read.CustomUnknownHandling, 0);
  QCOMPARE(read.AACBitrate, 2);
  QCOMPARE(read.AC3SurroundBitrate, 0);
  QCOMPARE(read.ExternalSubtitleEncoding, 38);
  QVERIFY(read.AC3Downmix && read.IncludeSurroundTrack && read.ProduceStreamableFiles);
  QVERIFY(!read.IncludeSurroundTrackTranscoded && !read.DisableBuiltinSubtitles);
  QVERIFY(!read.FixSubtitleDuration && !read.DTSDownmix);
}

void TestStoredSettings::everyCompletionSettingIsRead() {
  for (const QString &key :
       {u"AutoClean"_s, u"AutoRemove"_s, u"AutoRemoveType"_s, u"QuitAfterConversion"_s})
    ostrak::setDefaultInt(key, 1);
  const CompletionSettings read = readCompletionSettings();
  QVERIFY(read.AutoClean && read.AutoRemove && read.QuitAfterConversion);
  QCOMPARE(read.AutoRemoveType, 1);
}

QTEST_GUILESS_MAIN(TestStoredSettings)
#include "tst_storedsettings.moc"
