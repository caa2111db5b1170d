#pragma once

#include <QMainWindow>
#include <memory>

class QAction;
class QStackedWidget;

namespace decant {

class AppDelegate;
class DestinationFolders;
class DestinationPopUp;
class DestinationRoad;
class DropMark;
class FilePanel;
class JobActions;
class JobListModel;
class JobListView;
class PreferencesWindow;
class SettingBinder;
class StylePanel;
class WindowPanels;

// What the main window shows and acts on; all outlive it.
struct WindowParts {
  AppDelegate &app;
  DestinationFolders &folders;
  DestinationRoad &road;
  WindowPanels &panels;
  SettingBinder &binder;
};

// The one window: outlets, menus, drags. What happens is the controller's; the window shows it.
// Main thread.
class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(QWidget *parent = nullptr);
  ~MainWindow() override;

  // The window of the form, connected; null when the form cannot be loaded.
  [[nodiscard]] static std::unique_ptr<MainWindow> load(const WindowParts &parts);

  void openPreferences();
  // Remembers place and size for the next start.
  void keepGeometry() const;
  // Brings the window to the front.
  void openMainWindow();
  // Queues the shown record by the destination menu.

 Q_SIGNALS:
  void quitWanted();
  // The documentation is wanted, on this tab; a negative one leaves the tab alone.
  void documentationWanted(int tab);
  void promotionWanted();

 protected:
  void closeEvent(QCloseEvent *event) override;
  void dragEnterEvent(QDragEnterEvent *event) override;
  void dragLeaveEvent(QDragLeaveEvent *event) override;
  void dropEvent(QDropEvent *event) override;
  void changeEvent(QEvent *event) override;

 private:
  void follow(const WindowParts &parts);
  void restorePlace();
  void connectMenus();
  void connectDestinations();
  void dressActions();
  void updatePauseTexts();
  void showEmptyOrList();
  void enlargeInvitation();
  void showDropPlace(bool shown);
  void addClicked();
  void take(const QStringList &paths);
  void tellAbout();
  void paste();
  [[nodiscard]] QAction &action(const QString &name);

  std::unique_ptr<WindowParts> m_parts;
  FilePanel *m_filePanel = nullptr;
  JobListView *m_jobList = nullptr;
  JobListModel *m_model = nullptr;
  JobActions *m_jobActions = nullptr;
  StylePanel *m_style = nullptr;
  DestinationPopUp *m_destinations = nullptr;
  QStackedWidget *m_jobArea = nullptr;
  DropMark *m_dropMark = nullptr;
  PreferencesWindow *m_preferences = nullptr;
};

}  // namespace decant
