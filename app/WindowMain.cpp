#include "WindowMain.h"

#include <unistd.h>

#include <QApplication>
#include <QDBusConnection>
#include <QFile>
#include <QIcon>
#include <cstdlib>

#include "Alerts.h"
#include "ArgumentParser.h"
#include "ErrorLine.h"
#include "ExitCode.h"
#include "GivenFile.h"
#include "GuardedApplication.h"
#include "Logging.h"
#include "PreferredAudioTrack.h"
#include "ProcessServices.h"
#include "RealFileRevealer.h"
#include "RealKeyboardModifiers.h"
#include "RealLauncherProgress.h"
#include "RealNotifier.h"
#include "RealProgramLauncher.h"
#include "RealSandbox.h"
#include "RealSingleInstance.h"
#include "RealUrlOpener.h"
#include "SessionBus.h"
#include "SignalWatcher.h"
#include "TextSink.h"
#include "TextSizedStyle.h"
#include "Translations.h"
#include "WindowProgram.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace {

QtMessageHandler messageLog = nullptr;
bool displayAnswered = false;
QStringList userLanguages;

QString cataloguesOf(const ostrak::OstrakSetup &setup) {
  return setup.bundlePath + u"/resources/translations"_s;
}

void tellError(const QString &sentence) {
  decant::DescriptorSink error(STDERR_FILENO);
  decant::writeErrorLine(error, sentence);
}

// A display that is named but does not answer ends the program inside the toolkit: this says so in
// a sentence first, in the user's language, though there is no application object yet.
void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message) {
  if (type == QtFatalMsg && !displayAnswered) {
    tellError(ostrak::Translations::textOf(
        cataloguesOf(ostrak::OstrakSetup::ofProcess()), userLanguages,
        u"There is no display to open a window on; convert movies with: decant convert FILE"_s));
    std::_Exit(decant::statusOf(decant::ExitCode::Failed));
  }
  messageLog(type, context, message);
}

// The files of the command line as absolute paths; what cannot be taken is told.
struct GivenFiles {
  QStringList paths;
  QStringList refusals;
};

GivenFiles givenFiles(const QList<QByteArray> &names) {
  GivenFiles files;
  const QByteArray workingFolder = decant::currentWorkingFolder();
  for (const QByteArray &name : names) {
    const decant::GivenFile file = decant::givenFile(name, workingFolder);
    if (file.refused())
      files.refusals.append(file.given + u": "_s + file.refusal);
    else
      files.paths.append(file.path);
  }
  return files;
}

// The services of a desktop session.
struct SessionServices {
  SessionServices(const QString &name, const QString &identifier, const QVariantMap &platformData)
      : notifier(bus, name, identifier),
        launcher(bus, identifier),
        instance(bus, identifier, {platformData}) {}

  QDBusConnection bus = ostrak::sessionBusOfProcess();
  RealUrlOpener opener;
  RealKeyboardModifiers keyboard;
  RealFileRevealer revealer{bus, opener};
  RealSandbox sandbox;
  RealNotifier notifier;
  RealLauncherProgress launcher;
  RealSingleInstance instance;
  RealProgramLauncher programs;
};

// The first instance may end while it is asked, and then this one takes its place; one that hangs
// is left alone, and this one opens a window of its own.
bool isServedByAnother(SingleInstance &instance, const QStringList &paths) {
  if (instance.claim()) return false;
  if (instance.handOver(paths)) return true;
  (void)instance.claim();
  return false;
}

int runProgram(ProcessServices &services, SessionServices &session, const GivenFiles &files,
               const QStringList &languages) {
  services.setup.workspace = &session.opener;
  services.setup.keyboard = &session.keyboard;
  const ostrak::Ostrak library(services.setup);
  const decant::JobServices jobs{
      services.sleepInhibitor, session.notifier, session.revealer,
      session.opener,          session.keyboard, services.volumes,
      services.clock,          session.sandbox,  library.resDir() + u"/ffmpeg"_s,
      library.docDir()};
  decant::WindowProgram program(
      {jobs, services.trashCan, decant::preferredLanguages3Letter(languages),
       [] { QCoreApplication::exit(); }},
      {session.instance, session.launcher, session.programs});
  decant::SignalWatcher signalWatcher;
  QObject::connect(&signalWatcher, &decant::SignalWatcher::interrupted, &program,
                   &decant::WindowProgram::quitAtOnce);
  if (!program.open(files.paths)) return decant::statusOf(decant::ExitCode::Failed);
  for (const QString &refusal : files.refusals)
    ostrak::postAlert(ostrak::apptitledAlert(refusal, {ostrak::localized(u"OK"_s)}));
  const int status = QCoreApplication::exec();
  const int signal = decant::SignalWatcher::received();
  return signal != 0 ? decant::statusOfSignal(signal) : status;
}

}  // namespace

int windowMain(int argc, char **argv, const QList<QByteArray> &arguments,
               const QStringList &languages) {
  userLanguages = languages;
  messageLog = qInstallMessageHandler(handleMessage);
  QApplication::setDesktopFileName(u"org.decant.Decant"_s);
  const QVariantMap platformData = RealSingleInstance::platformDataOfProcess();
  const ostrak::GuardedApplication<QApplication> application(argc, argv);
  displayAnswered = true;
  ProcessServices services;
  const ostrak::Translations translations(cataloguesOf(services.setup), languages);
  const QString name = services.setup.info.value(u"CFBundleName"_s).toString();
  const QString identifier = services.setup.info.value(u"CFBundleIdentifier"_s).toString();
  QApplication::setApplicationName(name);
  const GivenFiles files = givenFiles(decant::parseArguments(arguments).invocation.files);
  SessionServices session(name, identifier, platformData);
  const QString resources = services.setup.bundlePath + u"/resources"_s;
  if (isServedByAnother(session.instance, files.paths)) {
    for (const QString &refusal : files.refusals)
      tellError(refusal);
    return decant::statusOf(files.refusals.isEmpty() ? decant::ExitCode::Done
                                                     : decant::ExitCode::Failed);
  }
  QApplication::setStyle(new ostrak::TextSizedStyle);
  QApplication::setWindowIcon(
      QIcon::fromTheme(identifier, QIcon(resources + u"/images/decant.svg"_s)));
  return runProgram(services, session, files, languages);
}
