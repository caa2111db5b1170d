#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "Countdown.h"
#include "FolderTreeThread.h"

namespace ostrak {

// What is behind the handle of a watched folder: tells on its own thread what the thread of the
// tree has found, many changes at once.
class FolderWatch final : public QObject {
  Q_OBJECT

 public:
  // `path` is absolute and leads through no symbolic links.
  FolderWatch(const QString &path, std::function<void()> changed,
              std::unique_ptr<Countdown> countdown);

  // False when it could not be started; the log tells then.
  [[nodiscard]] bool isRunning() const { return bool(m_notifier); }
  // Waits at most so long until every folder is watched, and tells whether they are.
  bool waitUntilWatched(std::chrono::milliseconds patience) {
    return m_thread->waitUntilWatched(patience);
  }
  // Ends at once; also from inside `changed`.
  void stop();

 private:
  void hear();

  QString m_path;
  std::function<void()> m_changed;
  std::unique_ptr<Countdown> m_countdown;
  std::unique_ptr<FolderTreeThread> m_thread;
  std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace ostrak
