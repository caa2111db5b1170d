#include "ConvertCommand.h"

#include <QDir>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <thread>

#include "AppDelegate.h"
#include "ConvertRun.h"
#include "DryRun.h"
#include "ErrorLine.h"
#include "ExitCode.h"
#include "GivenFile.h"
#include "JsonConvertReporter.h"
#include "Ostrak.h"
#include "Printable.h"
#include "ProbeAlerts.h"
#include "ProgressFiles.h"
#include "Settings.h"
#include "SettingsCommand.h"
#include "SignalWatcher.h"
#include "TerminalPresenter.h"
#include "TextConvertReporter.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

using ostrak::tk;

namespace {

QString toolPath() {
  return tk->resDir() + u"/ffmpeg"_s;
}

QString withoutSlashAtEnd(QString folder) {
  while (folder.size() > 1 && folder.endsWith(u'/'))
    folder.chop(1);
  return folder;
}

// Why nothing can be written into a folder that is to be made if it is missing; null when it is
// there.
QString whyNoFolder(const QString &folder) {
  errno = 0;
  if (isFolder(folder) || QDir().mkpath(folder)) return {};
  const int error = errno;
  if (error == 0 || error == EEXIST || error == ENOTDIR || error == ENOENT)
    return worded(u"'%@' is no folder and can't be made one."_s, printable(folder));
  return worded(u"'%@' is no folder and can't be made one: %@."_s, printable(folder),
                QString::fromLocal8Bit(std::strerror(error)));
}

// Files are probed on threads of their own; where the system makes none it makes no process either,
// and a probe would never come to its end.
bool canMakeThreads() {
  try {
    std::thread([] {}).join();
    return true;
  } catch (const std::system_error &) {
    return false;
  }
}

void refuseAll(QList<InputFile> &files, const FileFailure &failure) {
  for (InputFile &file : files) {
    if (!file.failure) file.failure = failure;
  }
}

// Launch repairs mend some stored values for good, which is told here; returns what is to be said
// about the others.
QStringList launch(AppDelegate &delegate, TextSink &error) {
  const QStringList before = storedValueComplaints();
  delegate.applicationWillFinishLaunching();
  const QStringList after = storedValueComplaints();
  for (const QString &complaint : before) {
    if (!after.contains(complaint)) writeErrorLine(error, complaint);
  }
  return after;
}

int statusOf(const ConvertResult &result) {
  if (result.signal != 0) return statusOfSignal(result.signal);
  return decant::statusOf(result.failed > 0 || result.aborted ? ExitCode::Failed : ExitCode::Done);
}

}  // namespace

QString ConvertCommand::problemOf(const Invocation &invocation) {
  for (const SettingChange &change : invocation.changes) {
    const QString problem = problemOfChange(change);
    if (!problem.isNull()) return problem;
  }
  return {};
}

// For this run alone: what was asked for, and what a terminal needs to be otherwise. A run queues
// what it probes by itself, in the order of the command line, and ends when all is done.
void ConvertCommand::overrideSettings(const QList<SettingChange> &changes) {
  ostrak::UserDefaults &store = tk->userDefaults();
  for (const SettingChange &change : changes)
    store.setOverride(change.key, valueFromText(*findSetting(change.key), change.value));
  store.setOverride(u"InsertJobsAtBottom"_s, 1);
  store.setOverride(u"AutoAdd"_s, 0);
  store.setOverride(u"AutoClean"_s, 0);
  store.setOverride(u"QuitAfterConversion"_s, 0);
}

int ConvertCommand::run(const Invocation &invocation, ConvertInput input) {
  if (!canMakeThreads()) {
    const ostrak::Alert why = processRefusedAlert({}).alert;
    refuseAll(input.files, {u"refused"_s, tk->appName(), why.message});
  }
  DestinationChoice destination;
  if (invocation.outputFolder) {
    const GivenFile folder = givenFile(*invocation.outputFolder, m_services.workingFolder);
    if (folder.refused()) refuseAll(input.files, {u"notWritable"_s, tk->appName(), folder.refusal});
    destination = {DestinationChoice::Kind::Folder, withoutSlashAtEnd(folder.path)};
  }
  return invocation.dryRun ? dryRun(invocation, std::move(input), destination)
                           : convert(invocation, std::move(input), destination);
}

int ConvertCommand::convert(const Invocation &invocation, ConvertInput input,
                            const DestinationChoice &destination) {
  const bool isAnyLeft = std::any_of(input.files.cbegin(), input.files.cend(),
                                     [](const InputFile &file) { return !file.failure; });
  if (destination.kind == DestinationChoice::Kind::Folder && isAnyLeft) {
    const QString why = whyNoFolder(destination.folder);
    if (!why.isNull()) refuseAll(input.files, {u"notWritable"_s, tk->appName(), why});
  }
  std::unique_ptr<ConvertReporter> reporter;
  if (invocation.json)
    reporter = std::make_unique<JsonConvertReporter>(m_services.output);
  else
    reporter =
        std::make_unique<TextConvertReporter>(m_services.output, m_services.error, tk->appName());
  AppDelegate delegate({{m_services.sleepInhibitor,
                         m_desktop.notifier,
                         m_desktop.revealer,
                         m_desktop.urlOpener,
                         m_desktop.keyboard,
                         m_services.volumes,
                         m_services.clock,
                         m_desktop.sandbox,
                         toolPath(),
                         tk->docDir(),
                         {},
                         std::chrono::seconds(1),
                         [] { return SignalWatcher::received() != 0; }},
                        m_services.trashCan,
                        m_services.preferredLanguages,
                        [] {},
                        proberWithSubtitle(input.subtitle),
                        fixedDestination(destination)});
  const QStringList complaints = launch(delegate, m_services.error);
  ConvertRun run(delegate, std::move(input), invocation.audioTrack, *reporter);
  m_presenter.setListener([&run](const ostrak::Alert &alert) { return run.takeAlert(alert); });
  run.tellSettings(complaints);
  const ConvertResult result = run.run();
  m_presenter.setListener({});
  return statusOf(result);
}

int ConvertCommand::dryRun(const Invocation &invocation, ConvertInput input,
                           const DestinationChoice &destination) {
  DryRunReporter reporter(m_services.output, m_services.error, toolPath(), invocation.json);
  DryRun run({toolPath(), progressFolder(tk->docDir(), tk->tempDir()), tk->tempDir(),
              m_services.preferredLanguages, destination, invocation.audioTrack},
             std::move(input), reporter);
  m_presenter.setListener([&run](const ostrak::Alert &alert) { return run.takeAlert(alert); });
  const int status = run.run();
  m_presenter.setListener({});
  return status;
}

}  // namespace decant
