#include "FolderWatch.h"

#include <utility>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

constexpr std::chrono::milliseconds latency = std::chrono::seconds(2);
constexpr int warning = 4;

}  // namespace

FolderWatch::FolderWatch(const QString &path, std::function<void()> changed,
                         std::unique_ptr<Countdown> countdown)
    : m_path(path),
      m_changed(std::move(changed)),
      m_countdown(std::move(countdown)),
      m_thread(std::make_unique<FolderTreeThread>(nativePath(path))) {
  if (!m_thread->isRunning()) {
    tk_log_level(warning,
                 u"Warning: the folder %@ cannot be watched, the system's limits are "
                 "reached"_s,
                 path);
    return;
  }
  m_notifier = std::make_unique<QSocketNotifier>(m_thread->descriptor(), QSocketNotifier::Read);
  connect(m_notifier.get(), &QSocketNotifier::activated, this, &FolderWatch::hear);
}

void FolderWatch::hear() {
  const FolderTree::News news = m_thread->takeNews();
  if (news.limited)
    tk_log_level(warning,
                 u"Warning: not every folder in %@ can be watched, the system's limit "
                 "fs.inotify.max_user_watches is reached"_s,
                 m_path);
  if (!news.changed || m_countdown->isRunning()) return;
  m_countdown->start(latency, [this] {
    const auto changed = m_changed;
    changed();
  });
}

void FolderWatch::stop() {
  if (!m_notifier) return;
  m_countdown->cancel();
  m_notifier->setEnabled(false);
  m_notifier.release()->deleteLater();
  m_thread.reset();
}

}  // namespace ostrak
