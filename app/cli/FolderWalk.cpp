#include "FolderWalk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include "Intake.h"
#include "Printable.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

struct CloseFolder {
  void operator()(DIR *folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

bool isWanted(const QByteArray &name) {
  const qsizetype dot = name.lastIndexOf('.');
  if (dot < 0) return false;
  const QString extension = QString::fromLatin1(name.sliced(dot + 1).toLower());
  return movieFileTypes().contains(extension) || subtitleFileTypes().contains(extension);
}

class Walk final {
 public:
  explicit Walk(QByteArray workingFolder) : m_workingFolder(std::move(workingFolder)) {}

  // `folder` is a name as it was given, extended.
  void enter(const QByteArray &folder) {
    m_folders.append(folder);
    while (!m_folders.isEmpty())
      list(m_folders.takeLast());
  }

  QList<GivenFile> sorted() {
    std::sort(m_found.begin(), m_found.end(),
              [](const Found &a, const Found &b) { return a.name < b.name; });
    QList<GivenFile> files;
    files.reserve(m_found.size());
    for (const Found &found : std::as_const(m_found))
      files.append(found.file);
    return files;
  }

 private:
  struct Found {
    QByteArray name;
    GivenFile file;
  };

  void list(const QByteArray &folder) {
    const OpenFolder open(::opendir(absolute(folder).constData()));
    if (!open) {
      const QString why = QString::fromLocal8Bit(std::strerror(errno));
      GivenFile file = givenFile(folder, m_workingFolder);
      if (!file.refused())
        file.refusal = worded(u"The folder '%@' can't be read: %@."_s, printable(file.path), why);
      m_found.append({folder, file});
      return;
    }
    const QByteArray prefix = folder.endsWith('/') ? folder : folder + '/';
    while (const dirent *entry = ::readdir(open.get())) {
      if (entry->d_name[0] == '.') continue;
      take(prefix + entry->d_name, ::dirfd(open.get()), entry);
    }
  }

  void take(const QByteArray &name, int folder, const dirent *entry) {
    switch (kindOf(folder, entry)) {
      case DT_DIR:
        m_folders.append(name);
        return;
      case DT_LNK:
        if (leadsToFolder(folder, entry)) return;
        break;
      default:
        break;
    }
    if (isWanted(name)) m_found.append({name, givenFile(name, m_workingFolder)});
  }

  // Some file systems leave the kind to be asked for.
  static unsigned char kindOf(int folder, const dirent *entry) {
    if (entry->d_type != DT_UNKNOWN) return entry->d_type;
    struct stat facts {};
    if (::fstatat(folder, entry->d_name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return DT_REG;
    return static_cast<unsigned char>(IFTODT(facts.st_mode));
  }

  static bool leadsToFolder(int folder, const dirent *entry) {
    struct stat facts {};
    return ::fstatat(folder, entry->d_name, &facts, 0) == 0 && S_ISDIR(facts.st_mode);
  }

  [[nodiscard]] QByteArray absolute(const QByteArray &name) const {
    return name.startsWith('/') ? name : m_workingFolder + '/' + name;
  }

  QByteArray m_workingFolder;
  QList<QByteArray> m_folders;
  QList<Found> m_found;
};

}  // namespace

QList<GivenFile> filesBelow(const QByteArray &folder, const QByteArray &workingFolder) {
  Walk walk(workingFolder);
  walk.enter(folder);
  return walk.sorted();
}

}  // namespace decant
