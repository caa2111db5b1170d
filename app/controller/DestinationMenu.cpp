#include "DestinationMenu.h"

#include "Text.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

using Kind = DestinationMenuItem::Kind;
constexpr qsizetype firstFolder = 3;
constexpr qsizetype behindFolders = 2;  // a separator and the command

}  // namespace

QList<DestinationMenuItem> destinationMenu(const QStringList &folderNames) {
  QList<DestinationMenuItem> items{
      {Kind::AskEachTime, ostrak::localized(u"Ask Each Time"_s)},
      {Kind::NextToSource, ostrak::localized(u"Next to Source File"_s)},
      {Kind::Separator, {}}};
  for (const QString &name : folderNames)
    items.append({Kind::Folder, name});
  if (!folderNames.isEmpty()) items.append({Kind::Separator, {}});
  items.append({Kind::AddFolder, ostrak::localized(u"Add Folder…"_s)});
  return items;
}

std::optional<qsizetype> folderAtMenuIndex(qsizetype index, qsizetype folderCount) {
  const qsizetype folder = index - firstFolder;
  if (folder < 0 || folder >= folderCount) return {};
  return folder;
}

qsizetype menuIndexOfLastFolder(qsizetype folderCount) {
  const qsizetype items = firstFolder + folderCount + behindFolders;
  return items - 3;
}

qint64 defaultAfterRemoval(qint64 defaultIndex, qsizetype removed) {
  const qsizetype index = firstFolder + removed;
  if (defaultIndex == index) return 0;
  return defaultIndex > index ? defaultIndex - 1 : defaultIndex;
}

}  // namespace decant
