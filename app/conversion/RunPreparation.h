#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include "ConversionJob.h"
#include "ConversionSettings.h"
#include "OwnFile.h"

namespace decant {

// What a job wants to run.
struct RunRequest {
  const MKVFileInfo &fileInfo;
  quint64 audioTrackIndex = 0;
  bool replacesDestination = false;  // the user has agreed to replace what is there
  ConversionSettings settings;
};

// What is ready to be launched, or why nothing is.
struct PreparedRun {
  StartOutcome outcome = StartOutcome::launched;
  QString obstacle;  // for the user; null when it can be launched
  // Only when it can be launched:
  QUrl destinationURL;   // may be another than the one asked for
  OwnFile output;        // exists, made by this call
  OwnFile progressFile;  // exists, empty, made by this call
  QStringList arguments;
};

// Looks for obstacles first, in their documented order, and touches nothing on disk while there is
// one. Then claims the destination, runs the one-second test where it is wanted, and completes the
// argument list. Blocks as long as that test.
[[nodiscard]] PreparedRun prepareRun(const RunRequest &request, JobController &ad,
                                     const JobServices &services);

}  // namespace decant
