#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <QByteArray>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "Descriptor.h"
#include "File.h"
#include "FolderAnchor.h"
#include "InotifyWatch.h"

namespace ostrak {

// A folder with all folders below it, watched for changes. Nothing of it happens by itself: who
// owns it lets it walk, folder by folder, as long as it wants to, and read its events when its
// descriptor is readable. Symbolic links are not followed. One thread at a time.
class FolderTree final {
 public:
  // Changes count from now on. `path` is absolute and leads through no symbolic links; where it
  // leads nowhere, the folder is waited for.
  explicit FolderTree(QByteArray path);
  FolderTree(const FolderTree &) = delete;
  FolderTree &operator=(const FolderTree &) = delete;

  // False when the system has no more room for it.
  [[nodiscard]] bool isReady() const { return m_inotify.isReady(); }
  [[nodiscard]] int descriptor() const { return m_inotify.descriptor(); }
  [[nodiscard]] size_t watched() const { return m_nodes.size(); }

  // Whether folders are left that are not watched yet.
  [[nodiscard]] bool isWalking() const { return m_walking; }
  // Watches the next one of them.
  void walkOne();
  void readEvents();

  struct News {
    bool changed = false;
    bool limited = false;  // the system lets no more folders be watched; told once
    bool operator==(const News &) const = default;
  };
  // What there is to tell since it was asked last.
  [[nodiscard]] News takeNews() { return std::exchange(m_news, News()); }

 private:
  // A watched folder, by the number of its watch.
  struct Node {
    int parent = -1;
    unsigned round = 0;  // the walk that has seen it last
    std::string name;
  };
  struct Place {
    int parent = -1;  // -1 for the root itself
    std::string name;
    bool operator<(const Place &other) const {
      return std::tie(parent, name) < std::tie(other.parent, other.name);
    }
  };

  void walkAnew();
  void endWalk();
  [[nodiscard]] Descriptor open(const Place &place);
  [[nodiscard]] Descriptor openNode(int watch);
  void rootOpened(int folder);
  void readFolder(Descriptor folder, int watch, bool isKnown);
  [[nodiscard]] bool changedSinceStart(const struct stat &found) const;
  void handle(const InotifyEvent &event);
  void dropGone();
  void drop(const std::set<int> &watches);

  InotifyWatch m_inotify;
  FolderAnchor m_anchor;
  timespec m_start{};
  std::unordered_map<int, Node> m_nodes;
  std::deque<Place> m_pending;
  std::set<Place> m_gone;  // folders that were moved away
  std::optional<FileIdentity> m_root;
  int m_parent = -1;  // whose folder is kept open during a walk
  Descriptor m_parentFolder;
  unsigned m_round = 0;
  bool m_walking = false;
  bool m_first = true;  // the first walk is not at its end yet
  bool m_wholeWalk = false;
  bool m_anchorDue = false;
  bool m_limited = false;
  News m_news;
};

}  // namespace ostrak
