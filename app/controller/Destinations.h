#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <optional>

#include "File.h"
#include "MKVFileInfo.h"

namespace decant {

// "m4v" or "mp4", by the setting.
[[nodiscard]] QString outputExtension();
// Name of the output of a record: its file name without extension, and the extension.
[[nodiscard]] QString outputName(const MKVFileInfo &fileInfo, const QString &extension);
// The source's path with its extension replaced.
[[nodiscard]] QString pathNextToSource(const MKVFileInfo &fileInfo, const QString &extension);
// Index of the last folder whose path is a plain string prefix of `target`; -1 when none is.
[[nodiscard]] qsizetype lastFolderHolding(const QString &target, const QStringList &folders);

// Names that jobs will write and files that they will read, from the moment a job is queued until it
// leaves the queue, so that two jobs never share an output and none overwrites another's source.
// All lookups are constant time.
class ClaimedNames final {
 public:
  void claim(const QString &destination, const QString &source);
  void release(const QString &destination, const QString &source);
  [[nodiscard]] bool isClaimed(const QString &destination) const;
  // Whether the file at `path` is a source of a queued job, compared by device and inode.
  [[nodiscard]] bool isSource(const QString &path) const;
  // How many jobs read the source at `path`.
  [[nodiscard]] int jobsOnSource(const QString &path) const;
  // `wanted`, or the first numbered name that neither exists nor is claimed.
  [[nodiscard]] QString uniqueName(const QString &wanted) const;

 private:
  QSet<QString> m_destinations;
  QHash<QString, ostrak::FileIdentity> m_identities;  // of sources, by path, as they were when claimed
  QHash<ostrak::FileIdentity, int> m_sources;
};

}  // namespace decant
