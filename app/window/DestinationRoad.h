#pragma once

#include <QObject>
#include <QUrl>
#include <functional>
#include <optional>

#include "MKVFileInfo.h"
#include "Panels.h"

namespace decant {

class ClaimedNames;
class DestinationFolders;

// Leads from an entry of the destination menu to the file that a record is converted to, asking the
// person where the entry says so. Main thread.
class DestinationRoad final : public QObject {
  Q_OBJECT

 public:
  struct Resolved {
    QUrl destination;
    QUrl securityURL;       // the folder whose access was started for the job; empty when none was
    bool replaces = false;  // the person has agreed to replace what was there
  };
  // Nothing when the person cancelled, or was told why it cannot be.
  using Answer = std::function<void(const std::optional<Resolved> &)>;

  DestinationRoad(DestinationFolders &folders, Panels &panels, const ClaimedNames &claimed,
                  QObject *parent = nullptr);
  ~DestinationRoad() override;

  // Calls `answer` once, at once or when the person has answered; never for the separators. Throws
  // ostrak::Exception when the folder at `menuIndex` is gone or not granted.
  void resolve(qsizetype menuIndex, const MKVFileInfo &fileInfo, const Answer &answer);
  // Asks for a folder and remembers it.
  void chooseNewDestination(Panels::Over over);

 Q_SIGNALS:
  // A folder was added from this window; it is the last one of the menu.
  void folderAdded(decant::Panels::Over over);
  // The folder was there already: both menus go back to their first entry.
  void duplicateRefused();

 private:
  void askEachTime(const MKVFileInfo &fileInfo, const Answer &answer);
  void nextToSource(const MKVFileInfo &fileInfo, bool mayAsk, const Answer &answer);
  void intoFolder(qsizetype folder, const MKVFileInfo &fileInfo, const Answer &answer);

  DestinationFolders &m_folders;
  Panels &m_panels;
  const ClaimedNames &m_claimed;
};

}  // namespace decant
