#pragma once

#include <QObject>
#include <QStringList>

class QComboBox;

namespace decant {

class DestinationFolders;

// Fills one of the two destination menus and tells what the user picks. The command to add a folder
// never stays selected, and what is selected stays so when folders come and go. The command is
// taken from the opened menu only: keys and wheel that step through the closed one pass it by. Main
// thread.
class DestinationPopUp final : public QObject {
  Q_OBJECT

 public:
  DestinationPopUp(QComboBox &menu, DestinationFolders &folders, QObject *parent);
  ~DestinationPopUp() override;

  // Fills the menu anew and selects "DefaultDestination".
  void rebuild();
  // An entry that is no destination selects the first.
  void select(int index);

 Q_SIGNALS:
  // Another entry is selected, by the user or by this.
  void selected(int index);
  // The user picked an entry other than the command.
  void picked(int index);
  // The user picked the command.
  void addFolderWanted();

 protected:
  bool eventFilter(QObject *watched, QEvent *event) override;

 private:
  void activated(int index);
  void fill(int index);

  QComboBox &m_menu;
  DestinationFolders &m_folders;
  QStringList m_paths;  // of the folders; kept, since every new file fills the menu
  int m_selected = 0;
  bool m_stepping = false;  // through the closed menu
};

}  // namespace decant
