#include "Destinations.h"

#include <algorithm>

#include "Settings.h"
#include "SortedFiles.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

QString folderOf(const QString &path) {
  const qsizetype slash = path.lastIndexOf(u'/');
  if (slash < 0) return u"."_s;
  return slash == 0 ? u"/"_s : path.left(slash);
}

// The folder as the system knows it and the last component, so that two paths to one file agree
// even before the file exists. A folder that is not there leaves the path as it is.
QString nameIn(const std::optional<ostrak::FileIdentity> &folder, const QString &path) {
  if (!folder) return path;
  const QString name = QString::number(folder->device, 36) + u':' +
                       QString::number(folder->inode, 36) + u'/' +
                       QStringView(path).mid(path.lastIndexOf(u'/') + 1);
  return name;
}

QString nameOf(const QString &path) {
  return nameIn(ostrak::fileIdentity(folderOf(path)), path);
}

// The name that a numbered one was made of: "a.m4v" of "a-12.m4v".
QString withoutNumber(const QString &name) {
  const qsizetype dot = name.lastIndexOf(u'.');
  const qsizetype dash = name.lastIndexOf(u'-');
  if (dash <= name.lastIndexOf(u'/') || dot < dash) return {};
  const bool hasExtension = dot + 1 < name.size();
  return name.left(dash) + (hasExtension ? name.mid(dot) : QString());
}

// A short extension may become a longer one.
QString withExtension(const QString &stem, const QString &extension) {
  const qsizetype name = stem.lastIndexOf(u'/') + 1;
  const qsizetype room = ostrak::longestFileName - 1 - extension.toUtf8().size();
  const QString path =
      stem.left(name) + ostrak::nameCutToBytes(stem.mid(name), room) + u'.' + extension;
  return path;
}

template <typename Key>
void countDown(QHash<Key, int> &counts, const Key &key) {
  const auto found = counts.find(key);
  if (found != counts.end() && --*found <= 0) counts.erase(found);
}

}  // namespace

QString outputExtension() {
  return settingInt("DefaultExtension") != 0 ? u"m4v"_s : u"mp4"_s;
}

QString outputName(const MKVFileInfo &fileInfo, const QString &extension) {
  return withExtension(withoutExtension(fileInfo.fileName), extension);
}

QString pathNextToSource(const MKVFileInfo &fileInfo, const QString &extension) {
  return withExtension(withoutExtension(fileInfo.fileURL.toLocalFile()), extension);
}

qsizetype lastFolderHolding(const QString &target, const QStringList &folders) {
  for (qsizetype i = folders.size() - 1; i >= 0; --i) {
    if (target.startsWith(folders.at(i))) return i;
  }
  return -1;
}

ClaimedNames::Files ClaimedNames::look(const QString &destination, const QString &source,
                                       const QString &subtitle) {
  const QString folder = folderOf(destination);
  const QString sourceFolder = folderOf(source);
  const auto identity = ostrak::fileIdentity(folder);
  const auto sourceIdentity =
      sourceFolder == folder ? identity : ostrak::fileIdentity(sourceFolder);
  Files files{nameIn(identity, destination),
              nameIn(sourceIdentity, source),
              ostrak::fileIdentity(source),
              {},
              {}};
  if (!subtitle.isEmpty()) {
    files.subtitleName = nameOf(subtitle);
    files.subtitle = ostrak::fileIdentity(subtitle);
  }
  return files;
}

void ClaimedNames::claim(const QString &destination, const QString &source,
                         const QString &subtitle) {
  claim(look(destination, source, subtitle));
}

void ClaimedNames::claim(const Files &files) {
  const auto before = m_claims.find(files.destinationName);
  if (before != m_claims.end()) release(before);
  m_claims.insert(files.destinationName,
                  {files.sourceName, files.source, files.subtitleName, files.subtitle});
  protect(files.sourceName, files.source);
  if (!files.subtitleName.isEmpty()) protect(files.subtitleName, files.subtitle);
}

void ClaimedNames::protect(const QString &name, const std::optional<ostrak::FileIdentity> &file) {
  ++m_sourceNames[name];
  if (file) ++m_sources[*file];
}

void ClaimedNames::unprotect(const QString &name, const std::optional<ostrak::FileIdentity> &file) {
  countDown(m_sourceNames, name);
  if (file) countDown(m_sources, *file);
}

void ClaimedNames::release(const QString &destination) {
  const auto found = m_claims.find(nameOf(destination));
  if (found != m_claims.end()) release(found);
}

void ClaimedNames::release(Claims::iterator claim) {
  unprotect(claim->sourceName, claim->source);
  if (!claim->subtitleName.isEmpty()) unprotect(claim->subtitleName, claim->subtitle);
  countAnew(claim.key());
  m_claims.erase(claim);
}

// A name that is given up may be the first free one again.
void ClaimedNames::countAnew(const QString &name) {
  if (m_nextNumbers.isEmpty()) return;
  m_nextNumbers.remove(name);
  m_nextNumbers.remove(withoutNumber(name));
}

void ClaimedNames::move(const QString &destination, const QString &other) {
  const auto found = m_claims.find(nameOf(destination));
  if (found == m_claims.end()) return;
  const Claim claim = *found;
  countAnew(found.key());
  m_claims.erase(found);
  m_claims.insert(nameOf(other), claim);
}

bool ClaimedNames::isClaimed(const QString &destination) const {
  return m_claims.contains(nameOf(destination));
}

bool ClaimedNames::isClaimed(const Files &files) const {
  return m_claims.contains(files.destinationName);
}

bool ClaimedNames::isSource(const QString &path) const {
  const std::optional<ostrak::FileIdentity> identity = ostrak::fileIdentity(path);
  return (identity && m_sources.contains(*identity)) || m_sourceNames.contains(nameOf(path)) ||
         isWaiting(path, identity);
}

bool ClaimedNames::isWaiting(const QString &path,
                             const std::optional<ostrak::FileIdentity> &identity) const {
  if (!m_waiting) return false;
  const Waiting waiting = m_waiting();
  if (path == waiting.current || waiting.files.contains(path)) return true;
  const auto isSame = [&identity](const QString &movie) {
    return ostrak::fileIdentity(movie) == identity;
  };
  return identity && (isSame(waiting.current) || std::ranges::any_of(waiting.files, isSame));
}

bool ClaimedNames::isSourceName(const Files &files) const {
  return files.destinationName == files.sourceName || files.destinationName == files.subtitleName ||
         m_sourceNames.contains(files.destinationName);
}

QString ClaimedNames::uniqueName(const QString &wanted) const {
  const auto folder = ostrak::fileIdentity(folderOf(wanted));
  const QString name = nameIn(folder, wanted);
  const auto known = m_nextNumbers.constFind(name);
  bool amongClaims = known != m_nextNumbers.cend();
  quint64 number = amongClaims ? *known : 0;
  const auto isTaken = [&](const QString &path) {
    const bool claimed = m_claims.contains(nameIn(folder, path));
    amongClaims = amongClaims || claimed;
    return claimed;
  };
  const QString unique = ostrak::uniqueFile(wanted, isTaken, number);
  // One that was cut for its number does not tell what it was made of when it is given up.
  if (amongClaims && withoutNumber(unique) == wanted) m_nextNumbers.insert(name, number);
  return unique;
}

std::optional<QUrl> resolveDestination(const DestinationChoice &choice, const MKVFileInfo &fileInfo,
                                       const QStringList &openedFolders,
                                       const ClaimedNames &claimed) {
  const QString extension = outputExtension();
  if (choice.kind == DestinationChoice::Kind::Folder) {
    const QString inFolder = choice.folder + u'/' + outputName(fileInfo, extension);
    return ostrak::fileURL(claimed.uniqueName(inFolder));
  }
  const QString target = pathNextToSource(fileInfo, extension);
  if (lastFolderHolding(target, openedFolders) < 0) return {};
  return ostrak::fileURL(claimed.uniqueName(target));
}

DestinationChooser fixedDestination(const DestinationChoice &choice) {
  return [choice](const MKVFileInfo &record, const ClaimedNames &claimed,
                  const DestinationAnswer &answer) {
    const std::optional<QUrl> url = resolveDestination(choice, record, {u"/"_s}, claimed);
    answer(url ? std::optional(Destination{*url, {}, false}) : std::nullopt);
  };
}

}  // namespace decant
