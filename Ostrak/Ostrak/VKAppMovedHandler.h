#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "Countdown.h"
#include "Descriptor.h"
#include "File.h"
#include "FolderAnchor.h"
#include "InotifyWatch.h"

class ProgramLauncher;
class SingleInstance;

namespace ostrak {

// The program that may be moved, and what is needed to start it again. All outlives the handler.
struct MovedProgram {
  QString executable;  // absolute; the folder that it is in is the bundle
  SingleInstance &singleInstance;
  ProgramLauncher &launcher;
  // Nothing new may be started from the place that the program has left.
  std::function<void()> hold;
  // It is back there. May come without a `hold` before it.
  std::function<void()> release;
  // Whether the program may end; asks the user where something is at stake.
  std::function<bool()> mayQuit;
  // Ends it without a question.
  std::function<void()> quit;
};

// Notices that the running program's bundle, or a folder above it, was moved, renamed or deleted;
// tells the user, starts the program from its new place and ends this one. What happens inside the
// bundle is not looked at, nor is a move that was undone before three seconds were over.
//
// Where the user keeps this one, because something runs, no other is started; what runs goes on,
// and nothing new is until the bundle is back or the user is told again. A
// bundle whose place the kernel cannot tell, deleted or moved to another volume, cannot be started
// again: that is told. Main thread.
class VKAppMovedHandler final : public QObject {
  Q_OBJECT

 public:
  // Watches from now on, for as long as the handler lives. A bundle that cannot be watched is not
  // told.
  [[nodiscard]] static std::unique_ptr<VKAppMovedHandler> startMoveObservation(
      MovedProgram program);
  // With another measure of time.
  [[nodiscard]] static std::unique_ptr<VKAppMovedHandler> startMoveObservation(
      MovedProgram program, std::unique_ptr<Countdown> countdown);

  // For a user who has kept a moved program and now wants what is held: tells once more, or
  // releases it where the bundle is back.
  void tellAgain();

 private:
  VKAppMovedHandler(MovedProgram program, std::unique_ptr<Countdown> countdown);

  void MoveCallbackFunction();
  void look();
  void tell();
  void restart();
  void stay();
  [[nodiscard]] bool isAtHome() const;
  // Where the bundle is now; null when nobody can tell.
  [[nodiscard]] QString bundlePath() const;

  MovedProgram m_program;
  std::unique_ptr<Countdown> m_countdown;
  QString m_home;    // where the bundle was at the start
  QString m_keptAt;  // where the user knows it to be
  Descriptor m_bundleFileDescriptor;
  std::optional<FileIdentity> m_identity;
  InotifyWatch m_inotify;
  FolderAnchor m_anchor;
  std::unique_ptr<QSocketNotifier> m_notifier;
  bool m_telling = false;  // the user has been told, and nothing is decided yet
};

}  // namespace ostrak
