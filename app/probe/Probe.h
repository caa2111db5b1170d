#pragma once

#include <QUrl>
#include <optional>

#include "ReportParser.h"

namespace decant {

// Runs resources/ffmpeg on one file and reads its report. Everything here blocks while the tool runs and
// is called on a worker thread.

// Names of the environment variables that no child may inherit, since they change what ffmpeg prints.
[[nodiscard]] QStringList toolVariablesToRemove();

// A tool that could not be started gives no record and one alert that names it and what to do; one that
// the system refused to make a process for gives `processRefused`. Raises nothing itself. Throws
// ostrak::RangeError for a malformed report.
struct ProbeRun {
  ProbeOutcome outcome;
  bool toolMissing = false;
  bool processRefused = false;
};
[[nodiscard]] ProbeRun probeFile(const QUrl &source, const ProbeSettings &settings);

// Raises the alerts of an outcome in the documented way: silenceable ones unless they were silenced,
// scheduled ones 0.1 s later on the main thread. Any thread.
void raiseAlerts(const QList<ProbeAlert> &alerts);

// The record of a file, or nothing when it must not be queued; the user has then been told why.
[[nodiscard]] std::optional<MKVFileInfo> initWithURL(const QUrl &source);

// Whole seconds, or -1 when the report does not have exactly one "Duration: " line.
[[nodiscard]] qint32 durationOfFile(const QUrl &source);

}  // namespace decant
