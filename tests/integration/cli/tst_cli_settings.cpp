#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

class TestCliSettings final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void listHasEverySettingAndNothingElse();
  void listForPeople();
  void setGetReset();
  void volumeIsPrintedAsItWasSet_data();
  void volumeIsPrintedAsItWasSet();
  void refusals_data();
  void refusals();
  void aChosenDestinationSurvivesTheNextLaunch();
  void resetAllKeepsDestinations();
};

void TestCliSettings::listHasEverySettingAndNothingElse() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  QCOMPARE(program.run({u"convert"_s, u"a.mkv"_s}).status, 0);  // makes counters
  const DecantOutcome outcome = program.run({u"settings"_s, u"list"_s, u"--json"_s});
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.objects().size(), 1);
  const QJsonObject values = outcome.objects().first();
  QCOMPARE(values.size(), 35);
  QCOMPARE(values.value(u"CustomAC3Handling"_s), 3);
  QCOMPARE(values.value(u"AudioVolume"_s), 100);
  QCOMPARE(values.value(u"WelcomeShown"_s), 1);
  QCOMPARE(values.value(u"DestinationBookmarks"_s), QJsonArray());
  for (const auto key : {"HEAACConvert"_L1, "ProduceStreamableFiles"_L1, "InsertJobsAtBottom"_L1})
    QCOMPARE(values.value(key), 0);
  for (const auto &key : values.keys())
    QVERIFY2(!key.contains(u"usages"_s), qUtf8Printable(key));
  QVERIFY(!values.contains(u"convertedFileCount"_s));
}

void TestCliSettings::listForPeople() {
  const DecantOutcome outcome = DecantProgram().run({u"settings"_s, u"list"_s});
  const QList<QByteArray> lines = outcome.output.trimmed().split('\n');
  QCOMPARE(lines.size(), 35);
  QCOMPARE(lines.at(0), QByteArray("ConversionPreset                0"));
  QCOMPARE(lines.at(2), QByteArray("IncludeSurroundTrackTranscoded  1"));
  QVERIFY(lines.contains("DestinationNames"));
}

void TestCliSettings::setGetReset() {
  const DecantProgram program;
  const auto get = [&program](const QString &key) {
    return program.run({u"settings"_s, u"get"_s, key}).output;
  };
  QCOMPARE(get(u"AACBitrate"_s), QByteArray("1\n"));
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"AACBitrate"_s, u"3"_s}).status, 0);
  QCOMPARE(get(u"AACBitrate"_s), QByteArray("3\n"));
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"AudioVolume"_s, u"99.5"_s}).status, 0);
  QCOMPARE(get(u"AudioVolume"_s), QByteArray("99.5\n"));
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"HEAACConvert"_s, u"1"_s}).status, 0);
  QCOMPARE(get(u"HEAACConvert"_s), QByteArray("1\n"));
  const DecantOutcome reset =
      program.run({u"settings"_s, u"reset"_s, u"AACBitrate"_s, u"HEAACConvert"_s});
  QCOMPARE(reset.status, 0);
  QCOMPARE(reset.output + reset.error, QByteArray());
  QCOMPARE(get(u"AACBitrate"_s), QByteArray("1\n"));
  QCOMPARE(get(u"HEAACConvert"_s), QByteArray("0\n"));
  QCOMPARE(get(u"AudioVolume"_s), QByteArray("99.5\n"));
}

void TestCliSettings::volumeIsPrintedAsItWasSet_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QByteArray>("printed");
  const auto row = [](const char *text, const char *printed) {
    QTest::newRow(text) << QString::fromLatin1(text) << QByteArray(printed);
  };
  row("33.1", "33.1");
  row("99.99999", "99.99999");
  row("1000", "1000");
  row("1e2", "100");
  row("0.1", "0.1");
}

void TestCliSettings::volumeIsPrintedAsItWasSet() {
  QFETCH(const QString, text);
  QFETCH(const QByteArray, printed);
  const DecantProgram program;
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"AudioVolume"_s, text}).status, 0);
  QCOMPARE(program.run({u"settings"_s, u"get"_s, u"AudioVolume"_s}).output, printed + '\n');
  const QByteArray list = program.run({u"settings"_s, u"list"_s, u"--json"_s}).output;
  const QByteArray entry = "\"AudioVolume\":" + printed + ',';
  QVERIFY2(list.contains(entry), list.constData());
}

void TestCliSettings::refusals_data() {
  QTest::addColumn<QStringList>("words");
  QTest::addColumn<QByteArray>("allowed");
  const auto row = [](const QString &key, const QString &value, const char *allowed) {
    QTest::addRow("%s %s", qPrintable(key), qPrintable(value))
        << QStringList{u"set"_s, key, value} << QByteArray(allowed);
  };
  row(u"AutoAdd"_s, u"2"_s, "0 or 1");
  row(u"AutoAdd"_s, u"yes"_s, "0 or 1");
  row(u"AutoAdd"_s, u""_s, "0 or 1");
  row(u"ConversionPreset"_s, u"3"_s, "0 to 2");
  row(u"CustomUnknownHandling"_s, u"2"_s, "0 or 1");
  row(u"DefaultAudio"_s, u"1"_s, "0 or 2 to 8");
  row(u"AACBitrate"_s, u"9"_s, "0 to 3");
  row(u"AACBitrate"_s, u"-1"_s, "0 to 3");
  row(u"AACBitrate"_s, u"1.5"_s, "0 to 3");
  row(u"AudioVolume"_s, u"1001"_s, "0 to 1000");
  row(u"AudioVolume"_s, u"nan"_s, "0 to 1000");
  row(u"ExternalSubtitleEncoding"_s, u"39"_s, "38");
  row(u"DestinationNames"_s, u"x"_s, "DestinationNames");
  row(u"ostrak_usages"_s, u"5"_s, "ostrak_usages");
  QTest::newRow("reset of one that is not there")
      << QStringList{u"reset"_s, u"AutoAdd"_s, u"Bogus"_s} << QByteArray("Bogus");
  QTest::newRow("reset of a list")
      << QStringList{u"reset"_s, u"DestinationBookmarks"_s} << QByteArray("DestinationBookmarks");
}

void TestCliSettings::refusals() {
  QFETCH(const QStringList, words);
  QFETCH(const QByteArray, allowed);
  const DecantProgram program;
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"AutoAdd"_s, u"1"_s}).status, 0);
  const DecantOutcome outcome = program.run(QStringList{u"settings"_s} + words);
  QCOMPARE(outcome.status, 2);
  QVERIFY2(outcome.error.split('\n').first().contains(allowed), outcome.error.constData());
  QVERIFY(outcome.error.contains("\nusage: decant settings"));
  // All or nothing.
  QCOMPARE(program.run({u"settings"_s, u"get"_s, u"AutoAdd"_s}).output, QByteArray("1\n"));
}

// A launch moves the index of an older version by one; a new one is not of that kind.
void TestCliSettings::aChosenDestinationSurvivesTheNextLaunch() {
  const DecantProgram program;
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"DefaultDestination"_s, u"1"_s}).status, 0);
  QCOMPARE(program.run({u"convert"_s, u"missing.mkv"_s}).status, 1);
  QCOMPARE(program.run({u"settings"_s, u"get"_s, u"DefaultDestination"_s}).output.trimmed(), "1");
}

void TestCliSettings::resetAllKeepsDestinations() {
  const DecantProgram program;
  {
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"DestinationNames"_s, QStringList{u"Phone"_s, u"TV"_s});
    file.setValue(u"AACBitrate"_s, 2);
    file.setValue(u"ostrak_usages"_s, 7);
  }
  QCOMPARE(program.run({u"settings"_s, u"reset"_s, u"--all"_s}).status, 0);
  const QJsonObject values = program.run({u"settings"_s, u"list"_s, u"--json"_s}).objects().first();
  QCOMPARE(values.value(u"DestinationNames"_s), (QJsonArray{u"Phone"_s, u"TV"_s}));
  QCOMPARE(values.value(u"AACBitrate"_s), 1);
  QVERIFY(program.settings().contains("ostrak_usages=7"));
}

QTEST_GUILESS_MAIN(TestCliSettings)
#include "tst_cli_settings.moc"
