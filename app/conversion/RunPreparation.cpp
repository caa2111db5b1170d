#include "RunPreparation.h"

#include <QFile>
#include <QScopeGuard>

#include "ConversionArguments.h"
#include "ConversionTool.h"
#include "Format.h"
#include "FreeSpace.h"
#include "JobController.h"
#include "Logging.h"
#include "Ostrak.h"
#include "ProgressFiles.h"
#include "Text.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::localized;
using ostrak::makeString;

namespace {

// Each claim is beaten only by somebody who makes that very file at that very moment.
constexpr int claimAttempts = 20;

PreparedRun obstacle(StartOutcome outcome, const QString &text) {
  PreparedRun result;
  result.outcome = outcome;
  result.obstacle = text;
  return result;
}

PreparedRun sourceRemoved(const MKVFileInfo &fileInfo) {
  const QString text = localized(
      u"It seems you've removed the file %@ or unmounted it's volume so conversion can't "
      u"proceed."_s);
  return obstacle(StartOutcome::sourceRemoved, makeString(text, fileInfo.fileURL.fileName()));
}

PreparedRun destinationRefused(const QString &destination) {
  const QString text = localized(
      u"The destination %@ can't be written because that would destroy another file that "
      u"is still needed. Please choose another destination."_s);
  return obstacle(StartOutcome::destinationRefused, makeString(text, destination));
}

// What a conversion reads must survive it, by whatever name it is called.
bool isInput(const QString &path, const MKVFileInfo &fileInfo) {
  return ostrak::isSameFile(path, fileInfo.fileURL.toLocalFile()) ||
         (fileInfo.subtitleFileURL.isLocalFile() &&
          ostrak::isSameFile(path, fileInfo.subtitleFileURL.toLocalFile()));
}

PreparedRun findObstacle(const RunRequest &request, const JobController &ad,
                         const JobServices &services) {
  const MKVFileInfo &fileInfo = request.fileInfo;
  const QString destination = fileInfo.destinationURL.toLocalFile();
  if (!ostrak::fileExists(fileInfo.fileURL)) return sourceRemoved(fileInfo);
  if (!isUsableTool(services.toolPath))
    return obstacle(StartOutcome::toolMissing, toolMissingText(services.toolPath, fileInfo));
  if (isInput(destination, fileInfo) || (request.replacesDestination && ad.isSource(destination)))
    return destinationRefused(destination);
  if (fileInfo.audioTrackInformation.isEmpty()) return {};
  const quint64 freed = request.replacesDestination ? ostrak::fileSize(destination) : 0;
  const QString noRoom = checkFreeSpace(services.volumes, destination, fileInfo.fileSize, freed);
  return noRoom.isNull() ? PreparedRun() : obstacle(StartOutcome::noRoom, noRoom);
}

// Makes the destination's file, so that from here on it is this run's own; under another name where
// the name was taken, or has come to mean a movie that is still to be converted. False when every
// name was taken at the last moment.
bool claimDestination(PreparedRun &run, bool replaces, JobController &ad) {
  if (replaces) QFile::remove(run.destinationURL.toLocalFile());
  for (int attempt = 0; attempt < claimAttempts; ++attempt) {
    const QString path = run.destinationURL.toLocalFile();
    // Where no file can be made the tool says why, in its own words.
    if (!ad.isSource(path) && OwnFile::create(path, run.output) != OwnFile::Creation::exists)
      return true;
    run.destinationURL = ad.claimUniqueDestination(run.destinationURL);
  }
  return false;
}

bool askForFixup(const ConversionPlan &plan, const JobServices &services) {
  if (!wantsFixupTest(plan.fileInfo, plan.audioTrackIndex, plan.settings)) return false;
  if (services.busy) services.busy(true);
  const auto done = qScopeGuard([&services] {
    if (services.busy) services.busy(false);
  });
  return needFixup(services.toolPath, plan.fileInfo, plan.audioTrackIndex,
                   plan.fileInfo.destinationURL.toLocalFile(),
                   {.delays = services.stopDelays, .interrupted = services.interrupted});
}

}  // namespace

PreparedRun prepareRun(const RunRequest &request, JobController &ad, const JobServices &services) {
  PreparedRun run = findObstacle(request, ad, services);
  if (run.outcome != StartOutcome::launched) return run;
  run.destinationURL = request.fileInfo.destinationURL;
  if (!claimDestination(run, request.replacesDestination, ad))
    return destinationRefused(run.destinationURL.toLocalFile());
  auto giveUp = qScopeGuard([&run] {
    run.output.remove();
    run.progressFile.remove();
  });

  ConversionPlan plan;
  plan.fileInfo = request.fileInfo;
  plan.fileInfo.destinationURL = run.destinationURL;
  plan.audioTrackIndex = request.audioTrackIndex;
  plan.settings = request.settings;
  run.progressFile =
      claimProgressFile(plan.fileInfo.fileName, services.progressFolder, ostrak::tk->tempDir());
  plan.progressFile = run.progressFile.path();
  plan.fixup = askForFixup(plan, services);
  run.arguments = completeArguments(plan);
  if (plan.fileInfo.subtitleFileURL.isLocalFile() && !plan.fileInfo.audioTrackInformation.isEmpty())
    ostrak::tk_log_level(5, u"Info: adding subtitles from file %@"_s,
                         plan.fileInfo.subtitleFileURL);
  giveUp.dismiss();
  return run;
}

}  // namespace decant
