#include "DestinationFolders.h"

#include <QDir>
#include <QFileInfo>

#include "Bookmark.h"
#include "Defaults.h"
#include "DestinationMenu.h"
#include "Destinations.h"
#include "Exceptions.h"
#include "Logging.h"
#include "Ostrak.h"
#include "Sandbox.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

const QString bookmarksKey = u"DestinationBookmarks"_s;
const QString namesKey = u"DestinationNames"_s;
const QString defaultKey = u"DefaultDestination"_s;

// The last component of the path; the root folder goes by its whole path.
QString nameOf(const QString &folder) {
  const QString path = QDir::cleanPath(folder);
  const QString name = QFileInfo(path).fileName();
  return name.isEmpty() ? path : name;
}

// Drops the entries for which `drop` holds from both lists.
template <typename Drop>
void dropEntries(Drop drop) {
  const QVariantList bookmarks = ostrak::defaultArray(bookmarksKey);
  const QVariantList names = ostrak::defaultArray(namesKey);
  QVariantList keptBookmarks;
  QVariantList keptNames;
  for (qsizetype i = 0; i < bookmarks.size(); ++i) {
    if (drop(i)) continue;
    keptBookmarks.append(bookmarks.at(i));
    keptNames.append(names.value(i));
  }
  ostrak::setDefaultArray(bookmarksKey, keptBookmarks);
  ostrak::setDefaultArray(namesKey, keptNames);
}

}  // namespace

DestinationFolders::DestinationFolders(Sandbox &sandbox, QObject *parent)
    : QObject(parent), m_sandbox(sandbox) {
  if (!sandbox.isActive()) m_opened.append({u"/"_s, false});
}

DestinationFolders::~DestinationFolders() = default;

void DestinationFolders::checkStored() {
  QList<qsizetype> invalid;
  const QVariantList bookmarks = ostrak::defaultArray(bookmarksKey);
  for (qsizetype i = 0; i < bookmarks.size(); ++i) {
    const std::optional<QString> folder = ostrak::folderOfBookmark(bookmarks.at(i).toByteArray());
    if (folder && m_sandbox.startAccess(*folder)) {
      m_sandbox.stopAccess(*folder);
      m_opened.append({*folder, true});
    } else {
      invalid.append(i);
    }
  }
  if (invalid.isEmpty()) return;
  ostrak::tk_log_level(3, u"Info: going to delete %lu invalid bookmarks"_s, invalid.size());
  dropEntries([&invalid](qsizetype i) { return invalid.contains(i); });
  Q_EMIT changed();
}

QStringList DestinationFolders::names() const {
  QStringList names;
  for (const QVariant &name : ostrak::defaultArray(namesKey))
    names.append(name.toString());
  return names;
}

QStringList DestinationFolders::paths() const {
  QStringList paths;
  for (const QVariant &bookmark : ostrak::defaultArray(bookmarksKey))
    paths.append(ostrak::folderOfBookmark(bookmark.toByteArray()).value_or(QString()));
  return paths;
}

QByteArray DestinationFolders::bookmarkAt(qsizetype index) {
  return ostrak::defaultArray(bookmarksKey).value(index).toByteArray();
}

qsizetype DestinationFolders::indexOf(const QByteArray &bookmark) {
  return ostrak::defaultArray(bookmarksKey).indexOf(bookmark);
}

void DestinationFolders::open(const QString &folder) {
  m_opened.append({folder, false});
}

DestinationFolders::Addition DestinationFolders::add(const QString &folder) {
  const std::optional<QByteArray> bookmark = ostrak::bookmarkOfFolder(folder);
  if (!bookmark) {
    const QString why = u"%1 is no folder that can be read"_s.arg(folder);
    ostrak::tk_log_level(3, u"Error creating bookmark: %@"_s, why);
    return Addition::failed;
  }
  QVariantList bookmarks = ostrak::defaultArray(bookmarksKey);
  if (bookmarks.contains(*bookmark)) {
    ostrak::setDefaultInt(defaultKey, 0);
    return Addition::alreadyThere;
  }
  bookmarks.append(*bookmark);
  QVariantList names = ostrak::defaultArray(namesKey);
  names.append(nameOf(folder));
  ostrak::setDefaultArray(bookmarksKey, bookmarks);
  ostrak::setDefaultArray(namesKey, names);
  ostrak::tk->userDefaults().synchronize();
  Q_EMIT changed();
  return Addition::added;
}

void DestinationFolders::removeAt(qsizetype index) {
  if (index < 0 || index >= names().size()) return;
  dropEntries([index](qsizetype i) { return i == index; });
  ostrak::setDefaultInt(defaultKey, defaultAfterRemoval(ostrak::defaultInt(defaultKey), index));
  Q_EMIT removed(index);
  Q_EMIT changed();
}

std::optional<DestinationFolders::Opened> DestinationFolders::openFor(const QString &target) {
  QStringList paths;
  for (const Opened &folder : std::as_const(m_opened))
    paths.append(folder.path);
  const qsizetype found = lastFolderHolding(target, paths);
  if (found < 0) return {};
  const Opened &folder = m_opened.at(found);
  if (folder.securityScoped && !m_sandbox.startAccess(folder.path)) return {};
  return folder;
}

QString DestinationFolders::use(qsizetype index, const std::optional<QString> &folder) {
  if (!folder) {
    throw ostrak::Exception(u"Bookmark Problem: URLByResolvingBookmarkData"_s,
                            u"the folder %1 is gone"_s.arg(names().value(index)));
  }
  if (!m_sandbox.startAccess(*folder)) {
    throw ostrak::Exception(u"Bookmark Problem: startAccessingSecurityScopedResource"_s, *folder);
  }
  return *folder;
}

}  // namespace decant
