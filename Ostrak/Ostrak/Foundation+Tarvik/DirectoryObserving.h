#pragma once

#include <QPointer>
#include <QString>
#include <functional>
#include <memory>

#include "Countdown.h"

namespace ostrak {

class FolderWatch;

// The handle of a watched folder. The watch does not end with it, only by stopObserving or with the
// event loop of the thread that it was started on.
class FolderObservation final {
 public:
  // Of no watch.
  FolderObservation() = default;
  explicit FolderObservation(FolderWatch *watch);
  ~FolderObservation();
  FolderObservation(const FolderObservation &);
  FolderObservation &operator=(const FolderObservation &);

  // Whether it watches; false after stopObserving.
  [[nodiscard]] bool isRunning() const;

 private:
  friend void stopObserving(const FolderObservation &observation);
  QPointer<FolderWatch> m_watch;
};

// From now on `changed` is called on this thread, by its event loop, whenever something changes in
// the folder or anywhere below it: 2.0 seconds after the first change, once for all that have
// happened until then. It is not told what has changed. A leading "~" is expanded. Symbolic links
// in the folder are not followed. The folder itself may come and go: its going and its coming back
// are changes. What cannot be watched is told in the log.
//
// Waits for a large folder at most some milliseconds; the rest is looked through beside.
[[nodiscard]] FolderObservation startObserving(const QString &path, std::function<void()> changed);
// The same with another measure of time.
[[nodiscard]] FolderObservation startObserving(const QString &path, std::function<void()> changed,
                                               std::unique_ptr<Countdown> countdown);
// On the thread where it was started, also from inside `changed`: which is not called any more. A
// handle of no watch, or of one that was stopped, is left alone.
void stopObserving(const FolderObservation &observation);

}  // namespace ostrak
