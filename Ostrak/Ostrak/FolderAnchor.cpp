#include "FolderAnchor.h"

#include <sys/inotify.h>
#include <sys/stat.h>

#include <utility>

namespace ostrak {
namespace {

constexpr quint32 ownGoing = IN_MOVE_SELF | IN_DELETE_SELF;
constexpr quint32 entryGoing = IN_MOVED_FROM | IN_DELETE;
constexpr quint32 entryComing = IN_MOVED_TO | IN_CREATE;

bool isFolder(const QByteArray &path) {
  struct stat found {};
  return ::stat(path.constData(), &found) == 0 && S_ISDIR(found.st_mode);
}

QByteArray parentOf(const QByteArray &path) {
  const qsizetype slash = path.lastIndexOf('/');
  return slash > 0 ? path.left(slash) : QByteArray("/");
}

}  // namespace

FolderAnchor::FolderAnchor(const InotifyWatch &inotify, QByteArray path)
    : m_inotify(inotify), m_path(std::move(path)) {}

// The folder that has the path's last entry, or the first one that is missing.
QByteArray FolderAnchor::deepestParent() const {
  QByteArray folder = parentOf(m_path);
  while (folder != "/" && !isFolder(folder))
    folder = parentOf(folder);
  return folder;
}

void FolderAnchor::set() {
  Watches watches;
  if (m_path != "/") {
    QByteArray parent;
    // What comes or goes while the watches are placed is looked for again.
    for (QByteArray next = deepestParent(); next != parent; next = deepestParent()) {
      parent = next;
      const qsizetype start = parent == "/" ? 1 : parent.size() + 1;
      const qsizetype end = m_path.indexOf('/', start);
      const QByteArray name = m_path.mid(start, end < 0 ? -1 : end - start);
      watches.clear();
      add(watches, parent, ownGoing | entryGoing | entryComing, name);
      for (QByteArray folder = parent; folder != "/";) {
        folder = parentOf(folder);
        add(watches, folder, ownGoing);
      }
    }
  }
  for (const auto &[watch, name] : std::exchange(m_watches, watches))
    if (!m_watches.contains(watch)) m_inotify.remove(watch);
}

void FolderAnchor::add(Watches &watches, const QByteArray &folder, quint32 mask,
                       const QByteArray &name) const {
  // A folder that may be passed through but not read cannot be watched.
  const int watch = m_inotify.add(folder, mask);
  if (watch >= 0) watches.insert_or_assign(watch, name);
}

bool FolderAnchor::concerns(const InotifyEvent &event) const {
  if ((event.mask & IN_Q_OVERFLOW) != 0) return true;
  const auto found = m_watches.find(event.watch);
  if (found == m_watches.end()) return false;
  if ((event.mask & (ownGoing | IN_UNMOUNT | IN_IGNORED)) != 0) return true;
  return !found->second.isEmpty() && event.name == found->second;
}

}  // namespace ostrak
