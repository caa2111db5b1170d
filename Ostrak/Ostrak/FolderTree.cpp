#include "FolderTree.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/inotify.h>

#include <cerrno>
#include <cstring>
#include <ctime>
#include <memory>
#include <tuple>
#include <vector>

namespace ostrak {
namespace {

constexpr quint32 anyChange =
    IN_CREATE | IN_DELETE | IN_MODIFY | IN_ATTRIB | IN_MOVED_FROM | IN_MOVED_TO;
constexpr int openFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

bool isLater(const timespec &moment, const timespec &other) {
  return std::tie(moment.tv_sec, moment.tv_nsec) > std::tie(other.tv_sec, other.tv_nsec);
}

timespec now() {
  timespec moment{};
  ::clock_gettime(CLOCK_REALTIME, &moment);
  return moment;
}

bool isDots(const char *name) {
  return std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0;
}

}  // namespace

FolderTree::FolderTree(QByteArray path) : m_anchor(m_inotify, std::move(path)), m_start(now()) {
  if (!isReady()) return;
  m_anchor.set();
  m_root = fileIdentity(Descriptor(::open(m_anchor.path().constData(), openFlags)).get());
  walkAnew();
}

void FolderTree::walkAnew() {
  ++m_round;
  m_pending.clear();
  m_pending.push_back({});
  m_walking = true;
  m_wholeWalk = true;
}

void FolderTree::walkOne() {
  if (m_pending.empty()) {
    endWalk();
    return;
  }
  const Place place = std::move(m_pending.front());
  m_pending.pop_front();
  Descriptor folder = open(place);
  if (place.parent < 0) rootOpened(folder.get());
  if (!folder) return;
  const int watch = m_inotify.add(folder.get(), anyChange);
  if (watch == -ENOSPC) {
    // The walk goes on: it keeps what is watched already, and others may give watches back.
    if (!std::exchange(m_limited, true)) m_news.limited = true;
  }
  if (watch < 0) return;
  const bool isKnown = m_nodes.contains(watch);
  m_nodes.insert_or_assign(watch, Node{place.parent, m_round, place.name});
  readFolder(std::move(folder), watch, isKnown);
}

// A folder that was not met in a walk over everything is not there any more.
void FolderTree::endWalk() {
  m_walking = false;
  m_first = false;
  m_parent = -1;
  m_parentFolder = Descriptor();
  if (!std::exchange(m_wholeWalk, false)) return;
  std::set<int> stale;
  for (const auto &[watch, node] : m_nodes)
    if (node.round != m_round) stale.insert(watch);
  drop(stale);
}

Descriptor FolderTree::open(const Place &place) {
  if (place.parent < 0) return Descriptor(::open(m_anchor.path().constData(), openFlags));
  // Those of one folder follow one another.
  if (m_parent != place.parent) {
    m_parentFolder = openNode(place.parent);
    m_parent = place.parent;
  }
  return Descriptor(::openat(m_parentFolder.get(), place.name.c_str(), openFlags));
}

// Step by step: the whole path can be longer than the system takes at once.
Descriptor FolderTree::openNode(int watch) {
  std::vector<const std::string *> names;
  for (auto found = m_nodes.find(watch);; found = m_nodes.find(found->second.parent)) {
    // Parents known from different moments may lead round in a circle.
    if (found == m_nodes.end() || names.size() > m_nodes.size()) return {};
    if (found->second.parent < 0) break;
    names.push_back(&found->second.name);
  }
  Descriptor folder(::open(m_anchor.path().constData(), openFlags));
  for (auto name = names.rbegin(); name != names.rend() && folder; ++name)
    folder = Descriptor(::openat(folder.get(), (*name)->c_str(), openFlags));
  return folder;
}

// Another folder in the root's place is a change, whatever it holds.
void FolderTree::rootOpened(int folder) {
  const std::optional<FileIdentity> root = fileIdentity(folder);
  if (std::exchange(m_root, root) != root) m_news.changed = true;
}

// Between the start, or the making of a folder, and the placing of its watch, changes are told by
// nobody: they are seen by their time, or by there being something at all.
void FolderTree::readFolder(Descriptor folder, int watch, bool isKnown) {
  struct stat found {};
  if (m_first && ::fstat(folder.get(), &found) == 0 && changedSinceStart(found))
    m_news.changed = true;
  const std::unique_ptr<DIR, int (*)(DIR *)> listing(::fdopendir(folder.get()), ::closedir);
  if (!listing) return;
  const int descriptor = folder.release();
  while (const dirent *entry = ::readdir(listing.get())) {
    const char *name = entry->d_name;
    if (isDots(name)) continue;
    if (!m_first && !isKnown) m_news.changed = true;
    bool isFolder = entry->d_type == DT_DIR;
    const bool wantsTime = m_first && !m_news.changed && !isFolder;
    if ((wantsTime || entry->d_type == DT_UNKNOWN) &&
        ::fstatat(descriptor, name, &found, AT_SYMLINK_NOFOLLOW) == 0) {
      isFolder = S_ISDIR(found.st_mode);
      if (wantsTime && changedSinceStart(found)) m_news.changed = true;
    }
    if (isFolder) m_pending.push_back({watch, name});
  }
}

// A time that is still to come says nothing.
bool FolderTree::changedSinceStart(const struct stat &found) const {
  return isLater(found.st_ctim, m_start) && !isLater(found.st_ctim, now());
}

void FolderTree::readEvents() {
  m_inotify.read([this](const InotifyEvent &event) { handle(event); });
  dropGone();
  if (!std::exchange(m_anchorDue, false)) return;
  m_anchor.set();
  walkAnew();
}

void FolderTree::handle(const InotifyEvent &event) {
  if (m_anchor.concerns(event)) m_anchorDue = true;
  if ((event.mask & IN_Q_OVERFLOW) != 0) m_news.changed = true;
  const auto node = m_nodes.find(event.watch);
  if (node == m_nodes.end()) return;
  if ((event.mask & IN_IGNORED) != 0) {
    // Where a volume was, its mount point may be left.
    if (node->second.parent < 0) m_anchorDue = true;
    m_nodes.erase(node);
    return;
  }
  m_news.changed = true;
  if ((event.mask & IN_ISDIR) == 0 || event.name.isEmpty()) return;
  Place place{event.watch, event.name.toStdString()};
  if ((event.mask & IN_MOVED_FROM) != 0)
    m_gone.insert(std::move(place));
  else if ((event.mask & (IN_CREATE | IN_MOVED_TO)) != 0) {
    m_pending.push_back(std::move(place));
    m_walking = true;
  }
}

// The watches of what was moved away would go on telling of it. What came back, or took its place,
// is waiting to be walked.
void FolderTree::dropGone() {
  if (m_gone.empty()) return;
  std::set<int> gone;
  for (const auto &[watch, node] : m_nodes)
    if (m_gone.contains({node.parent, node.name})) gone.insert(watch);
  m_gone.clear();
  std::set<int> below;
  for (const auto &[watch, node] : m_nodes) {
    size_t steps = 0;
    for (int at = watch; steps <= m_nodes.size(); ++steps) {
      if (gone.contains(at)) {
        below.insert(watch);
        break;
      }
      const auto found = m_nodes.find(at);
      if (found == m_nodes.end()) break;
      at = found->second.parent;
    }
  }
  drop(below);
}

void FolderTree::drop(const std::set<int> &watches) {
  // What still waits to be walked below one of them is looked for anew, and not found.
  m_parent = -1;
  m_parentFolder = Descriptor();
  for (const int watch : watches) {
    m_nodes.erase(watch);
    m_inotify.remove(watch);
  }
}

}  // namespace ostrak
