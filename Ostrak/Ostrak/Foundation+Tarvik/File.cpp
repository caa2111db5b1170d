#include "File.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QSaveFile>
#include <cstdlib>
#include <filesystem>

#include "../Ostrak.h"
#include "Descriptor.h"
#include "Url.h"

namespace ostrak {
using namespace Qt::StringLiterals;

namespace {

// Something is there, even if only a symbolic link that leads nowhere.
bool isOccupied(const QString &path) {
  struct stat info;
  return ::lstat(nativePath(path).constData(), &info) == 0;
}

struct SplitPath {
  QString stem;
  QString extension;
};

// A dot at the beginning of a name hides the file, it does not begin an extension.
SplitPath splitPath(const QString &path) {
  const qsizetype name = path.lastIndexOf(u'/') + 1;
  const qsizetype dot = path.lastIndexOf(u'.');
  if (dot <= name) return {path, {}};
  return {path.left(dot), path.mid(dot + 1)};
}

// How many bytes of UTF-8 the character at the start of `text` takes, and how many units it has.
struct CharacterSize {
  qsizetype bytes;
  qsizetype units;
};

CharacterSize firstCharacterSize(QStringView text) {
  const bool pair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
  if (pair) return {4, 2};
  const char16_t unit = text[0].unicode();
  return {unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3, 1};
}

QString numbered(const SplitPath &parts, quint64 number) {
  const QString end = u'-' + QString::number(number) + u'.' + parts.extension;
  const qsizetype name = parts.stem.lastIndexOf(u'/') + 1;
  const qsizetype room = longestFileName - end.toUtf8().size();
  const QString cut = nameCutToBytes(QStringView(parts.stem).sliced(name), room);
  // Where all is extension nothing is gained by cutting.
  return (cut.isEmpty() ? parts.stem : QString(parts.stem.left(name) + cut)) + end;
}

}  // namespace

QString nameCutToBytes(QStringView name, qsizetype bytes) {
  qsizetype taken = 0;
  qsizetype kept = 0;
  while (kept < name.size()) {
    const CharacterSize next = firstCharacterSize(name.sliced(kept));
    if (taken + next.bytes > bytes) break;
    taken += next.bytes;
    kept += next.units;
  }
  return name.first(kept).toString();
}

QByteArray nativePath(const QString &path) {
  // The system would read a path only up to its first NUL, and so mean another file.
  if (path.contains(QChar::Null)) return {};
  return QFile::encodeName(path);
}

std::optional<QString> makeTempFolder() {
  if (!tk) return {};
  const QString name = tk->tempDir() + u'/' + tk->appBundleIdentifier() + u".XXXXXX"_s;
  QByteArray path = nativePath(name);
  if (!::mkdtemp(path.data())) return {};
  return QFile::decodeName(path);
}

QString uniqueFile(const QString &path) {
  return uniqueFile(path, {});
}

QUrl uniqueFile(const QUrl &location) {
  if (!location.isLocalFile()) return {};
  return fileURL(uniqueFile(location.toLocalFile()));
}

QString uniqueFile(const QString &path, const std::function<bool(const QString &)> &isTaken) {
  quint64 number = 0;
  return uniqueFile(path, isTaken, number);
}

QString uniqueFile(const QString &path, const std::function<bool(const QString &)> &isTaken,
                   quint64 &number) {
  const auto taken = [&isTaken](const QString &name) {
    return (isTaken && isTaken(name)) || isOccupied(name);
  };
  if (!taken(path)) return path;
  const SplitPath parts = splitPath(path);
  for (;; ++number) {
    const QString name = numbered(parts, number);
    if (!taken(name)) return name;
  }
}

quint64 fileSize(const QString &path) {
  struct stat info;
  if (::lstat(nativePath(path).constData(), &info) != 0) return 0;
  return static_cast<quint64>(info.st_size);
}

quint64 fileSize(const QUrl &location) {
  struct stat info;
  if (!location.isLocalFile()) return 0;
  if (::stat(nativePath(location.toLocalFile()).constData(), &info) != 0) return 0;
  return S_ISREG(info.st_mode) ? static_cast<quint64>(info.st_size) : 0;
}

quint64 fileOrDirectorySize(const QUrl &location) {
  return fileIsDirectory(location) ? directorySize(location) : fileSize(location);
}

bool fileExists(const QString &path) {
  struct stat info;
  return ::stat(nativePath(path).constData(), &info) == 0;
}

bool fileExists(const QUrl &location) {
  return location.isLocalFile() && fileExists(location.toLocalFile());
}

bool fileIsDirectory(const QUrl &location) {
  struct stat info;
  return location.isLocalFile() &&
         ::stat(nativePath(location.toLocalFile()).constData(), &info) == 0 &&
         S_ISDIR(info.st_mode);
}

bool isWriteablePath(const QString &path) {
  const QByteArray name = nativePath(path);
  // O_EXCL refuses whatever exists, a symbolic link that leads nowhere included.
  const Descriptor file(::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!file) return false;
  const bool written = ::write(file.get(), "TEST", 4) == 4;
  ::unlink(name.constData());
  return written;
}

bool isWriteablePath(const QUrl &location) {
  return location.isLocalFile() && isWriteablePath(location.toLocalFile());
}

bool fileIsRestricted(const QString &path) {
  const QByteArray name = nativePath(path);
  struct stat info;
  if (::lstat(name.constData(), &info) != 0) return false;
  // Opening a device or a FIFO could have effects of its own.
  if (!S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode)) return false;
  const Descriptor file(::open(name.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  int flags = 0;
  return file && ::ioctl(file.get(), FS_IOC_GETFLAGS, &flags) == 0 && (flags & FS_IMMUTABLE_FL);
}

bool fileIsRestricted(const QUrl &location) {
  return location.isLocalFile() && fileIsRestricted(location.toLocalFile());
}

bool fileIsAlias(const QString &) {
  return false;
}

bool fileIsAlias(const QUrl &) {
  return false;
}

std::optional<QString> fileAliasTarget(const QString &) {
  return {};
}

std::optional<QString> fileAliasTarget(const QUrl &) {
  return {};
}

QString stringByResolvingSymlinksInPathFixed(const QString &path) {
  std::error_code error;
  const std::filesystem::path resolved =
      std::filesystem::weakly_canonical(nativePath(path).toStdString(), error);
  return error ? path : QFile::decodeName(resolved.c_str());
}

std::optional<QByteArray> contents(const QString &path) {
  const Descriptor descriptor(
      ::open(nativePath(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat info;
  // A FIFO would never end, a device might not either.
  if (!descriptor || ::fstat(descriptor.get(), &info) != 0 || !S_ISREG(info.st_mode)) return {};
  QFile file;
  if (!file.open(descriptor.get(), QIODevice::ReadOnly)) return {};
  QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) return {};
  return bytes;
}

std::optional<QByteArray> contents(const QUrl &location) {
  if (!location.isLocalFile()) return {};
  return contents(location.toLocalFile());
}

void setContents(const QString &path, const QByteArray &bytes) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(bytes);
  file.commit();
}

void setContents(const QUrl &location, const QByteArray &bytes) {
  if (location.isLocalFile()) setContents(location.toLocalFile(), bytes);
}

std::optional<FileIdentity> fileIdentity(const QString &path) {
  struct stat info;
  if (::stat(nativePath(path).constData(), &info) != 0) return {};
  return FileIdentity{info.st_dev, info.st_ino};
}

std::optional<FileIdentity> fileIdentity(int descriptor) {
  struct stat info;
  if (::fstat(descriptor, &info) != 0) return {};
  return FileIdentity{info.st_dev, info.st_ino};
}

size_t qHash(const FileIdentity &identity, size_t seed) {
  return qHashMulti(seed, identity.device, identity.inode);
}

bool isSameFile(const QString &path, const QString &other) {
  const std::optional<FileIdentity> identity = fileIdentity(path);
  return identity && identity == fileIdentity(other);
}

}  // namespace ostrak
