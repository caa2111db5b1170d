#pragma once

#include <QByteArray>
#include <unordered_map>
#include <utility>

#include "InotifyWatch.h"

namespace ostrak {

// Notices that a path may lead to another folder than before, or to none: the folder was moved or
// deleted, or one of those above it. Of a folder that is not there its coming is noticed. What
// happens in the folder itself is not watched; nor is a mount, which the kernel does not tell.
class FolderAnchor final {
 public:
  // `inotify` outlives this object; `path` is absolute and leads through no symbolic links.
  FolderAnchor(const InotifyWatch &inotify, QByteArray path);

  // Watches what the path leads through now, instead of what it led through before.
  void set();
  // The same for another path.
  void set(QByteArray path) {
    m_path = std::move(path);
    set();
  }
  // Whether the event may have changed where the path leads; `set` is due then.
  [[nodiscard]] bool concerns(const InotifyEvent &event) const;
  [[nodiscard]] const QByteArray &path() const { return m_path; }

 private:
  // Of the folder that has the entry `name` on the way; empty where only its own going counts.
  using Watches = std::unordered_map<int, QByteArray>;

  [[nodiscard]] QByteArray deepestParent() const;
  void add(Watches &watches, const QByteArray &folder, quint32 mask,
           const QByteArray &name = {}) const;

  const InotifyWatch &m_inotify;
  QByteArray m_path;
  Watches m_watches;
};

}  // namespace ostrak
