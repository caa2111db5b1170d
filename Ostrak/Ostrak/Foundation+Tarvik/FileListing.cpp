#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <QFile>
#include <functional>
#include <memory>

#include "Descriptor.h"
#include "File.h"
#include "Url.h"

// The operations of File.h that list folders. All walk by bytes and descriptors, so that names that
// are not UTF-8 are found again, and never follow a link inside the folder, so that loops end.

namespace ostrak {

namespace {

struct CloseFolder {
  void operator()(DIR *folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

Folder openFolder(int base, const QByteArray &path, int flags) {
  Descriptor descriptor(
      ::openat(base, path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags));
  if (!descriptor) return nullptr;
  Folder folder(::fdopendir(descriptor.get()));
  if (folder) std::ignore = descriptor.release();
  return folder;
}

bool isFolder(int base, const dirent &entry) {
  if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
  struct stat info;
  return ::fstatat(base, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(info.st_mode);
}

// Gets the open folder in which the entry lies, the entry, and its path below the top.
using Visitor = std::function<void(int base, const dirent &entry, const QByteArray &below)>;

// The names of the folders that lie directly in `folder`.
QList<QByteArray> visitFolder(DIR *folder, const QByteArray &below, const Visitor &visit) {
  QList<QByteArray> folders;
  while (const dirent *entry = ::readdir(folder)) {
    const QByteArray name(entry->d_name);
    if (name == "." || name == "..") continue;
    const QByteArray path = below.isEmpty() ? name : below + '/' + name;
    visit(::dirfd(folder), *entry, path);
    if (isFolder(::dirfd(folder), *entry)) folders.append(path);
  }
  return folders;
}

// False when the folder itself cannot be read. Folders below that cannot be read count as empty.
bool walk(const QString &top, bool recursive, const Visitor &visit) {
  const Folder root = openFolder(AT_FDCWD, nativePath(top), 0);
  if (!root) return false;
  QList<QByteArray> waiting = visitFolder(root.get(), {}, visit);
  while (recursive && !waiting.isEmpty()) {
    const QByteArray below = waiting.takeLast();
    const Folder folder = openFolder(::dirfd(root.get()), below, O_NOFOLLOW);
    if (folder) waiting += visitFolder(folder.get(), below, visit);
  }
  return true;
}

std::optional<QStringList> list(const QString &path, bool recursive) {
  QStringList entries;
  const bool readable =
      walk(path, recursive, [&entries](int, const dirent &, const QByteArray &below) {
        entries.append(QFile::decodeName(below));
      });
  if (!readable) return {};
  return entries;
}

QString joined(const QString &folder, const QString &entry) {
  return folder.endsWith(u'/') ? QString(folder + entry) : QString(folder + u'/' + entry);
}

std::optional<QStringList> absolute(const QString &path, std::optional<QStringList> entries) {
  if (!entries) return {};
  for (QString &entry : *entries)
    entry = joined(path, entry);
  return entries;
}

QList<QUrl> locations(const QString &path, const QStringList &entries) {
  QList<QUrl> urls;
  urls.reserve(entries.size());
  for (const QString &entry : entries)
    urls.append(fileURL(joined(path, entry)));
  return urls;
}

}  // namespace

std::optional<QStringList> dirContents(const QString &path) {
  return list(path, false);
}

std::optional<QList<QUrl>> dirContents(const QUrl &location) {
  if (!location.isLocalFile()) return {};
  const QString path = location.toLocalFile();
  const std::optional<QStringList> entries = dirContents(path);
  if (!entries) return {};
  return locations(path, *entries);
}

std::optional<QStringList> dirContentsRecursive(const QString &path) {
  return list(path, true);
}

std::optional<QList<QUrl>> dirContentsRecursive(const QUrl &location) {
  if (!location.isLocalFile()) return {};
  const QString path = location.toLocalFile();
  const std::optional<QStringList> entries = dirContentsRecursive(path);
  if (!entries && !fileExists(path)) return {};
  return locations(path, entries.value_or(QStringList()));
}

std::optional<QStringList> dirContentsAbsolute(const QString &path) {
  return absolute(path, dirContents(path));
}

std::optional<QStringList> dirContentsRecursiveAbsolute(const QString &path) {
  return absolute(path, dirContentsRecursive(path));
}

quint64 directorySize(const QString &path) {
  quint64 size = 0;
  walk(path, true, [&size](int base, const dirent &entry, const QByteArray &) {
    struct stat info;
    if (::fstatat(base, entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 && !S_ISDIR(info.st_mode)) {
      size += static_cast<quint64>(info.st_size);
    }
  });
  return size;
}

quint64 directorySize(const QUrl &location) {
  return location.isLocalFile() ? directorySize(location.toLocalFile()) : 0;
}

}  // namespace ostrak
