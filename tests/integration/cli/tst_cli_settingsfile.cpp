#include <QDir>
#include <QFileInfo>
#include <QList>
#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

// What stands in the settings file: values that cannot be used, and a file that cannot be.
class TestCliSettingsFile final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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

void TestCliSettingsFile::readingNeverWrites() {
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

void TestCliSettingsFile::brokenFileIsKeptAsideOnce() {
  const DecantProgram program;
  const QByteArray broken("[General\nAACBitrate=3\n\x01\x02 no settings");
  QVERIFY(wholefile::write(program.settingsFile(), broken));
  const DecantOutcome read = program.run({u"settings"_s, u"get"_s, u"AACBitrate"_s});
  QCOMPARE(read.output, QByteArray("1\n"));
  QCOMPARE(read.error.count(program.settingsFile().toUtf8()), 1);
  QCOMPARE(program.settings(), broken);
  const DecantOutcome outcome = program.run({u"settings"_s, u"set"_s, u"AutoAdd"_s, u"1"_s});
  QCOMPARE(outcome.status, 0);
  const QString aside = program.settingsFile() + u".broken-1"_s;
  QCOMPARE(outcome.error.count(aside.toUtf8()), 1);
  QCOMPARE(wholefile::read(aside), broken);
  QCOMPARE(program.run({u"settings"_s, u"set"_s, u"AutoAdd"_s, u"0"_s}).error, QByteArray());
}

void TestCliSettingsFile::storedValueOutOfRangeIsToldOnce() {
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

void TestCliSettingsFile::storedValuesAreToldOneByOne_data() {
  QTest::addColumn<QStringList>("arguments");
  QTest::newRow("convert") << QStringList{u"convert"_s, u"a.mkv"_s};
  QTest::newRow("dry run") << QStringList{u"convert"_s, u"--dry-run"_s, u"a.mkv"_s};
  QTest::newRow("probe") << QStringList{u"probe"_s, u"a.mkv"_s};
  QTest::newRow("settings") << QStringList{u"settings"_s, u"list"_s};
}

void TestCliSettingsFile::storedValuesAreToldOneByOne() {
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

void TestCliSettingsFile::storedValueThatTheRunOverridesIsNotTold() {
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

void TestCliSettingsFile::storedValueThatIsNoTextIsShown() {
  const DecantProgram program;
  QVERIFY(wholefile::write(program.settingsFile(),
                           "[General]\nAACBitrate=@Invalid()\nAutoAdd=1, 0\nAutoClean=\n"));
  const DecantOutcome outcome = program.run({u"settings"_s, u"get"_s, u"AACBitrate"_s});
  QCOMPARE(outcome.output, QByteArray("1\n"));
  for (const char *part :
       {"\"@Invalid()\" of \"AACBitrate\"", "\"[1,0]\" of \"AutoAdd\"", "\"\" of \"AutoClean\""})
    QVERIFY2(outcome.error.contains(part), outcome.error.constData());
  QVERIFY(!outcome.error.contains("(null)"));
}

void TestCliSettingsFile::folderInItsPlaceIsToldOnce_data() {
  QTest::addColumn<QStringList>("arguments");
  QTest::newRow("get") << QStringList{u"settings"_s, u"get"_s, u"AutoAdd"_s};
  QTest::newRow("probe") << QStringList{u"probe"_s, u"a.mkv"_s};
  QTest::newRow("dry run") << QStringList{u"convert"_s, u"--dry-run"_s, u"a.mkv"_s};
  QTest::newRow("convert") << QStringList{u"convert"_s, u"a.mkv"_s};
}

void TestCliSettingsFile::folderInItsPlaceIsToldOnce() {
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

void TestCliSettingsFile::fileThatCannotBeWritten() {
  const DecantProgram program;
  const DecantOutcome outcome = program.shellAsNobody(
      "chmod a-w \"$XDG_CONFIG_HOME\"; $decant settings set AutoAdd 1; status=$?; "
      "chmod u+w \"$XDG_CONFIG_HOME\"; exit $status");
  QCOMPARE(outcome.status, 1);
  QVERIFY2(outcome.error.contains(program.settingsFile().toUtf8()), outcome.error.constData());
  QCOMPARE(outcome.error.count('\n'), 1);
}

void TestCliSettingsFile::fileThatCannotBeReadIsToldAndLeft_data() {
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

void TestCliSettingsFile::fileThatCannotBeReadIsToldAndLeft() {
  QFETCH(const QByteArray, bytes);
  QFETCH(const QByteArray, closed);
  QFETCH(const QByteArray, arguments);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  QVERIFY(wholefile::write(program.settingsFile(), bytes));
  const DecantOutcome outcome = program.shellAsNobody(
      "mkdir \"$HOME/films\" && cp a.mkv \"$HOME/films\" && cd \"$HOME/films\" && " + closed +
      "; $decant " + arguments + "; status=$?; chmod -R u+rwX \"$XDG_CONFIG_HOME\"; exit $status");
  QCOMPARE(outcome.status, 0);
  QVERIFY2(outcome.error.contains(program.settingsFile().toUtf8()), outcome.error.constData());
  QVERIFY2(outcome.error.contains("is not used"), outcome.error.constData());
  QCOMPARE(outcome.error.count('\n'), 1);
  QCOMPARE(program.settings(), bytes);
}

QTEST_GUILESS_MAIN(TestCliSettingsFile)
#include "tst_cli_settingsfile.moc"
