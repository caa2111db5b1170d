#include "RealTrashCan.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <cerrno>
#include <cstdio>
#include <optional>

#include "Descriptor.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::Descriptor;
using ostrak::nativePath;

namespace {

constexpr qsizetype longestName = 255;

// One Trash folder, and what a path in its .trashinfo files is relative to (empty: absolute).
struct Trash {
  QString folder;
  QString topFolder;
};

std::optional<struct stat> statusOf(const QString &path) {
  struct stat info;
  if (::lstat(nativePath(path).constData(), &info) != 0) return {};
  return info;
}

bool makeFolder(const QString &path) {
  if (::mkdir(nativePath(path).constData(), 0700) == 0) return true;
  if (errno != EEXIST) return false;
  struct stat info;
  if (::stat(nativePath(path).constData(), &info) == 0 && S_ISDIR(info.st_mode)) return true;
  errno = ENOTDIR;
  return false;
}

// The highest folder above `path` that lies on the same device.
QString topFolderOf(const QString &path, dev_t device) {
  QString top = QFileInfo(path).path();
  while (top != u"/"_s) {
    const QString above = QFileInfo(top).path();
    const auto info = statusOf(above);
    if (!info || info->st_dev != device) break;
    top = above;
  }
  return top;
}

// Where the file may go, in the order of the standard.
QList<Trash> trashesFor(const QString &path, dev_t device, const QString &dataFolder) {
  QList<Trash> trashes;
  QDir().mkpath(dataFolder);
  const auto home = statusOf(QFileInfo(dataFolder).canonicalFilePath());
  if (home && home->st_dev == device) {
    trashes.append({dataFolder + u"/Trash"_s, {}});
    return trashes;
  }
  const QString top = topFolderOf(path, device);
  const QString user = QString::number(::geteuid());
  const QString base = top == u"/"_s ? QString() : top;
  // Anybody could have prepared a shared folder that is a link or lets others in.
  const auto shared = statusOf(base + u"/.Trash"_s);
  if (shared && S_ISDIR(shared->st_mode) && (shared->st_mode & S_ISVTX)) {
    trashes.append({base + u"/.Trash/"_s + user, top});
  }
  trashes.append({base + u"/.Trash-"_s + user, top});
  return trashes;
}

// The first bytes, without half a character at the end.
QByteArray cut(const QByteArray &text, qsizetype size) {
  if (text.size() <= size) return text;
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80)
    --size;
  return text.left(size);
}

// "movie.mkv", then "movie.2.mkv", cut so that the name of its .trashinfo file is not too long.
QByteArray trashedName(const QByteArray &name, int number) {
  constexpr qsizetype room = longestName - qsizetype(sizeof ".trashinfo" - 1);
  const qsizetype dot = name.lastIndexOf('.');
  const bool hasExtension = dot > 0 && name.size() - dot < room / 2;
  QByteArray end = hasExtension ? name.mid(dot) : QByteArray();
  if (number > 1) end.prepend('.' + QByteArray::number(number));
  return cut(hasExtension ? name.left(dot) : name, room - end.size()) + end;
}

QByteArray trashInfo(const QString &path, const Trash &trash) {
  const QString shown =
      trash.topFolder.isEmpty() ? path : QDir(trash.topFolder).relativeFilePath(path);
  return "[Trash Info]\nPath=" + QFile::encodeName(shown).toPercentEncoding("/") +
         "\nDeletionDate=" +
         QDateTime::currentDateTime().toString(u"yyyy-MM-ddThh:mm:ss"_s).toLatin1() + '\n';
}

// Creates the file, which claims the name; 0, or why it cannot be.
int writeInfo(const QByteArray &infoPath, const QByteArray &text) {
  const Descriptor file(
      ::open(infoPath.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
  if (!file) return errno;
  const ssize_t written = ::write(file.get(), text.constData(), static_cast<size_t>(text.size()));
  if (written == text.size()) return 0;
  // A disk that takes a part of it is full.
  const int error = written < 0 ? errno : ENOSPC;
  ::unlink(infoPath.constData());
  return error;
}

// Never replaces what is there; 0, or why it cannot be moved.
int moveFile(const QByteArray &from, const QByteArray &to) {
  if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
    return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A file system without that flag; the .trashinfo file has claimed the name already.
  if (::access(to.constData(), F_OK) == 0) return EEXIST;
  return ::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

// In a place that others can write to, somebody may have laid a link or a folder of their own.
bool isForeign(const Trash &trash) {
  if (trash.topFolder.isEmpty()) return false;
  const auto info = statusOf(trash.folder);
  return info && (!S_ISDIR(info->st_mode) || info->st_uid != ::geteuid());
}

int moveInto(const Trash &trash, const QString &path) {
  if (isForeign(trash)) return EPERM;
  const QString files = trash.folder + u"/files/"_s;
  const QString infos = trash.folder + u"/info/"_s;
  if (!makeFolder(trash.folder) || !makeFolder(files.chopped(1)) || !makeFolder(infos.chopped(1))) {
    return errno;
  }
  const QByteArray source = nativePath(path);
  const QByteArray name = source.mid(source.lastIndexOf('/') + 1);
  const QByteArray text = trashInfo(path, trash);
  for (int number = 1;; ++number) {
    const QByteArray there = trashedName(name, number);
    const QByteArray infoPath = nativePath(infos) + there + ".trashinfo";
    int error = writeInfo(infoPath, text);
    if (error == 0) {
      error = moveFile(source, nativePath(files) + there);
      if (error == 0) return 0;
      ::unlink(infoPath.constData());
    }
    if (error != EEXIST) return error;
  }
}

}  // namespace

RealTrashCan::RealTrashCan()
    : RealTrashCan(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) {}

RealTrashCan::RealTrashCan(QString dataFolder) : m_dataFolder(std::move(dataFolder)) {}

QString RealTrashCan::moveToTrash(const QString &path) {
  // The folder is resolved, the file is not: a link goes to the Trash itself.
  const QFileInfo file(path);
  const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
  const QString real = (folder == u"/"_s ? QString() : folder) + u'/' + file.fileName();
  const auto info = statusOf(real);
  if (folder.isEmpty() || file.fileName().isEmpty() || !info) {
    return ostrak::localized(u"%1 is not there"_s).arg(path);
  }
  int error = 0;
  QString tried;
  for (const Trash &trash : trashesFor(real, info->st_dev, m_dataFolder)) {
    error = moveInto(trash, real);
    if (error == 0) return {};
    tried = trash.folder;
  }
  return ostrak::localized(u"%1 cannot be moved to the Trash in %2: %3"_s)
      .arg(path, tried, qt_error_string(error));
}
