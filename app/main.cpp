#include <unistd.h>

#include <QCoreApplication>

#include "Clock.h"
#include "CommandLine.h"
#include "GivenFile.h"
#include "GuardedApplication.h"
#include "Logging.h"
#include "Ostrak.h"
#include "PreferredAudioTrack.h"
#include "RealSleepInhibitor.h"
#include "RealTrashCan.h"
#include "RealVolumes.h"
#include "TextSink.h"

namespace {

QStringList languagesOfProcess() {
  return decant::preferredLanguages3Letter(decant::preferredLanguageIdentifiers(
      qEnvironmentVariable("LANGUAGE"), qEnvironmentVariable("LC_ALL"),
      qEnvironmentVariable("LC_MESSAGES"), qEnvironmentVariable("LANG")));
}

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

}  // namespace

// The composition root: the one place that chooses real services.
int main(int argc, char **argv) {
  decant::secureStandardStreams();
  ostrak::installQtMessageLog();
  const QList<QByteArray> arguments = argumentsOf(argc, argv);
  const ostrak::GuardedApplication<QCoreApplication> application(argc, argv);

  const ostrak::OstrakSetup setup = ostrak::OstrakSetup::ofProcess();
  RealSleepInhibitor sleepInhibitor(
      SleepServices::ofProcess(setup.info.value(QStringLiteral("CFBundleName")).toString(),
                               setup.info.value(QStringLiteral("CFBundleIdentifier")).toString()));
  RealTrashCan trashCan;
  RealVolumes volumes;
  SystemClock clock;
  decant::DescriptorSink output(STDOUT_FILENO);
  decant::DescriptorSink error(STDERR_FILENO);
  decant::CommandLine commandLine({setup, sleepInhibitor, trashCan, volumes, clock, output, error,
                                   decant::currentWorkingFolder(), languagesOfProcess(),
                                   hasDisplay()});
  return commandLine.run(arguments);
}
