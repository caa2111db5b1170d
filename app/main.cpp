#include <unistd.h>

#include <QCoreApplication>

#include "ArgumentParser.h"
#include "CommandLine.h"
#include "GivenFile.h"
#include "GuardedApplication.h"
#include "Logging.h"
#include "PreferredAudioTrack.h"
#include "ProcessServices.h"
#include "TextSink.h"
#include "Translations.h"
#ifdef DECANT_WINDOW
#include "WindowMain.h"
#endif

namespace {

bool hasDisplay() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// The arguments as the system hands them over: Qt would lose names that are not UTF-8.
QList<QByteArray> argumentsOf(int argc, char **argv) {
  QList<QByteArray> arguments;
  for (int i = 1; i < argc; ++i)
    arguments.append(argv[i]);
  return arguments;
}

int runTerminal(int argc, char **argv, const QList<QByteArray> &arguments,
                const QStringList &languages) {
  const ostrak::GuardedApplication<QCoreApplication> application(argc, argv);
  ProcessServices services;
  const ostrak::Translations translations(
      services.setup.bundlePath + QStringLiteral("/resources/translations"), languages);
  decant::DescriptorSink output(STDOUT_FILENO);
  decant::DescriptorSink error(STDERR_FILENO);
  decant::CommandLine commandLine({services.setup, services.sleepInhibitor, services.trashCan,
                                   services.volumes, services.clock, output, error,
                                   decant::currentWorkingFolder(),
                                   decant::preferredLanguages3Letter(languages), hasDisplay()});
  return commandLine.run(arguments);
}

#ifdef DECANT_WINDOW
bool wantsWindow(const QList<QByteArray> &arguments) {
  const decant::ParsedArguments parsed = decant::parseArguments(arguments);
  return hasDisplay() && parsed.problem.isNull() &&
         parsed.invocation.command == decant::Command::Window;
}
#endif

}  // namespace

// The composition root: the one place that picks window or terminal, real or other services.
int main(int argc, char **argv) {
  decant::secureStandardStreams();
  ostrak::installQtMessageLog();
  const QList<QByteArray> arguments = argumentsOf(argc, argv);
  const QStringList languages = decant::preferredLanguageIdentifiers(
      qEnvironmentVariable("LANGUAGE"), qEnvironmentVariable("LC_ALL"),
      qEnvironmentVariable("LC_MESSAGES"), qEnvironmentVariable("LANG"));
#ifdef DECANT_WINDOW
  if (wantsWindow(arguments)) return windowMain(argc, argv, arguments, languages);
#endif
  return runTerminal(argc, argv, arguments, languages);
}
