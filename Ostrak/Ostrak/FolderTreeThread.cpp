#include "FolderTreeThread.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <system_error>
#include <utility>

#include "SignalsBlocked.h"

namespace ostrak {
namespace {

Descriptor makeFlag() {
  return Descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
}

void raise(const Descriptor &flag) {
  (void)::eventfd_write(flag.get(), 1);
}

}  // namespace

FolderTreeThread::FolderTreeThread(QByteArray path)
    : m_tree(std::move(path)), m_end(makeFlag()), m_newsReady(makeFlag()) {
  if (!m_tree.isReady() || !m_end || !m_newsReady) return;
  const SignalsBlocked inheritedByTheThread;
  try {
    m_thread = std::thread([this] { run(); });
  } catch (const std::system_error &) {
    // Told by isRunning.
  }
}

FolderTreeThread::~FolderTreeThread() {
  raise(m_end);
  if (m_thread.joinable()) m_thread.join();
}

FolderTree::News FolderTreeThread::takeNews() {
  eventfd_t count = 0;
  (void)::eventfd_read(m_newsReady.get(), &count);
  const std::scoped_lock lock(m_mutex);
  return std::exchange(m_news, FolderTree::News());
}

bool FolderTreeThread::waitUntilWatched(std::chrono::milliseconds patience) {
  std::unique_lock lock(m_mutex);
  return m_watchedNow.wait_for(lock, patience, [this] { return m_watched; });
}

void FolderTreeThread::run() {
  while (!isEnding()) {
    if (m_tree.isWalking()) {
      m_tree.walkOne();
    } else {
      {
        const std::scoped_lock lock(m_mutex);
        m_watched = true;
      }
      m_watchedNow.notify_all();
      waitForEvents();
    }
    // During a long walk, too, so that the kernel need not throw events away.
    m_tree.readEvents();
    tell(m_tree.takeNews());
  }
}

bool FolderTreeThread::isEnding() const {
  pollfd end{m_end.get(), POLLIN, 0};
  return ::poll(&end, 1, 0) > 0;
}

void FolderTreeThread::waitForEvents() const {
  std::array<pollfd, 2> both{{{m_tree.descriptor(), POLLIN, 0}, {m_end.get(), POLLIN, 0}}};
  (void)::poll(both.data(), both.size(), -1);
}

void FolderTreeThread::tell(const FolderTree::News &news) {
  if (news == FolderTree::News()) return;
  {
    const std::scoped_lock lock(m_mutex);
    m_news.changed |= news.changed;
    m_news.limited |= news.limited;
  }
  raise(m_newsReady);
}

}  // namespace ostrak
