#include "ProgressFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <array>

#include "File.h"
#include "ProgressFileName.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

// Each claim is beaten only by somebody who makes, or sweeps, that very file at that very moment.
constexpr int claimAttempts = 20;

// Nothing yet, or a report in the tool's manner, which begins with what it says of the video or,
// without one, with the bit rate.
bool looksWrittenByTheTool(int file) {
  std::array<char, 16> bytes{};
  const ssize_t count = ::pread(file, bytes.data(), bytes.size(), 0);
  if (count < 0) return false;
  const QByteArrayView start(bytes.data(), count);
  return start.isEmpty() || start.startsWith("frame=") || start.startsWith("bitrate=");
}

bool isOurs(int file, const QByteArray &name) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(file, &opened) == 0 && S_ISREG(opened.st_mode) && opened.st_uid == ::geteuid() &&
         ::lstat(name.constData(), &named) == 0 && named.st_dev == opened.st_dev &&
         named.st_ino == opened.st_ino;
}

}  // namespace

OwnFile claimProgressFile(const QString &fileName, const QString &folder) {
  OwnFile file;
  (void)QDir().mkpath(folder);
  for (int attempt = 0; attempt < claimAttempts; ++attempt) {
    const QString path = ostrak::uniqueFile(QDir(folder).filePath(progressFileName(fileName)));
    const OwnFile::Creation creation = OwnFile::create(path, file);
    if (creation == OwnFile::Creation::impossible) break;
    if (creation == OwnFile::Creation::created && file.hold()) break;
  }
  return file;
}

OwnFile claimProgressFile(const QString &fileName, const QString &folder, const QString &spare) {
  OwnFile file = claimProgressFile(fileName, folder);
  return file.isThere() ? std::move(file) : claimProgressFile(fileName, spare);
}

QString progressFolder(const QString &folder, const QString &spare) {
  // A folder that is missing is made when it is wanted.
  QString existing = folder;
  while (!QFileInfo::exists(existing) && !QFileInfo(existing).isRoot())
    existing = QFileInfo(existing).absolutePath();
  return ::access(ostrak::nativePath(existing).constData(), W_OK | X_OK) == 0 ? folder : spare;
}

void sweepProgressFiles(const QString &folder) {
  const QDir all(folder);
  const QStringList names =
      all.entryList({u"*.log"_s}, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::NoSort);
  for (const QString &each : names) {
    const QByteArray name = ostrak::nativePath(all.filePath(each));
    const ostrak::Descriptor file(
        ::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    // The lock comes first: whoever has just made the file sees by it that the file is going.
    if (!file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0) continue;
    if (isOurs(file.get(), name) && looksWrittenByTheTool(file.get())) ::unlink(name.constData());
  }
}

}  // namespace decant
