#include "ArgumentParser.h"

#include <QSet>
#include <algorithm>
#include <limits>
#include <span>

#include "GivenFile.h"
#include "Printable.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// Takes the value of an option; returns what is wrong with it.
using Apply = QString (*)(Invocation &, const QByteArray &);

struct Option {
  QByteArrayView name;
  bool takesValue;
  bool repeats;
  Apply apply;
};

QString applyHelp(Invocation &invocation, const QByteArray &) {
  invocation.command = Command::Help;
  return {};
}

QString applyVersion(Invocation &invocation, const QByteArray &) {
  if (invocation.command != Command::Help) invocation.command = Command::Version;
  return {};
}

QString applyJson(Invocation &invocation, const QByteArray &) {
  invocation.json = true;
  return {};
}

QString applyRecursive(Invocation &invocation, const QByteArray &) {
  invocation.recursive = true;
  return {};
}

QString applyDryRun(Invocation &invocation, const QByteArray &) {
  invocation.dryRun = true;
  return {};
}

QString applyAll(Invocation &invocation, const QByteArray &) {
  invocation.all = true;
  return {};
}

QString applyOutputFolder(Invocation &invocation, const QByteArray &value) {
  invocation.outputFolder = value;
  return value.isEmpty() ? worded(u"-o needs the name of a folder."_s) : QString();
}

QString applySubtitle(Invocation &invocation, const QByteArray &value) {
  invocation.subtitle = value;
  return value.isEmpty() ? worded(u"--subtitle needs the name of a file."_s) : QString();
}

QString applyAudio(Invocation &invocation, const QByteArray &value) {
  bool isNumber = false;
  const int number = value.toInt(&isNumber);
  const bool digits =
      std::all_of(value.cbegin(), value.cend(), [](char c) { return c >= '0' && c <= '9'; });
  if (!isNumber || !digits)
    return worded(u"--audio takes the number of a track, as probe prints it after '#', not '%@'."_s,
                  escapedBytes(value));
  invocation.audioTrack = number;
  return {};
}

QString applySet(Invocation &invocation, const QByteArray &value) {
  const QString text = textOfBytes(value);
  const qsizetype sign = text.indexOf(u'=');
  if (sign <= 0) return worded(u"--set takes KEY=VALUE, not '%@'."_s, escapedBytes(value));
  invocation.changes.append({text.first(sign), text.sliced(sign + 1)});
  return {};
}

constexpr Option helpOption{"--help", false, true, applyHelp};
constexpr Option shortHelpOption{"-h", false, true, applyHelp};
constexpr Option jsonOption{"--json", false, false, applyJson};

constexpr Option programOptions[] = {
    helpOption, shortHelpOption, {"--version", false, true, applyVersion}};
constexpr Option probeOptions[] = {helpOption, shortHelpOption, jsonOption};
constexpr Option convertOptions[] = {helpOption,
                                     shortHelpOption,
                                     jsonOption,
                                     {"-o", true, false, applyOutputFolder},
                                     {"-r", false, false, applyRecursive},
                                     {"--set", true, true, applySet},
                                     {"--audio", true, false, applyAudio},
                                     {"--subtitle", true, false, applySubtitle},
                                     {"--dry-run", false, false, applyDryRun}};
constexpr Option listOptions[] = {helpOption, shortHelpOption, jsonOption};
constexpr Option resetOptions[] = {helpOption, shortHelpOption, {"--all", false, false, applyAll}};
constexpr Option helpOnly[] = {helpOption, shortHelpOption};

// Goes through the arguments of one command and sorts them into options and words.
class Reader final {
 public:
  Reader(Invocation &invocation, std::span<const Option> options)
      : m_invocation(invocation), m_options(options) {}

  // A word that begins with a digit after its dash is a number, where a command takes values.
  void acceptNumbers() { m_acceptsNumbers = true; }

  QString read(const QList<QByteArray> &arguments, qsizetype at) {
    for (; at < arguments.size(); ++at) {
      const QByteArray &argument = arguments.at(at);
      if (argument == "--") {
        m_words += arguments.sliced(at + 1);
        return {};
      }
      if (!isOption(argument)) {
        m_words.append(argument);
        continue;
      }
      const QString problem = readOption(argument, arguments, at);
      if (!problem.isNull()) return problem;
    }
    return {};
  }

  [[nodiscard]] const QList<QByteArray> &words() const { return m_words; }

 private:
  [[nodiscard]] bool isOption(const QByteArray &argument) const {
    if (argument.size() < 2 || !argument.startsWith('-')) return false;
    return !m_acceptsNumbers || argument.at(1) < '0' || argument.at(1) > '9';
  }

  QString readOption(const QByteArray &argument, const QList<QByteArray> &arguments,
                     qsizetype &at) {
    const bool isLong = argument.startsWith("--");
    const qsizetype cut = isLong ? argument.indexOf('=') : (argument.size() > 2 ? 2 : -1);
    const QByteArray name = cut < 0 ? argument : argument.first(cut);
    const auto option = std::find_if(m_options.begin(), m_options.end(),
                                     [&name](const Option &row) { return row.name == name; });
    if (option == m_options.end() || (cut >= 0 && !isLong && !option->takesValue))
      return worded(u"There is no option '%@' here."_s, escapedBytes(isLong ? name : argument));
    if (cut >= 0 && !option->takesValue)
      return worded(u"The option '%@' takes no value."_s, escapedBytes(name));
    if (!option->repeats && m_seen.contains(name))
      return worded(u"The option '%@' is given twice."_s, escapedBytes(name));
    m_seen.insert(name);
    if (!option->takesValue) return option->apply(m_invocation, {});
    if (cut >= 0) return option->apply(m_invocation, argument.sliced(isLong ? cut + 1 : cut));
    if (at + 1 >= arguments.size())
      return worded(u"The option '%@' needs a value."_s, escapedBytes(name));
    return option->apply(m_invocation, arguments.at(++at));
  }

  Invocation &m_invocation;
  std::span<const Option> m_options;
  QSet<QByteArray> m_seen;
  QList<QByteArray> m_words;
  bool m_acceptsNumbers = false;
};

ParsedArguments withProblem(Topic topic, const QString &problem) {
  ParsedArguments parsed;
  parsed.invocation.topic = topic;
  parsed.problem = problem;
  return parsed;
}

// A command whose words are files.
ParsedArguments parseFiles(Invocation invocation, std::span<const Option> options,
                           const QList<QByteArray> &arguments, qsizetype at) {
  Reader reader(invocation, options);
  const QString problem = reader.read(arguments, at);
  if (!problem.isNull()) return withProblem(invocation.topic, problem);
  invocation.files = reader.words();
  const bool needsFile =
      invocation.command == Command::Probe || invocation.command == Command::Convert;
  if (needsFile && invocation.files.isEmpty())
    return withProblem(invocation.topic, worded(u"No FILE is given."_s));
  return {invocation, {}};
}

struct SettingsCommandRow {
  QByteArrayView name;
  Command command;
  std::span<const Option> options;
  qsizetype fewest;
  qsizetype most;  // words
};

constexpr qsizetype anyNumber = std::numeric_limits<qsizetype>::max();

const SettingsCommandRow settingsCommands[] = {
    {"list", Command::SettingsList, listOptions, 0, 0},
    {"get", Command::SettingsGet, helpOnly, 1, 1},
    {"set", Command::SettingsSet, helpOnly, 2, 2},
    {"reset", Command::SettingsReset, resetOptions, 0, anyNumber},
};

QString problemOfWords(const Invocation &invocation, const SettingsCommandRow &row) {
  const qsizetype count = invocation.words.size();
  const QString name = QString::fromLatin1(row.name);
  if (row.command == Command::SettingsReset) {
    if (invocation.all && count > 0) return worded(u"reset takes --all or keys, not both."_s);
    if (!invocation.all && count == 0) return worded(u"reset needs a KEY, or --all."_s);
  }
  if (count < row.fewest)
    return row.fewest == 1 ? worded(u"%@ needs a KEY."_s, name)
                           : worded(u"%@ needs a KEY and a VALUE."_s, name);
  if (count > row.most)
    return worded(u"There is one word too many: '%@'."_s, printable(invocation.words.at(row.most)));
  return {};
}

ParsedArguments parseSettings(const QList<QByteArray> &arguments) {
  Invocation invocation;
  invocation.topic = Topic::Settings;
  const QByteArray name = arguments.value(1);
  if (name == "--help" || name == "-h") {
    invocation.command = Command::Help;
    return {invocation, {}};
  }
  const auto row = std::find_if(std::begin(settingsCommands), std::end(settingsCommands),
                                [&name](const SettingsCommandRow &r) { return r.name == name; });
  if (row == std::end(settingsCommands))
    return withProblem(
        Topic::Settings,
        name.isEmpty()
            ? worded(u"settings needs one of list, get, set and reset."_s)
            : worded(u"settings takes list, get, set or reset, not '%@'."_s, escapedBytes(name)));
  invocation.command = row->command;
  Reader reader(invocation, row->options);
  reader.acceptNumbers();
  QString problem = reader.read(arguments, 2);
  if (!problem.isNull()) return withProblem(Topic::Settings, problem);
  for (const QByteArray &word : reader.words()) {
    const QString text = textOfBytes(word);
    if (text.isNull())
      return withProblem(Topic::Settings,
                         worded(u"'%@' is not valid UTF-8."_s, escapedBytes(word)));
    invocation.words.append(text);
  }
  if (invocation.command == Command::Help) return {invocation, {}};
  problem = problemOfWords(invocation, *row);
  if (!problem.isNull()) return withProblem(Topic::Settings, problem);
  return {invocation, {}};
}

}  // namespace

ParsedArguments parseArguments(const QList<QByteArray> &arguments) {
  const QByteArray first = arguments.value(0);
  Invocation invocation;
  if (first == "settings") return parseSettings(arguments);
  if (first == "probe" || first == "convert") {
    invocation.topic = first == "probe" ? Topic::Probe : Topic::Convert;
    invocation.command = first == "probe" ? Command::Probe : Command::Convert;
    return first == "probe" ? parseFiles(invocation, probeOptions, arguments, 1)
                            : parseFiles(invocation, convertOptions, arguments, 1);
  }
  return parseFiles(invocation, programOptions, arguments, 0);
}

}  // namespace decant
