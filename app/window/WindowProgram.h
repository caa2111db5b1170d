#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>

#include "AlertDialog.h"
#include "AppDelegate.h"
#include "AuxiliaryWindows.h"
#include "DestinationFolders.h"
#include "DestinationRoad.h"
#include "MainWindow.h"
#include "SettingBinder.h"
#include "VKAppMovedHandler.h"
#include "VKRatingWindowController.h"
#include "WindowPanels.h"
#include "WindowPatience.h"

class LauncherProgress;
class ProgramLauncher;
class SingleInstance;

namespace decant {

// The services of the desktop that the window needs besides those of the controller; all outlive
// the program.
struct DesktopServices {
  SingleInstance &singleInstance;
  LauncherProgress &launcher;
  ProgramLauncher &programs;
};

// The program with its window: makes the controller and the window, and connects them with the
// desktop. Main thread.
class WindowProgram final : public QObject {
  Q_OBJECT

 public:
  WindowProgram(AppServices app, const DesktopServices &desktop, QObject *parent = nullptr);
  ~WindowProgram() override;

  // Opens the window with these files. False when the window's form cannot be loaded.
  [[nodiscard]] bool open(const QStringList &paths);
  // Asks when a conversion runs; then ends the event loop. Returns whether it does.
  bool quit();
  // Without a question, for a signal.
  void quitAtOnce();
  // The desktop's session is about to end: keeps what is to be kept and asks when a conversion
  // runs. Returns whether it may end; `quit` then does not ask again for a while.
  [[nodiscard]] bool sessionMayEnd(const std::function<bool()> &mayAsk);

  [[nodiscard]] AppDelegate &app() { return m_app; }
  [[nodiscard]] AuxiliaryWindows &auxiliary() { return m_auxiliary; }
  [[nodiscard]] MainWindow *window() { return m_window.get(); }
  // Of the feedback window; null while it is closed.
  [[nodiscard]] ostrak::VKRatingWindowController *ratingWindowController() {
    return m_ratingWindowController.get();
  }

 private:
  void connectDesktop();
  void filesArrived(const QStringList &paths);
  void tellAboutStore();
  void showSpeedHint();
  void showFeedback(const QString &text);
  void feedbackClosed();
  void showLauncherProgress();
  void watchForMove();
  [[nodiscard]] bool mayQuit();
  void endSoon();
  void endWhenQuiet();

  DesktopServices m_desktop;
  ostrak::WindowAlertPresenter m_presenter;
  Notifier &m_notifier;
  FileRevealer &m_revealer;
  DestinationFolders m_folders;
  WindowPanels m_panels;
  WindowPatience m_patience;
  DestinationRoad m_road;
  std::function<void()> m_endLoop;
  AppDelegate m_app;
  SettingBinder m_binder;
  std::unique_ptr<MainWindow> m_window;
  AuxiliaryWindows m_auxiliary;
  std::unique_ptr<ostrak::VKRatingWindowController> m_ratingWindowController;
  std::unique_ptr<ostrak::VKAppMovedHandler> m_appMovedHandler;
  QTimer m_consent;  // runs while a consent to end holds
  bool m_quitting = false;
};

}  // namespace decant
