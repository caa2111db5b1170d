#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <optional>

#include "ConvertReporter.h"
#include "Invocation.h"

namespace decant {

// A file that is to become a job, or why it can't.
struct InputFile {
  QString source;  // absolute path; a name that can't be one as it is shown
  std::optional<FileFailure> failure;
};

// The FILEs of a conversion, folders opened and subtitle files taken out.
struct ConvertInput {
  QList<InputFile> files;  // in the order of the command line
  QStringList subtitles;   // subtitle files among the FILEs
  QString subtitle;        // the one that was named for the one movie; null when none was
  QString note;            // what is otherwise than it may be expected; null for nothing
  QString usageProblem;    // null when there is something to do
};

// Why a file is refused, in the words of this program.
[[nodiscard]] FileFailure refusedFailure(const QString &text);

// Sorts the FILEs of a command line. Looks at the file system, writes nothing.
[[nodiscard]] ConvertInput convertInput(const Invocation &invocation,
                                        const QByteArray &workingFolder);

}  // namespace decant
