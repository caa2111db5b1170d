#include "Bookmark.h"

#include <sys/stat.h>
#include <sys/vfs.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstring>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

struct Identity {
  quint64 device = 0;
  quint64 inode = 0;
  quint64 fileSystem = 0;

  // Device numbers change when disks are plugged in another order, file-system ids stay.
  [[nodiscard]] bool isSame(const Identity &other) const {
    return inode == other.inode && (device == other.device || fileSystem == other.fileSystem);
  }
};

std::optional<Identity> identityOfFolder(const QString &path) {
  const QByteArray name = QFile::encodeName(path);
  struct stat file {};
  struct statfs system {};
  if (stat(name.constData(), &file) != 0 || !S_ISDIR(file.st_mode)) return {};
  if (statfs(name.constData(), &system) != 0) return {};
  Identity identity{file.st_dev, file.st_ino, 0};
  static_assert(sizeof system.f_fsid == sizeof identity.fileSystem);
  std::memcpy(&identity.fileSystem, &system.f_fsid, sizeof identity.fileSystem);
  return identity;
}

// The folder with this identity whose path differs from `path` in the name of one component at
// most.
std::optional<QString> renamedFolder(const QString &path, const Identity &wanted) {
  QString ancestor = path;
  QString below;
  while (ancestor.size() > 1) {
    const qsizetype slash = ancestor.lastIndexOf(u'/');
    const QString parent = slash > 0 ? ancestor.first(slash) : u"/"_s;
    const QStringList names =
        QDir(parent).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    for (const QString &name : names) {
      const QString candidate = QDir(parent).filePath(name) + below;
      const std::optional<Identity> found = identityOfFolder(candidate);
      if (found && found->isSame(wanted)) return candidate;
    }
    below = ancestor.sliced(slash) + below;
    ancestor = parent;
  }
  return {};
}

}  // namespace

std::optional<QByteArray> bookmarkOfFolder(const QString &folder) {
  const QString path = QDir::cleanPath(folder);
  const std::optional<Identity> identity = identityOfFolder(path);
  if (!identity) return {};
  // Texts, because a JSON number does not hold 64 bits.
  const QJsonObject blob{{u"path"_s, path},
                         {u"device"_s, QString::number(identity->device)},
                         {u"inode"_s, QString::number(identity->inode)},
                         {u"fileSystem"_s, QString::number(identity->fileSystem)}};
  return QJsonDocument(blob).toJson(QJsonDocument::Compact);
}

std::optional<QString> folderOfBookmark(const QByteArray &bookmark) {
  const QJsonObject blob = QJsonDocument::fromJson(bookmark).object();
  const QString path = blob.value(u"path"_s).toString();
  if (!path.startsWith(u'/')) return {};
  const auto number = [&blob](const QString &key) {
    return blob.value(key).toString().toULongLong();
  };
  const Identity wanted{number(u"device"_s), number(u"inode"_s), number(u"fileSystem"_s)};
  const std::optional<Identity> there = identityOfFolder(path);
  if (there && there->isSame(wanted)) return path;
  if (const std::optional<QString> renamed = renamedFolder(path, wanted)) return renamed;
  // An empty mount point of an unmounted disk is another file system's.
  if (there && there->fileSystem == wanted.fileSystem) return path;
  return {};
}

}  // namespace ostrak
