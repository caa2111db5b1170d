#pragma once

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace decant {

class DestinationFolders;
class DestinationPopUp;
class SettingBinder;

// Every setting with its control; changes apply at once. Loaded from its form when it is first
// opened. Main thread.
class PreferencesWindow final : public QDialog {
  Q_OBJECT

 public:
  explicit PreferencesWindow(QWidget *parent = nullptr);
  ~PreferencesWindow() override;

  // Binds the loaded form; both outlive the window.
  void follow(SettingBinder &binder, DestinationFolders &folders);
  [[nodiscard]] DestinationPopUp &destinations() const { return *m_destinations; }

 Q_SIGNALS:
  void addFolderWanted();
  // The window closes: the settings are to be flushed.
  void closing();

 protected:
  void hideEvent(QHideEvent *event) override;

 private:
  void listFolders();

  DestinationFolders *m_folders = nullptr;
  DestinationPopUp *m_destinations = nullptr;
  QListWidget *m_list = nullptr;
  QLabel *m_emptyListText = nullptr;
  QPushButton *m_remove = nullptr;
};

}  // namespace decant
