#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "ArgumentParser.h"
#include "HelpTexts.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

QList<QByteArray> wordsOf(const QByteArray &line) {
  return line.isEmpty() ? QList<QByteArray>() : line.split(' ');
}

Invocation understood(const QByteArray &line) {
  const ParsedArguments parsed = parseArguments(wordsOf(line));
  if (!parsed.problem.isNull())
    qWarning("%s: %s", line.constData(), qUtf8Printable(parsed.problem));
  return parsed.invocation;
}

}  // namespace

class TestArgumentParser final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void commands_data();
  void commands();
  void problems_data();
  void problems();
  void everyConvertOption();
  void optionsStandAnywhere();
  void valuesMayBeAttached();
  void dashesEndOptions();
  void bytesStayBytes();
  void settingsWords();
  void storing();
  void usageLines();
};

void TestArgumentParser::commands_data() {
  QTest::addColumn<QByteArray>("line");
  QTest::addColumn<int>("command");
  QTest::addColumn<int>("topic");
  const auto row = [](const char *line, Command command, Topic topic = Topic::Program) {
    QTest::newRow(*line ? line : "nothing")
        << QByteArray(line) << static_cast<int>(command) << static_cast<int>(topic);
  };
  row("", Command::Window);
  row("film.mkv", Command::Window);
  row("prob film.mkv", Command::Window);
  row("-- probe", Command::Window);
  row("--help", Command::Help);
  row("--version", Command::Version);
  row("--version --help", Command::Help);
  row("probe film.mkv", Command::Probe, Topic::Probe);
  row("probe --help", Command::Help, Topic::Probe);
  row("convert film.mkv", Command::Convert, Topic::Convert);
  row("convert --help", Command::Help, Topic::Convert);
  row("convert film.mkv --help", Command::Help, Topic::Convert);
  row("convert -- --help", Command::Convert, Topic::Convert);
  row("settings --help", Command::Help, Topic::Settings);
  row("settings list", Command::SettingsList, Topic::Settings);
  row("settings list --json", Command::SettingsList, Topic::Settings);
  row("settings list --help", Command::Help, Topic::Settings);
  row("settings get --help", Command::Help, Topic::Settings);
  row("settings get AutoAdd", Command::SettingsGet, Topic::Settings);
  row("settings set AutoAdd 1", Command::SettingsSet, Topic::Settings);
  row("settings reset AutoAdd AutoClean", Command::SettingsReset, Topic::Settings);
  row("settings reset --all", Command::SettingsReset, Topic::Settings);
}

void TestArgumentParser::commands() {
  QFETCH(const QByteArray, line);
  const Invocation invocation = understood(line);
  QTEST(static_cast<int>(invocation.command), "command");
  QTEST(static_cast<int>(invocation.topic), "topic");
}

void TestArgumentParser::problems_data() {
  QTest::addColumn<QByteArray>("line");
  QTest::addColumn<QString>("named");  // what the sentence has to name
  const auto row = [](const char *line, const QString &named) {
    QTest::newRow(line) << QByteArray(line) << named;
  };
  row("--bogus", u"--bogus"_s);
  row("-x", u"-x"_s);
  row("film.mkv --json", u"--json"_s);
  row("--help=yes", u"--help"_s);
  row("probe", u"FILE"_s);
  row("probe --json", u"FILE"_s);
  row("probe -r film.mkv", u"-r"_s);
  row("probe --json=1 film.mkv", u"--json"_s);
  row("probe --json --json film.mkv", u"--json"_s);
  row("convert", u"FILE"_s);
  row("convert --bogus film.mkv", u"--bogus"_s);
  row("convert -rx film.mkv", u"-rx"_s);
  row("convert film.mkv -o", u"-o"_s);
  row("convert film.mkv -o a -o b", u"-o"_s);
  row("convert film.mkv --set", u"--set"_s);
  row("convert --set AutoAdd film.mkv", u"AutoAdd"_s);
  row("convert --set =1 film.mkv", u"=1"_s);
  row("convert --audio one film.mkv", u"one"_s);
  row("convert --audio -1 film.mkv", u"-1"_s);
  row("convert --audio +1 film.mkv", u"+1"_s);
  row("convert --audio 99999999999 film.mkv", u"99999999999"_s);
  row("convert --audio= film.mkv", u"--audio"_s);
  row("convert --subtitle= film.mkv", u"--subtitle"_s);
  row("settings", u"list"_s);
  row("settings lst", u"lst"_s);
  row("settings list AutoAdd", u"AutoAdd"_s);
  row("settings get", u"KEY"_s);
  row("settings get --json AutoAdd", u"--json"_s);
  row("settings get AutoAdd AutoClean", u"AutoClean"_s);
  row("settings set AutoAdd", u"VALUE"_s);
  row("settings set AutoAdd 1 2", u"2"_s);
  row("settings reset", u"--all"_s);
  row("settings reset --all AutoAdd", u"--all"_s);
}

void TestArgumentParser::problems() {
  QFETCH(const QByteArray, line);
  QFETCH(const QString, named);
  const ParsedArguments parsed = parseArguments(wordsOf(line));
  QVERIFY2(parsed.problem.contains(named), qUtf8Printable(parsed.problem));
  QVERIFY(!parsed.problem.contains(u'\n'));
  // The usage line that follows is that of the command.
  const Topic topic = line.startsWith("convert")    ? Topic::Convert
                      : line.startsWith("probe")    ? Topic::Probe
                      : line.startsWith("settings") ? Topic::Settings
                                                    : Topic::Program;
  QCOMPARE(parsed.invocation.topic, topic);
}

void TestArgumentParser::everyConvertOption() {
  const Invocation invocation = understood(
      "convert -o out -r --set AutoRemove=1 --set AACBitrate=a=b --audio 2 --subtitle s.srt "
      "--dry-run "
      "--json a.mkv b.mkv");
  QCOMPARE(invocation.outputFolder, QByteArray("out"));
  QVERIFY(invocation.recursive && invocation.dryRun && invocation.json);
  QCOMPARE(invocation.changes,
           (QList<SettingChange>{{u"AutoRemove"_s, u"1"_s}, {u"AACBitrate"_s, u"a=b"_s}}));
  QCOMPARE(invocation.audioTrack, 2);
  QCOMPARE(invocation.subtitle, QByteArray("s.srt"));
  QCOMPARE(invocation.files, (QList<QByteArray>{"a.mkv", "b.mkv"}));
}

void TestArgumentParser::optionsStandAnywhere() {
  const Invocation invocation = understood("convert a.mkv -r b.mkv --json - c.mkv");
  QVERIFY(invocation.recursive && invocation.json);
  QCOMPARE(invocation.files, (QList<QByteArray>{"a.mkv", "b.mkv", "-", "c.mkv"}));
}

void TestArgumentParser::valuesMayBeAttached() {
  const Invocation invocation =
      understood("convert -oout --set=AutoRemove=1 --audio=0 --subtitle=-s.srt a.mkv");
  QCOMPARE(invocation.outputFolder, QByteArray("out"));
  QCOMPARE(invocation.changes, (QList<SettingChange>{{u"AutoRemove"_s, u"1"_s}}));
  QCOMPARE(invocation.audioTrack, 0);
  QCOMPARE(invocation.subtitle, QByteArray("-s.srt"));
}

void TestArgumentParser::dashesEndOptions() {
  const Invocation invocation = understood("convert --json -- -r --set -- a.mkv");
  QVERIFY(!invocation.recursive);
  QCOMPARE(invocation.files, (QList<QByteArray>{"-r", "--set", "--", "a.mkv"}));
}

void TestArgumentParser::bytesStayBytes() {
  const QByteArray name("bad\xff name\n.mkv");
  QCOMPARE(parseArguments({"probe", name}).invocation.files, QList<QByteArray>{name});
  QVERIFY(parseArguments({"convert", "--set", "A=\xff", "a.mkv"}).problem.contains(u"\\xff"_s));
  QVERIFY(parseArguments({"settings", "get", "\xff"}).problem.contains(u"\\xff"_s));
}

void TestArgumentParser::settingsWords() {
  QCOMPARE(understood("settings set AudioVolume -5").words,
           (QStringList{u"AudioVolume"_s, u"-5"_s}));
  QVERIFY(understood("settings reset --all").all);
  QCOMPARE(understood("settings reset A B C").words, (QStringList{u"A"_s, u"B"_s, u"C"_s}));
}

void TestArgumentParser::storing() {
  for (const QByteArray line : {"probe a.mkv", "convert --dry-run a.mkv", "settings list",
                                "settings get AutoAdd", "--help", "--version", "a.mkv"})
    QVERIFY2(!understood(line).storesSettings(), line.constData());
  for (const QByteArray line : {"convert a.mkv", "settings set AutoAdd 1", "settings reset --all"})
    QVERIFY2(understood(line).storesSettings(), line.constData());
}

void TestArgumentParser::usageLines() {
  for (const Topic topic : {Topic::Program, Topic::Probe, Topic::Convert, Topic::Settings}) {
    const QString usage = usageText(topic);
    QVERIFY(usage.startsWith("usage: decant"_L1));
    QCOMPARE(usage.count(u'\n'), 1);
    QVERIFY(helpText(topic).startsWith(usage));
    QVERIFY(helpText(topic).endsWith(u'\n'));
  }
  // Every option that a usage line names is explained by its help.
  static const QRegularExpression option(u"(?<=\\[)(-o|-r|--[a-z-]+)"_s);
  for (const Topic topic : {Topic::Probe, Topic::Convert, Topic::Settings}) {
    for (const auto &found : option.globalMatch(usageText(topic))) {
      const QString explained = u"\n  "_s + found.captured();
      QVERIFY2(helpText(topic).contains(explained), qUtf8Printable(found.captured()));
    }
  }
}

QTEST_GUILESS_MAIN(TestArgumentParser)
#include "tst_argumentparser.moc"
