#pragma once

#include "TrashCan.h"

// The freedesktop Trash (version 1.0). Files only ever move within their volume:
// where that has no place for a Trash, the move fails and the file stays.
//
// QFile::moveToTrash of Qt 6.4 is not used: it spins for ever when the .trashinfo file cannot be
// created, and moves the file into ./files of the working folder when the Trash folder cannot.
class RealTrashCan final : public TrashCan {
 public:
  RealTrashCan();
  // With the home Trash in this data folder, usually $XDG_DATA_HOME.
  explicit RealTrashCan(QString dataFolder);
  [[nodiscard]] QString moveToTrash(const QString &path) override;

 private:
  QString m_dataFolder;
};
