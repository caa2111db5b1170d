#include <QtTest>

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
  void readingNeverWrites();
  void brokenFileIsKeptAsideOnce();
  void storedValueOutOfRangeIsToldOnce();
  void storedValuesAreToldOneByOne_data();
  void storedValuesAreToldOneByOne();
  void storedValueThatTheRunOverridesIsNotTold();
  void storedValueThatIsNoTextIsShown();
  void folderInItsPlaceIsToldOnce_data();
  void folderInItsPlaceIsToldOnce();
  void fileThatCannotBeWritten();
  void fileThatCannotBeReadIsToldAndLeft_data();
  void fileThatCannotBeReadIsToldAndLeft();
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

void TestCliSettings::readingNeverWrites() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  {
    // Each of these would be repaired by a launch.
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"DefaultDestination"_s, 3);
    file.setValue(u"CustomUnknownHandling"_s, 2);
  }
  const QByteArray before = program.settings();
  for (const QStringList &arguments : {QStringList{u"settings"_s, u"list"_s},
                                       {u"settings"_s, u"get"_s, u"AutoAdd"_s},
                                       {u"probe"_s, u"a.mkv"_s},
                                       {u"convert"_s, u"--dry-run"_s, u"a.mkv"_s}}) {
    const DecantOutcome outcome = program.run(arguments);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.error.count("CustomUnknownHandling"), 1);
    QCOMPARE(program.settings(), before);
  }
}

void TestCliSettings::brokenFileIsKeptAsideOnce() {
  const DecantProgram program;
  const QByteArray broken("[General\nAACBitrate=3\n\x01\x02 no settings");
  {
    QFile file(program.settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(broken);
  }
  const DecantOutcome read = program.run({u"settings"_s, u"get"_s, u"AACBitrate"_s});
  QCOMPARE(read.output, QByteArray("1\n"));
  QCOMPARE(read.error.count(program.settingsFile().toUtf8()), 1);
  QCOMPARE(program.settings(), broken);
  const DecantOutcome outcome = program.run({u"settings"_s, u"set"_s, u"AutoAdd"_s, u"1"_s});
  QCOMPARE(outcome.status, 0);
  const QString aside = program.settingsFile() + u".broken-1"_s;
  QCOMPARE(outcome.error.count(aside.toUtf8()), 1);
  QFile kept(aside);
  QVERIFY(kept.open(QIODevice::ReadOnly));
  QCOMPARE(kept.readAll(), broken);
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"AutoAdd"_s, u"0"_s}).error, QByteArray());
}

void TestCliSettings::storedValueOutOfRangeIsToldOnce() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  {
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"AACBitrate"_s, 9);
    file.setValue(u"CustomUnknownHandling"_s, 2);
    file.setValue(u"DefaultAudio"_s, 1);
  }
  const DecantOutcome outcome = program.run({u"convert"_s, u"a.mkv"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 0);
  for (const char *key : {"AACBitrate", "CustomUnknownHandling", "DefaultAudio"})
    QCOMPARE(outcome.error.count(key), 1);
  QCOMPARE(outcome.error.count('\n'), 3);
  QVERIFY(outcome.error.contains("0 to 3"));
  QVERIFY(program.files().contains(u"b.m4v"_s));
  // The repair of a launch stays; what is only read as its default stays as it was.
  QVERIFY(program.settings().contains("CustomUnknownHandling=1"));
  QVERIFY(program.settings().contains("AACBitrate=9"));
}

void TestCliSettings::storedValuesAreToldOneByOne_data() {
  QTest::addColumn<QStringList>("arguments");
  QTest::newRow("convert") << QStringList{u"convert"_s, u"a.mkv"_s};
  QTest::newRow("dry run") << QStringList{u"convert"_s, u"--dry-run"_s, u"a.mkv"_s};
  QTest::newRow("probe") << QStringList{u"probe"_s, u"a.mkv"_s};
  QTest::newRow("settings") << QStringList{u"settings"_s, u"list"_s};
}

void TestCliSettings::storedValuesAreToldOneByOne() {
  QFETCH(const QStringList, arguments);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  {
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"AACBitrate"_s, 9);
    file.setValue(u"DefaultAudio"_s, 1);
  }
  const DecantOutcome outcome = program.run(arguments);
  QCOMPARE(outcome.status, 0);
  const QList<QByteArray> lines = outcome.error.split('\n');
  QCOMPARE(lines.size(), 3);
  QVERIFY(lines.at(0).startsWith("decant: ") && lines.at(0).contains("AACBitrate"));
  QVERIFY(lines.at(1).startsWith("decant: ") && lines.at(1).contains("DefaultAudio"));
}

void TestCliSettings::storedValueThatTheRunOverridesIsNotTold() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  {
    QSettings file(program.settingsFile(), QSettings::IniFormat);
    file.setValue(u"AACBitrate"_s, 9);
  }
  const QStringList overriding{u"--set"_s, u"AACBitrate=2"_s, u"a.mkv"_s};
  for (const QStringList &run : {QStringList{u"convert"_s, u"--dry-run"_s}, {u"convert"_s}}) {
    const DecantOutcome outcome = program.run(run + overriding);
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.error, QByteArray());
  }
}

void TestCliSettings::storedValueThatIsNoTextIsShown() {
  const DecantProgram program;
  {
    QFile file(program.settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("[General]\nAACBitrate=@Invalid()\nAutoAdd=1, 0\nAutoClean=\n") > 0);
  }
  const DecantOutcome outcome = program.run({u"settings"_s, u"get"_s, u"AACBitrate"_s});
  QCOMPARE(outcome.output, QByteArray("1\n"));
  for (const char *part :
       {"\"@Invalid()\" of \"AACBitrate\"", "\"[1,0]\" of \"AutoAdd\"", "\"\" of \"AutoClean\""})
    QVERIFY2(outcome.error.contains(part), outcome.error.constData());
  QVERIFY(!outcome.error.contains("(null)"));
}

void TestCliSettings::folderInItsPlaceIsToldOnce_data() {
  QTest::addColumn<QStringList>("arguments");
  QTest::newRow("get") << QStringList{u"settings"_s, u"get"_s, u"AutoAdd"_s};
  QTest::newRow("probe") << QStringList{u"probe"_s, u"a.mkv"_s};
  QTest::newRow("dry run") << QStringList{u"convert"_s, u"--dry-run"_s, u"a.mkv"_s};
  QTest::newRow("convert") << QStringList{u"convert"_s, u"a.mkv"_s};
}

void TestCliSettings::folderInItsPlaceIsToldOnce() {
  QFETCH(const QStringList, arguments);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  QVERIFY(QDir().mkpath(program.settingsFile() + u"/kept"_s));
  const DecantOutcome outcome = program.run(arguments);
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.error.count(program.settingsFile().toUtf8()), 1);
  QCOMPARE(outcome.error.count('\n'), 1);
  QVERIFY(QFileInfo::exists(program.settingsFile() + u"/kept"_s));
  QCOMPARE(QDir(QFileInfo(program.settingsFile()).path())
               .entryList(QDir::AllEntries | QDir::NoDotAndDotDot)
               .size(),
           1);
}

void TestCliSettings::fileThatCannotBeWritten() {
  const DecantProgram program;
  const DecantOutcome outcome = program.shellAsNobody(
      "chmod a-w \"$XDG_CONFIG_HOME\"; $decant settings set AutoAdd 1; status=$?; "
      "chmod u+w \"$XDG_CONFIG_HOME\"; exit $status");
  QCOMPARE(outcome.status, 1);
  QVERIFY2(outcome.error.contains(program.settingsFile().toUtf8()), outcome.error.constData());
  QCOMPARE(outcome.error.count('\n'), 1);
}

void TestCliSettings::fileThatCannotBeReadIsToldAndLeft_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<QByteArray>("closed");
  QTest::addColumn<QByteArray>("arguments");
  const QByteArray broken = "[General\nno settings\n";
  const QByteArray good = "[General]\nAACBitrate=3\n";
  for (const char *arguments : {"convert a.mkv", "settings get AutoAdd"}) {
    QTest::addRow("broken, in a folder that is closed: %s", arguments)
        << broken << QByteArray("chmod a-w \"$XDG_CONFIG_HOME\"") << QByteArray(arguments);
    QTest::addRow("not to be opened: %s", arguments)
        << good << QByteArray("chmod 000 \"$XDG_CONFIG_HOME\"/*.conf") << QByteArray(arguments);
  }
}

void TestCliSettings::fileThatCannotBeReadIsToldAndLeft() {
  QFETCH(const QByteArray, bytes);
  QFETCH(const QByteArray, closed);
  QFETCH(const QByteArray, arguments);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  {
    QFile file(program.settingsFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  const DecantOutcome outcome = program.shellAsNobody(
      "mkdir \"$HOME/films\" && cp a.mkv \"$HOME/films\" && cd \"$HOME/films\" && " + closed +
      "; $decant " + arguments + "; status=$?; chmod -R u+rwX \"$XDG_CONFIG_HOME\"; exit $status");
  QCOMPARE(outcome.status, 0);
  QVERIFY2(outcome.error.contains(program.settingsFile().toUtf8()), outcome.error.constData());
  QVERIFY2(outcome.error.contains("is not used"), outcome.error.constData());
  QCOMPARE(outcome.error.count('\n'), 1);
  QCOMPARE(program.settings(), bytes);
}

QTEST_GUILESS_MAIN(TestCliSettings)
#include "tst_cli_settings.moc"
