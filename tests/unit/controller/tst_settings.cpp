#include <QList>
#include <QSet>
#include <QStringList>
#include <QTest>
#include <QVariant>

#include "Defaults.h"
#include "ProgramTest.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

namespace {

// The settings and their defaults as they are documented, in that order; written down a second
// time.
const QList<QPair<QString, qint64>> documented{
    {u"ConversionPreset"_s, 0},
    {u"IncludeSurroundTrack"_s, 0},
    {u"IncludeSurroundTrackTranscoded"_s, 1},
    {u"WelcomeShown"_s, 1},
    {u"DefaultExtension"_s, 1},
    {u"AACBitrate"_s, 1},
    {u"AC3StereoBitrate"_s, 1},
    {u"AC3SurroundBitrate"_s, 1},
    {u"AudioVolume"_s, 100},
    {u"AutoAdd"_s, 0},
    {u"AutoClean"_s, 0},
    {u"AutoRemove"_s, 0},
    {u"AutoRemoveType"_s, 0},
    {u"Conversions"_s, 0},
    {u"HasUpgradedFromPre13"_s, 0},
    {u"ExternalSubtitleEncoding"_s, 0},
    {u"DefaultAudio"_s, 0},
    {u"DefaultDestination"_s, 0},
    {u"FixSubtitleDuration"_s, 1},
    {u"DestinationBookmarks"_s, 0},
    {u"DestinationNames"_s, 0},
    {u"DisableBuiltinSubtitles"_s, 1},
    {u"QuitAfterConversion"_s, 0},
    {u"DTSDownmix"_s, 0},
    {u"AC3Downmix"_s, 0},
    {u"CustomAC3Handling"_s, 3},
    {u"CustomAC351Handling"_s, 3},
    {u"CustomDTSHandling"_s, 1},
    {u"CustomDTS51Handling"_s, 2},
    {u"CustomVorbisHandling"_s, 1},
    {u"CustomMP3Handling"_s, 1},
    {u"CustomUnknownHandling"_s, 1},
    {u"HEAACConvert"_s, 0},
    {u"ProduceStreamableFiles"_s, 0},
    {u"InsertJobsAtBottom"_s, 0},
};
constexpr qsizetype registeredCount = 32;

}  // namespace

class TestSettings final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void tableHasEverySettingInItsOrder();
  void namesAreUnique();
  void unknownSettingIsNotFound();
  void registeredDefaultsAreRead();
  void registrationKeepsWhatIsStored();
  void text_data();
  void text();
  void destinationsAreAsManyAsFolders();
  void textBecomesAValue();
};

void TestSettings::tableHasEverySettingInItsOrder() {
  QList<QPair<QString, qint64>> table;
  qsizetype registered = 0;
  for (const Setting &setting : settingsTable()) {
    table.append({QString::fromLatin1(setting.key), setting.fallback});
    if (setting.registered) ++registered;
  }
  QCOMPARE(table, documented);
  QCOMPARE(registered, registeredCount);
}

void TestSettings::namesAreUnique() {
  QSet<QString> names;
  for (const Setting &setting : settingsTable())
    names.insert(QString::fromLatin1(setting.key));
  QCOMPARE(names.size(), static_cast<qsizetype>(settingsTable().size()));
}

void TestSettings::unknownSettingIsNotFound() {
  QVERIFY(findSetting(u"AutoAdd"_s) != nullptr);
  QVERIFY(findSetting(u"autoadd"_s) == nullptr);
  QVERIFY(findSetting(u"convertedFileCount"_s) == nullptr);
}

void TestSettings::registeredDefaultsAreRead() {
  for (qsizetype i = 0; i < documented.size(); ++i) {
    const auto &[key, fallback] = documented.at(i);
    if (key.startsWith(u"Destination"_s)) {
      QVERIFY(ostrak::defaultArray(key).isEmpty());
      QVERIFY(ostrak::defaultObject(key).isValid());
      continue;
    }
    QCOMPARE(ostrak::defaultInt(key), fallback);
    QCOMPARE(settingInt(key.toLatin1().constData()), fallback);
    QCOMPARE(ostrak::defaultObject(key).isValid(), i < registeredCount);
  }
}

void TestSettings::registrationKeepsWhatIsStored() {
  ostrak::setDefaultInt(u"AACBitrate"_s, 3);
  registerSettings();
  QCOMPARE(settingInt("AACBitrate"), 3);
}

void TestSettings::text_data() {
  QTest::addColumn<QString>("key");
  QTest::addColumn<QStringList>("taken");
  QTest::addColumn<QStringList>("refused");
  QTest::addColumn<QString>("allowed");
  const auto row = [](const char *key, const QStringList &taken, const QStringList &refused,
                      const QString &allowed) {
    QTest::newRow(key) << QString::fromLatin1(key) << taken << refused << allowed;
  };
  const QStringList noNumbers{u""_s, u"x"_s, u"1.5"_s, u"-1"_s, u"nan"_s, u"inf"_s, u"1e0"_s};
  const QString zeroOrOne = u"0 or 1"_s;
  const QString zeroToThree = u"0 to 3"_s;
  for (const char *key :
       {"IncludeSurroundTrack", "IncludeSurroundTrackTranscoded", "WelcomeShown", "AutoAdd",
        "AutoClean", "AutoRemove", "HasUpgradedFromPre13", "FixSubtitleDuration",
        "DisableBuiltinSubtitles", "QuitAfterConversion", "DTSDownmix", "AC3Downmix",
        "HEAACConvert", "ProduceStreamableFiles", "InsertJobsAtBottom", "DefaultExtension",
        "AutoRemoveType", "CustomUnknownHandling"})
    row(key, {u"0"_s, u"1"_s}, noNumbers + QStringList{u"2"_s, u"true"_s}, zeroOrOne);
  for (const char *key : {"AACBitrate", "AC3StereoBitrate", "AC3SurroundBitrate",
                          "CustomAC3Handling", "CustomAC351Handling", "CustomDTSHandling",
                          "CustomDTS51Handling", "CustomVorbisHandling", "CustomMP3Handling"})
    row(key, {u"0"_s, u"1"_s, u"3"_s}, noNumbers + QStringList{u"4"_s, u"9"_s}, zeroToThree);
  row("ConversionPreset", {u"0"_s, u"2"_s}, noNumbers + QStringList{u"3"_s}, u"0 to 2"_s);
  row("ExternalSubtitleEncoding", {u"0"_s, u"2"_s, u"38"_s},
      noNumbers + QStringList{u"1"_s, u"39"_s}, u"0 or 2 to 38"_s);
  row("DefaultAudio", {u"0"_s, u"2"_s, u"8"_s}, noNumbers + QStringList{u"1"_s, u"9"_s},
      u"0 or 2 to 8"_s);
  row("AudioVolume", {u"0"_s, u"1000"_s, u"99.5"_s, u"1e2"_s},
      {u""_s, u"x"_s, u"-1"_s, u"1000.5"_s, u"nan"_s, u"inf"_s}, u"a number from 0 to 1000"_s);
  row("DefaultDestination", {u"0"_s, u"1"_s}, noNumbers + QStringList{u"2"_s, u"3"_s, u"70"_s},
      u"0 or 1"_s);
  row("Conversions", {u"0"_s, u"70"_s}, noNumbers, u"a whole number from 0"_s);
  for (const char *key : {"DestinationBookmarks", "DestinationNames"})
    row(key, {}, {u""_s, u"0"_s, u"x"_s}, u"nothing that can be set as text"_s);
}

void TestSettings::text() {
  QFETCH(const QString, key);
  QFETCH(const QStringList, taken);
  QFETCH(const QStringList, refused);
  QFETCH(const QString, allowed);
  const Setting *setting = findSetting(key);
  QVERIFY(setting != nullptr);
  QCOMPARE(allowedValues(*setting), allowed);
  for (const QString &text : taken)
    QVERIFY2(refusalOfValue(*setting, text).isNull(), qPrintable(text));
  for (const QString &text : refused) {
    const QString refusal = refusalOfValue(*setting, text);
    QVERIFY2(refusal.contains(key) && refusal.contains(allowed),
             qPrintable(text + u": "_s + refusal));
  }
}

void TestSettings::destinationsAreAsManyAsFolders() {
  const Setting &setting = *findSetting(u"DefaultDestination"_s);
  const auto taken = [&setting] {
    QStringList texts;
    for (int i = 0; i < 10; ++i) {
      const QString text = QString::number(i);
      if (refusalOfValue(setting, text).isNull()) texts.append(text);
    }
    return texts;
  };
  ostrak::setDefaultArray(u"DestinationBookmarks"_s, {QByteArray("a")});
  QCOMPARE(taken(), (QStringList{u"0"_s, u"1"_s, u"3"_s}));
  QCOMPARE(allowedValues(setting), u"0, 1 or 3"_s);
  ostrak::setDefaultArray(u"DestinationBookmarks"_s, {QByteArray("a"), QByteArray("b")});
  QCOMPARE(taken(), (QStringList{u"0"_s, u"1"_s, u"3"_s, u"4"_s}));
  QCOMPARE(allowedValues(setting), u"0, 1 or 3 to 4"_s);
}

void TestSettings::textBecomesAValue() {
  QCOMPARE(valueFromText(*findSetting(u"AACBitrate"_s), u"2"_s), QVariant(qint64(2)));
  QCOMPARE(valueFromText(*findSetting(u"AudioVolume"_s), u"150"_s), QVariant(qint64(150)));
  QCOMPARE(valueFromText(*findSetting(u"AudioVolume"_s), u"99.5"_s), QVariant(99.5));
}

QTEST_GUILESS_MAIN(TestSettings)
#include "tst_settings.moc"
