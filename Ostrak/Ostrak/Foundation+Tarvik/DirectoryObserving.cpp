#include "DirectoryObserving.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <chrono>
#include <utility>

#include "File.h"
#include "FolderWatch.h"
#include "Logging.h"
#include "Text.h"
#include "TimerCountdown.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// Folders of a usual size are watched by then, so that the caller can rely on it. It is longer than
// the steps in which the system's clock counts the times of files, by which changes in what is not
// watched yet are seen.
constexpr std::chrono::milliseconds firstWait{20};

// Absolute and without symbolic links, also of a folder that is not there yet.
QString resolved(const QString &path) {
  if (path.isEmpty()) return {};
  const QString place = expanded(path);
  const QString absolute =
      place.startsWith(u'/') ? place : QString(QDir::currentPath() + u'/' + place);
  return QDir::cleanPath(stringByResolvingSymlinksInPathFixed(absolute));
}

}  // namespace

FolderObservation::FolderObservation(FolderWatch *watch) : m_watch(watch) {}
FolderObservation::~FolderObservation() = default;
FolderObservation::FolderObservation(const FolderObservation &) = default;
FolderObservation &FolderObservation::operator=(const FolderObservation &) = default;

bool FolderObservation::isRunning() const {
  return m_watch && m_watch->isRunning();
}

FolderObservation startObserving(const QString &path, std::function<void()> changed) {
  return startObserving(path, std::move(changed), std::make_unique<TimerCountdown>());
}

FolderObservation startObserving(const QString &path, std::function<void()> changed,
                                 std::unique_ptr<Countdown> countdown) {
  QObject *loop = QAbstractEventDispatcher::instance();
  const QString folder = resolved(path);
  if (!loop || folder.isEmpty()) {
    tk_log_level(3, u"Error: the folder %@ cannot be watched"_s, path);
    return {};
  }
  auto watch = std::make_unique<FolderWatch>(folder, std::move(changed), std::move(countdown));
  if (!watch->isRunning()) return {};
  watch->waitUntilWatched(firstWait);
  watch->setParent(loop);
  return FolderObservation(watch.release());
}

void stopObserving(const FolderObservation &observation) {
  if (!observation.m_watch) return;
  observation.m_watch->stop();
  observation.m_watch->deleteLater();
}

}  // namespace ostrak
