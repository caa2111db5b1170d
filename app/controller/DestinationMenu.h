#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace decant {

// The destination menu of the main window and of the preferences: two fixed entries, the folders
// between separators when there are any, and the command to add one. "DefaultDestination" is an
// index into it.
struct DestinationMenuItem {
  enum class Kind { AskEachTime, NextToSource, Separator, Folder, AddFolder };
  Kind kind = Kind::Separator;
  QString title;

  bool operator==(const DestinationMenuItem &) const = default;
};

[[nodiscard]] QList<DestinationMenuItem> destinationMenu(const QStringList &folderNames);

// The folder at a menu index: the index less the two fixed entries and the separator. Nothing for
// the fixed entries, the separators and the command.
[[nodiscard]] std::optional<qsizetype> folderAtMenuIndex(qsizetype index, qsizetype folderCount);
// The menu index of the folder that was added last.
[[nodiscard]] qsizetype menuIndexOfLastFolder(qsizetype folderCount);
// What "DefaultDestination" becomes when the folder at `removed` goes: above it falls by one,
// itself becomes 0.
[[nodiscard]] qint64 defaultAfterRemoval(qint64 defaultIndex, qsizetype removed);

}  // namespace decant
