#pragma once

#include <QStringList>
#include <QUrl>
#include <QtGlobal>

#include "Exceptions.h"
#include "Format.h"

namespace ostrak {

// Logging goes to three places: the system log, the capture file if there is one, and a ring of
// recent messages in the settings, which travels with problem reports. Every function here may be
// called from any thread, never fails visibly and takes no lock that is held while calling out.
//
// Levels are the system log's eight: 0 Emergency, 1 Alert, 2 Critical, 3 Error, 4 Warning, 5
// Notice, 6 Info, 7 Debug. Message texts begin with "Error: ", "Warning: " or "Info: ", whatever
// the level.

// Delivers a formatted message; `level` must be 0 to 7.
void deliverLog(int level, const QString &message);

// Formats with makeString's rules and delivers. Data goes in as a value of "%@", never as the
// format.
//   tk_log_level(3, u"Error: could not open %@"_s, path);
template <typename... Values>
void tk_log_level(int level, const QString &format, const Values &...values) {
  deliverLog(level, makeString(format, values...));
}

// Turns capture on, into the file at `fileLocation`, until the process ends. A file of more than
// `maxSize` bytes is first cut to its last `maxSize`; 0 keeps it whole.
void tk_log_enablecapturetofile(const QUrl &fileLocation, quint64 maxSize);

// Stores a message in the general ring of 43 slots only.
void log_to_prefs(const QString &message);

// The steps of deliverLog, named so that they can be tested alone.
void _tk_log_tologfile(int level, const QString &message);
void _tk_log_toprefs(int level, const QString &message);

// Sends what Qt itself warns of (and qDebug and its siblings) to tk_log_level, so that it never
// reaches standard error. Returns the handler that was installed before.
QtMessageHandler installQtMessageLog();

// Starts the rings from their first slots again, as each launch does.
void restartLogRings();

// Reports an exception that nobody caught as a fatal problem and ends the process with status 1.
[[noreturn]] void exceptionHandler(const Exception &exception);

// Makes std::terminate, which an uncaught exception ends in, call exceptionHandler.
void installExceptionHandler();

// File names of this program's core dumps: those in `folders` (in order) whose program begins with
// `appName`, compared without regard to case and diacritics. The program is what the file's name
// begins with, or stands after "core." (systemd) or after the path with "_" for "/" (apport).
// Unreadable folders add nothing.
[[nodiscard]] QStringList appCrashLogs(const QString &appName, const QStringList &folders);

}  // namespace ostrak
