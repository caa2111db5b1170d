#include "Probe.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <chrono>

#include "ChildProcess.h"
#include "Defaults.h"
#include "Dispatch.h"
#include "File.h"
#include "Ostrak.h"
#include "ProbeAlerts.h"
#include "Url.h"

namespace decant {

using namespace Qt::StringLiterals;
using ostrak::tk;

namespace {

using End = ostrak::ChildResult::End;
using std::chrono::milliseconds;

constexpr float scheduledDelaySeconds = 0.1F;
constexpr milliseconds forEver{-1};

// Joined to the working folder; nothing is resolved or collapsed. A relative name could be read as
// a protocol by the tool.
QString absolutePath(const QUrl &source) {
  const QString path = source.toLocalFile();
  return path.startsWith(u'/') ? path : QString(QDir::currentPath() + u'/' + path);
}

QString toolPath() {
  return tk->resDir() + u"/ffmpeg"_s;
}

bool toolCanRun() {
  const QFileInfo tool(toolPath());
  return tool.isFile() && tool.isExecutable() && tool.size() > 0;
}

// The tool would wait for ever on a FIFO, and says little that helps about the others.
std::optional<FileRefusal> refusalOf(const QString &path) {
  if (path.contains(QChar(u'\0'))) return FileRefusal::Missing;
  const QByteArray name = QFile::encodeName(path);
  struct stat status {};
  if (::stat(name.constData(), &status) != 0) {
    return errno == EACCES ? FileRefusal::Unreadable : FileRefusal::Missing;
  }
  if (S_ISDIR(status.st_mode)) return FileRefusal::Folder;
  if (!S_ISREG(status.st_mode)) return FileRefusal::NotRegular;
  const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) return FileRefusal::Unreadable;
  ::close(descriptor);
  return {};
}

struct ToolRun {
  bool started = false;  // and it was the tool
  bool stopped = false;  // at the deadline
  bool processRefused = false;
  QString report;
};

ToolRun runTool(const QString &path, milliseconds deadline = forEver,
                const std::function<bool()> &giveUp = {}) {
  if (!toolCanRun()) return {};
  const ostrak::ChildSetup setup{toolPath(), {u"-i"_s, path}, toolVariablesToRemove()};
  QByteArray output;
  const ostrak::ChildResult result = ostrak::runChild(setup, output, deadline, {}, giveUp);
  // The tool that is meant tells at least its own name, whatever the file is.
  const bool isAnother = result.end == End::Exited && output.trimmed().isEmpty();
  const bool started = result.end != End::FailedToStart && !isAnother;
  // A tag can hold bytes that are no UTF-8: each becomes a replacement character.
  return {started, result.end == End::Stopped, result.processRefused, QString::fromUtf8(output)};
}

ProbeRun refused(const ProbeAlert &alert) {
  ProbeRun run;
  run.outcome.alerts = {alert};
  return run;
}

void post(const ostrak::Alert &alert) {
  if (alert.identifier.isNull()) {
    ostrak::postAlert(alert);
  } else {
    ostrak::postSilenceableAlert(alert);
  }
}

}  // namespace

QStringList toolVariablesToRemove() {
  return {u"FFREPORT"_s, u"AV_LOG_FORCE_COLOR"_s};
}

ProbeRun probeFile(const QUrl &source, const ProbeSettings &settings) {
  const QString path = absolutePath(source);
  const QUrl url = source.toLocalFile().startsWith(u'/') ? source : ostrak::fileURL(path);
  ProbeSource known{url, 0, tk->appName()};
  if (ostrak::fileIsAlias(url)) return refused(aliasAlert(known));
  if (const auto refusal = refusalOf(path)) return refused(refusedFileAlert(known, *refusal));

  const ToolRun tool = runTool(path, forEver, settings.giveUp);
  if (!tool.started) {
    ProbeRun run = refused(tool.processRefused ? processRefusedAlert(known)
                                               : toolMissingAlert(known, toolPath()));
    run.processRefused = tool.processRefused;
    run.toolMissing = !tool.processRefused;
    return run;
  }
  // Of the movie itself, when the source is a link to it.
  known.fileSize = static_cast<quint64>(QFileInfo(path).size());
  ProbeRun run;
  run.outcome = parseReport(tool.report, known, settings);
  return run;
}

void raiseAlerts(const QList<ProbeAlert> &alerts) {
  for (const ProbeAlert &each : alerts) {
    if (each.scheduled) {
      ostrak::dispatch_after_main([alert = each.alert] { post(alert); }, scheduledDelaySeconds);
    } else {
      post(each.alert);
    }
  }
}

void quitProgram(int status) {
  QCoreApplication::exit(status);
}

void raiseAlerts(const ProbeRun &run, const std::function<void(int status)> &exitProgram) {
  if (!run.processRefused) {
    raiseAlerts(run.outcome.alerts);
    return;
  }
  for (const ProbeAlert &each : run.outcome.alerts) {
    ostrak::postAlert(each.alert, [exitProgram](int) { exitProgram(0); });
  }
}

std::optional<MKVFileInfo> initWithURL(const QUrl &source,
                                       const std::function<void(int status)> &exitProgram) {
  const ProbeSettings settings{ostrak::defaultInt(u"HEAACConvert"_s) != 0};
  const ProbeRun run = probeFile(source, settings);
  raiseAlerts(run, exitProgram);
  return run.outcome.record;
}

qint32 durationOfFile(const QUrl &source) {
  // A source whose duration is not known in this time is kept.
  constexpr milliseconds patience{30'000};
  return durationWithin(source, patience);
}

qint32 durationWithin(const QUrl &source, milliseconds patience) {
  const QString path = absolutePath(source);
  if (refusalOf(path)) return -1;
  const ToolRun tool = runTool(path, patience);
  if (!tool.started || tool.stopped) return -1;
  return durationInReport(tool.report, ostrak::fileURL(path)).value_or(-1);
}

}  // namespace decant
