#include "CommandLine.h"

#include <memory>

#include "Alerts.h"
#include "ArgumentParser.h"
#include "ConvertCommand.h"
#include "ErrorLine.h"
#include "HelpTexts.h"
#include "LaunchFixups.h"
#include "Ostrak.h"
#include "ProbeCommand.h"
#include "Settings.h"
#include "SettingsCommand.h"
#include "SignalExit.h"
#include "TerminalPresenter.h"
#include "TextSink.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::tk;
using ostrak::UserDefaults;

namespace {

// The presenter of this run, taken away at its end.
class PresenterInstalled final {
 public:
  explicit PresenterInstalled(TerminalPresenter &presenter) {
    ostrak::setAlertPresenter(&presenter);
  }
  ~PresenterInstalled() { ostrak::setAlertPresenter(nullptr); }
  PresenterInstalled(const PresenterInstalled &) = delete;
  PresenterInstalled &operator=(const PresenterInstalled &) = delete;
};

}  // namespace

int CommandLine::run(const QList<QByteArray> &arguments) {
  const ParsedArguments parsed = parseArguments(arguments);
  const bool stores = parsed.problem.isNull() && parsed.invocation.storesSettings();
  ostrak::OstrakSetup setup = m_services.setup;
  setup.persistence =
      stores ? UserDefaults::Persistence::Stored : UserDefaults::Persistence::InMemory;
  const ostrak::Ostrak library(std::move(setup));
  if (!parsed.problem.isNull()) return refuseUsage(parsed.invocation.topic, parsed.problem);
  const int status = runCommand(parsed.invocation);
  const QString failure = m_services.output.failure();
  if (failure.isNull()) return status;
  writeErrorLine(m_services.error, worded(u"The output could not be written: %@."_s, failure));
  return status == statusOf(ExitCode::Done) ? statusOf(ExitCode::Failed) : status;
}

int CommandLine::runCommand(const Invocation &invocation) {
  TerminalPresenter presenter(m_services.error);
  const PresenterInstalled installed(presenter);
  registerSettings();
  tellAboutStore();
  switch (invocation.command) {
    case Command::Help:
      m_services.output.write(helpText(invocation.topic).toUtf8());
      return statusOf(ExitCode::Done);
    case Command::Version:
      return tellVersion();
    case Command::Window:
      return refuseWindow();
    case Command::Probe: {
      const SignalExit endsAtOnce;
      tellAboutSettings();
      ProbeCommand probe(m_services.output, m_services.workingFolder,
                         m_services.preferredLanguages);
      return statusOf(probe.run(invocation));
    }
    case Command::Convert:
      return runConvert(invocation, presenter);
    default:
      return runSettings(invocation);
  }
}

int CommandLine::runConvert(const Invocation &invocation, TerminalPresenter &presenter) {
  const QString problem = ConvertCommand::problemOf(invocation);
  if (!problem.isNull()) return refuseUsage(Topic::Convert, problem);
  ConvertInput input = convertInput(invocation, m_services.workingFolder);
  if (!input.usageProblem.isNull()) return refuseUsage(Topic::Convert, input.usageProblem);
  if (!input.note.isNull()) writeErrorLine(m_services.error, input.note);
  ConvertCommand::overrideSettings(invocation.changes);
  if (invocation.dryRun) tellAboutSettings();
  return ConvertCommand(m_services, presenter).run(invocation, std::move(input));
}

int CommandLine::runSettings(const Invocation &invocation) {
  const QString problem = problemOfSettingsWords(invocation);
  if (!problem.isNull()) return refuseUsage(Topic::Settings, problem);
  if (!invocation.storesSettings()) tellAboutSettings();
  return statusOf(SettingsCommand(m_services.output, m_services.error).run(invocation));
}

int CommandLine::refuseUsage(Topic topic, const QString &problem) {
  writeErrorLine(m_services.error, problem);
  m_services.error.write(usageText(topic).toUtf8());
  return statusOf(ExitCode::Usage);
}

int CommandLine::refuseWindow() {
  const QString why =
      m_services.hasDisplay
          ? worded(u"This build has no window; convert movies with: decant convert FILE"_s)
          : worded(
                u"There is no display to open a window on; convert movies with: decant convert "
                u"FILE"_s);
  writeErrorLine(m_services.error, why);
  return statusOf(ExitCode::Failed);
}

int CommandLine::tellVersion() {
  const QString name = tk->appName();
  const QString version = tk->appVersionString();
  if (name.isEmpty() || version.isEmpty()) {
    writeErrorLine(m_services.error,
                   worded(u"The file '%@', which tells the version, is missing or damaged; please "
                          u"install the program again."_s,
                          QString(tk->resDir() + u"/Info.json"_s)));
    return statusOf(ExitCode::Failed);
  }
  m_services.output.write(ostrak::makeString(u"%@ %@\n"_s, name, version).toUtf8());
  return statusOf(ExitCode::Done);
}

void CommandLine::tellAboutStore() {
  const ostrak::UserDefaults &store = tk->userDefaults();
  if (store.isFileIgnored()) {
    writeErrorLine(
        m_services.error,
        worded(u"The settings file '%@' could not be read and is not used; all settings are "
               u"at their defaults."_s,
               store.path()));
  }
  const QString aside = store.keptAside();
  if (aside.isNull()) return;
  writeErrorLine(
      m_services.error,
      worded(u"The settings file could not be read and is kept as '%@'; all settings are "
             u"back at their defaults."_s,
             aside));
}

// For commands that leave the store as it is: the repairs of a launch happen in memory.
void CommandLine::tellAboutSettings() {
  const QStringList complaints = storedValueComplaints();
  for (const QString &complaint : complaints)
    writeErrorLine(m_services.error, complaint);
  repairRetiredValues();
  migrateDestinationIndex();
  repairDestinationIndex();
}

}  // namespace decant
