#pragma once

#include <QObject>

#include "Destination.h"
#include "FolderLook.h"
#include "Panels.h"

namespace decant {

class DestinationFolders;

// Leads from an entry of the destination menu to the file that a record is converted to, asking the
// person where the entry says so. A folder that takes its time is waited for patiently. Main
// thread.
class DestinationRoad final : public QObject {
  Q_OBJECT

 public:
  DestinationRoad(DestinationFolders &folders, Panels &panels, QObject *parent = nullptr);
  DestinationRoad(DestinationFolders &folders, Panels &panels, FolderLook look,
                  QObject *parent = nullptr);
  ~DestinationRoad() override;

  // The entry of the main window's menu that is chosen for the shown record.
  [[nodiscard]] qsizetype menuIndex() const { return m_menuIndex; }
  void setMenuIndex(qsizetype index) { m_menuIndex = index; }

  // A DestinationChooser by the chosen entry; a separator or a command chooses nothing. Throws
  // ostrak::Exception when the folder of the entry is gone or not granted; when that shows late, it
  // answers nothing and throws from the event loop.
  void choose(const MKVFileInfo &record, const ClaimedNames &claimed,
              const DestinationAnswer &answer);
  // Asks for a folder and remembers it.
  void chooseNewDestination(Panels::Over over);

 Q_SIGNALS:
  // A folder was added from this window; it is the last one of the menu.
  void folderAdded(decant::Panels::Over over);
  // The folder was there already: both menus go back to their first entry.
  void duplicateRefused();

 private:
  // What one choice is about. The claimed names are the controller's, which outlives all questions.
  struct Request {
    MKVFileInfo record;
    const ClaimedNames &claimed;
    DestinationAnswer answer;
  };
  // Whether `choose` has yet to return, so that who called it hears of exceptions.
  enum class Moment { Choice, Later };
  // Goes on with `then` when `look` has been done on a worker.
  void afterLook(const Request &request, Moment moment, std::function<void()> look,
                 std::function<void()> then);
  void askEachTime(const Request &request);
  void targetChosen(const Request &request, const QString &path);
  void checkTarget(const Request &request, const QString &path);
  void nextToSource(const Request &request);
  // Whether a folder was open that holds the target; the answer has been given then.
  bool intoOpenedFolder(const Request &request);
  void openFolderFor(const Request &request);
  void intoFolder(const Request &request, qsizetype folder);
  void intoResolvedFolder(const Request &request, const QString &folder);

  DestinationFolders &m_folders;
  Panels &m_panels;
  FolderLook m_look;
  qsizetype m_menuIndex = 0;
};

}  // namespace decant
