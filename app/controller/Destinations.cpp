#include "Destinations.h"

#include "Settings.h"
#include "SortedFiles.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// The folder as the system knows it and the last component, so that two paths to one file agree
// even before the file exists. A folder that is not there leaves the path as it is.
QString nameOf(const QString &path) {
  const qsizetype slash = path.lastIndexOf(u'/');
  const QString folder = slash > 0 ? path.left(slash) : QString(slash == 0 ? u"/"_s : u"."_s);
  const std::optional<ostrak::FileIdentity> identity = ostrak::fileIdentity(folder);
  if (!identity) return path;
  const QString name = QString::number(identity->device, 36) + u':' +
                       QString::number(identity->inode, 36) + u'/' + path.mid(slash + 1);
  return name;
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
  const QString name = withoutExtension(fileInfo.fileName) + u'.' + extension;
  return name;
}

QString pathNextToSource(const MKVFileInfo &fileInfo, const QString &extension) {
  const QString path = withoutExtension(fileInfo.fileURL.toLocalFile()) + u'.' + extension;
  return path;
}

qsizetype lastFolderHolding(const QString &target, const QStringList &folders) {
  for (qsizetype i = folders.size() - 1; i >= 0; --i) {
    if (target.startsWith(folders.at(i))) return i;
  }
  return -1;
}

void ClaimedNames::claim(const QString &destination, const QString &source) {
  release(destination);
  const Claim claim{nameOf(source), ostrak::fileIdentity(source)};
  m_claims.insert(nameOf(destination), claim);
  ++m_sourceNames[claim.sourceName];
  if (claim.source) ++m_sources[*claim.source];
}

void ClaimedNames::release(const QString &destination) {
  const auto found = m_claims.find(nameOf(destination));
  if (found == m_claims.end()) return;
  countDown(m_sourceNames, found->sourceName);
  if (found->source) countDown(m_sources, *found->source);
  m_claims.erase(found);
}

void ClaimedNames::move(const QString &destination, const QString &other) {
  const auto found = m_claims.find(nameOf(destination));
  if (found == m_claims.end()) return;
  const Claim claim = *found;
  m_claims.erase(found);
  m_claims.insert(nameOf(other), claim);
}

bool ClaimedNames::isClaimed(const QString &destination) const {
  return m_claims.contains(nameOf(destination));
}

bool ClaimedNames::isSource(const QString &path) const {
  return jobsOnSource(path) > 0;
}

int ClaimedNames::jobsOnSource(const QString &path) const {
  const std::optional<ostrak::FileIdentity> identity = ostrak::fileIdentity(path);
  const int byIdentity = identity ? m_sources.value(*identity) : 0;
  return byIdentity > 0 ? byIdentity : m_sourceNames.value(nameOf(path));
}

QString ClaimedNames::uniqueName(const QString &wanted) const {
  return ostrak::uniqueFile(wanted, [this](const QString &name) { return isClaimed(name); });
}

std::optional<QUrl> resolveDestination(const DestinationChoice &choice, const MKVFileInfo &fileInfo,
                                       const QStringList &openedFolders,
                                       const ClaimedNames &claimed) {
  const QString extension = outputExtension();
  if (choice.kind == DestinationChoice::Kind::Folder) {
    const QString inFolder = choice.folder + u'/' + outputName(fileInfo, extension);
    return QUrl::fromLocalFile(claimed.uniqueName(inFolder));
  }
  const QString target = pathNextToSource(fileInfo, extension);
  if (lastFolderHolding(target, openedFolders) < 0) return {};
  return QUrl::fromLocalFile(claimed.uniqueName(target));
}

}  // namespace decant
