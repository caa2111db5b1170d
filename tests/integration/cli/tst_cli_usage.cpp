#include <QFileInfo>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

class TestCliUsage final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void helpAndVersion_data();
  void helpAndVersion();
  void versionWithoutInformation_data();
  void versionWithoutInformation();
  void wrongUsage_data();
  void wrongUsage();
  void withoutADisplay();
  void withADisplay();
  void writesNothing();
  void inThePlainLocale();
  void withClosedStreams();
};

void TestCliUsage::helpAndVersion_data() {
  QTest::addColumn<QStringList>("arguments");
  QTest::addColumn<QByteArray>("begins");
  QTest::newRow("help") << QStringList{u"--help"_s} << QByteArray("usage: decant [FILE…] |");
  QTest::newRow("version") << QStringList{u"--version"_s} << QByteArray("Decant 0.1.0\n");
  QTest::newRow("probe") << QStringList{u"probe"_s, u"--help"_s}
                         << QByteArray("usage: decant probe [--json] FILE…\n");
  QTest::newRow("convert") << QStringList{u"convert"_s, u"--help"_s}
                           << QByteArray("usage: decant convert [-o DIR] [-r]");
  QTest::newRow("settings list") << QStringList{u"settings"_s, u"list"_s, u"--help"_s}
                                 << QByteArray("usage: decant settings list [--json] |");
  QTest::newRow("settings") << QStringList{u"settings"_s, u"--help"_s}
                            << QByteArray("usage: decant settings list [--json] |");
}

void TestCliUsage::helpAndVersion() {
  QFETCH(const QStringList, arguments);
  QFETCH(const QByteArray, begins);
  const DecantProgram program;
  const DecantOutcome outcome = program.run(arguments);
  QCOMPARE(outcome.status, 0);
  QVERIFY2(outcome.output.startsWith(begins), outcome.output.constData());
  QCOMPARE(outcome.error, QByteArray());
  QStringList shortly = arguments;
  shortly.replaceInStrings(u"--help"_s, u"-h"_s);
  QCOMPARE(program.run(shortly).output, outcome.output);
}

void TestCliUsage::versionWithoutInformation_data() {
  QTest::addColumn<QByteArray>("damage");
  QTest::newRow("missing") << QByteArray("rm");
  QTest::newRow("empty") << QByteArray("truncate -s 0");
}

void TestCliUsage::versionWithoutInformation() {
  QFETCH(const QByteArray, damage);
  const DecantProgram program;
  const DecantOutcome outcome =
      program.shell(damage + " \"${decant%/*}/resources/Info.json\"; $decant --version");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.output, QByteArray());
  QCOMPARE(outcome.error.count('\n'), 1);
  QVERIFY2(outcome.error.contains("resources/Info.json'"), outcome.error.constData());
}

void TestCliUsage::wrongUsage_data() {
  QTest::addColumn<QStringList>("arguments");
  QTest::addColumn<QByteArray>("wrong");
  const auto row = [](const char *name, const QStringList &arguments, const char *wrong) {
    QTest::newRow(name) << arguments << QByteArray(wrong);
  };
  row("unknown option", {u"convert"_s, u"--fast"_s, u"a.mkv"_s}, "'--fast'");
  row("an empty track", {u"convert"_s, u"--audio"_s, u""_s, u"a.mkv"_s}, "not ''");
  row("an empty setting", {u"convert"_s, u"--set"_s, u""_s, u"a.mkv"_s}, "not ''");
  row("no file", {u"convert"_s}, "No FILE");
  row("no movie", {u"convert"_s, u"a.srt"_s}, "no movie among the FILEs");
  row("no movie below a folder", {u"convert"_s, u"-r"_s, u"empty"_s}, "/movies/empty'");
  row("no movie below two folders", {u"convert"_s, u"-r"_s, u"empty"_s, u"void/"_s},
      "/movies/empty', '");
  row("unknown key", {u"convert"_s, u"--set"_s, u"Bogus=1"_s, u"a.mkv"_s}, "'Bogus'");
  row("bitrate 9", {u"convert"_s, u"--set"_s, u"AACBitrate=9"_s, u"a.mkv"_s}, "0 to 3");
  row("language 1", {u"convert"_s, u"--set"_s, u"DefaultAudio=1"_s, u"a.mkv"_s}, "0 or 2 to 8");
  row("a destination that is not there",
      {u"convert"_s, u"--set"_s, u"DefaultDestination=99"_s, u"a.mkv"_s}, "0 or 1");
  row("the separator", {u"settings"_s, u"set"_s, u"DefaultDestination"_s, u"2"_s}, "0 or 1");
  row("a list", {u"convert"_s, u"--set"_s, u"DestinationNames=x"_s, u"a.mkv"_s},
      "'DestinationNames'");
  row("subtitle for two", {u"convert"_s, u"--subtitle"_s, u"a.srt"_s, u"a.mkv"_s, u"b.mkv"_s},
      "one movie, not with 2");
  row("unknown setting", {u"settings"_s, u"get"_s, u"Bogus"_s}, "'Bogus'");
  row("out of range", {u"settings"_s, u"set"_s, u"CustomUnknownHandling"_s, u"2"_s}, "0 or 1");
}

void TestCliUsage::wrongUsage() {
  QFETCH(const QStringList, arguments);
  QFETCH(const QByteArray, wrong);
  const DecantProgram program;
  for (const auto name :
       {"a.mkv"_L1, "b.mkv"_L1, "a.srt"_L1, "empty/notes.txt"_L1, "void/a.srt"_L1})
    program.file(name);
  const QStringList before = program.files();
  const DecantOutcome outcome = program.run(arguments);
  QCOMPARE(outcome.status, 2);
  QCOMPARE(outcome.output, QByteArray());
  const QList<QByteArray> lines = outcome.error.split('\n');
  QCOMPARE(lines.size(), 3);
  QVERIFY2(lines.at(0).startsWith("decant: ") && lines.at(0).contains(wrong),
           outcome.error.constData());
  const QByteArray usage = "usage: decant " + arguments.first().toUtf8();
  QVERIFY(lines.at(1).startsWith(usage));
  QCOMPARE(program.files(), before);
}

void TestCliUsage::withoutADisplay() {
  const DecantProgram program;
  for (const QStringList &arguments : {QStringList{program.file(u"a.mkv"_s)}, QStringList{}}) {
    const DecantOutcome outcome = program.run(arguments);
    QCOMPARE(outcome.status, 1);
    QVERIFY(outcome.error.contains("no display"));
    QVERIFY(outcome.error.contains("decant convert"));
    QCOMPARE(outcome.error.count('\n'), 1);
  }
}

// A build with a window asks the display, and none answers here.
void TestCliUsage::withADisplay() {
  DecantProgram program;
  program.environment().insert(u"DISPLAY"_s, u":65000"_s);
  const DecantOutcome outcome = program.run({program.file(u"a.mkv"_s)});
  QCOMPARE(outcome.status, 1);
  QVERIFY(outcome.error.contains("decant convert"));
  QVERIFY(outcome.error.contains(DECANT_HAS_WINDOW ? "no display" : "no window"));
}

void TestCliUsage::writesNothing() {
  const DecantProgram program;
  for (const QStringList &arguments :
       {QStringList{u"--help"_s}, QStringList{u"--bogus"_s}, QStringList{}})
    QVERIFY(program.run(arguments).status >= 0);
  QVERIFY(!QFileInfo::exists(program.settingsFile()));
  QVERIFY(!QFileInfo::exists(program.supportFolder()));
}

// Names are UTF-8 whatever the locale says, and Qt's advice about it stays off standard error.
void TestCliUsage::inThePlainLocale() {
  DecantProgram program;
  program.environment().insert(u"LC_ALL"_s, u"C"_s);
  program.environment().insert(u"LANG"_s, u"C"_s);
  const QString source = program.file(u"Größe 映画.mkv"_s);
  const DecantOutcome outcome = program.run({u"convert"_s, u"Größe 映画.mkv"_s});
  QCOMPARE(outcome.error, QByteArray());
  QCOMPARE(outcome.status, 0);
  const QByteArray started = "1 " + source.toUtf8() + ": started\n";
  QVERIFY(outcome.output.startsWith(started));
  QVERIFY(program.files().contains(u"Größe 映画.m4v"_s));
}

// A file opened by the program must never take the place of a stream that was closed.
void TestCliUsage::withClosedStreams() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  const DecantOutcome outcome = program.shell("$decant convert a.mkv <&- >&- 2>&-; echo $?");
  QCOMPARE(outcome.output, QByteArray("0\n"));
  QVERIFY(program.files().contains(u"a.m4v"_s));
  QVERIFY(!program.settings().contains("started"));
}

QTEST_GUILESS_MAIN(TestCliUsage)
#include "tst_cli_usage.moc"
