#pragma once

#include <QStringList>
#include <QUrl>
#include <chrono>
#include <functional>
#include <optional>

#include "ReportParser.h"

namespace decant {

// Runs resources/ffmpeg on one file and reads its report. Everything here blocks while the tool
// runs and is called on a worker thread.

// Names of the environment variables that no child may inherit, since they change what ffmpeg
// prints.
[[nodiscard]] QStringList toolVariablesToRemove();

// What came of one probe. A source that is no readable regular file is refused without running the
// tool. A tool that could not be started, or that says nothing at all, gives no record and one
// alert that names it and what to do; one that the system refused to make a process for gives
// `processRefused` and the alert that ends the program. Raises nothing itself. Throws
// ostrak::RangeError for a malformed report.
struct ProbeRun {
  ProbeOutcome outcome;
  bool toolMissing = false;
  bool processRefused = false;
};
[[nodiscard]] ProbeRun probeFile(const QUrl &source, const ProbeSettings &settings);

// Raises the alerts of an outcome in the documented way: silenceable ones unless they were
// silenced, scheduled ones 0.1 s later on the main thread. Any thread.
void raiseAlerts(const QList<ProbeAlert> &alerts);

// Ends the event loop, and with it the program, with this status.
void quitProgram(int status);
// The same for a whole run: once the alert that no process can be created is answered,
// `exitProgram` gets the status 0, on the main thread.
void raiseAlerts(const ProbeRun &run,
                 const std::function<void(int status)> &exitProgram = quitProgram);

// The record of a file, or nothing when it must not be queued; the user has then been told why.
// Throws ostrak::RangeError for a malformed report.
[[nodiscard]] std::optional<MKVFileInfo> initWithURL(
    const QUrl &source, const std::function<void(int status)> &exitProgram = quitProgram);

// Whole seconds, or -1 when the report does not have exactly one "Duration: " line, or does not
// come within 30 seconds.
[[nodiscard]] qint32 durationOfFile(const QUrl &source);
// The same with another patience.
[[nodiscard]] qint32 durationWithin(const QUrl &source, std::chrono::milliseconds patience);

}  // namespace decant
