#pragma once

#include <QByteArray>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "Descriptor.h"
#include "FolderTree.h"

namespace ostrak {

// Watches a folder tree on a thread of its own, so that a slow or very large volume holds up nobody
// else. The thread ends with this object, which may have to wait for the folder that it reads just
// then.
class FolderTreeThread final {
 public:
  // `path` as FolderTree takes it.
  explicit FolderTreeThread(QByteArray path);
  ~FolderTreeThread();
  FolderTreeThread(const FolderTreeThread &) = delete;
  FolderTreeThread &operator=(const FolderTreeThread &) = delete;

  // False when the system has no more room for one.
  [[nodiscard]] bool isRunning() const { return m_thread.joinable(); }
  // Readable while there is news.
  [[nodiscard]] int descriptor() const { return m_newsReady.get(); }
  [[nodiscard]] FolderTree::News takeNews();
  // Waits at most so long until every folder is watched, and tells whether they are.
  bool waitUntilWatched(std::chrono::milliseconds patience);

 private:
  void run();
  [[nodiscard]] bool isEnding() const;
  void waitForEvents() const;
  void tell(const FolderTree::News &news);

  FolderTree m_tree;  // the thread's own once that runs
  Descriptor m_end;
  Descriptor m_newsReady;
  std::mutex m_mutex;
  std::condition_variable m_watchedNow;
  bool m_watched = false;
  FolderTree::News m_news;
  std::thread m_thread;
};

}  // namespace ostrak
