#pragma once

#include <QByteArray>
#include <QString>

namespace decant {

// A file named on the command line. Names are bytes; only those that are UTF-8 can be worked on.
struct GivenFile {
  QString given;    // as given, for the reader; escaped where it is not UTF-8
  QString path;     // absolute; as `given` where there is none
  QString refusal;  // why it cannot be taken, as a sentence; null when it can

  [[nodiscard]] bool refused() const { return !refusal.isNull(); }
};

// The text that UTF-8 bytes are, a mark at the beginning included; null when they are not UTF-8.
[[nodiscard]] QString textOfBytes(const QByteArray &bytes);

// The name as an absolute path, made by joining it to the working folder; nothing is resolved or
// collapsed. Refused: no name, a name that is not UTF-8,
// a relative one where there is no working folder. Pure.
[[nodiscard]] GivenFile givenFile(const QByteArray &name, const QByteArray &workingFolder);

// The working folder as the system tells it; empty when it is gone.
[[nodiscard]] QByteArray currentWorkingFolder();

// What stands in the way of reading this as a movie or subtitle file: it is not there, it is a
// folder or no regular file, it may not be read. Null when nothing does. Links are followed.
[[nodiscard]] QString whyNotReadable(const QString &path);
[[nodiscard]] bool isFolder(const QString &path);

}  // namespace decant
