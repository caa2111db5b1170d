#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <optional>

#include "Destination.h"
#include "File.h"
#include "MKVFileInfo.h"

namespace decant {

// Where the outputs of a run go that asks nobody.
struct DestinationChoice {
  enum class Kind { NextToSource, Folder };
  Kind kind = Kind::NextToSource;
  QString folder;  // absolute; of Kind::Folder
};

// "m4v" or "mp4", by the setting.
[[nodiscard]] QString outputExtension();
// Name of the output of a record: its file name without extension, cut where it would not fit into
// a file's name, and the extension.
[[nodiscard]] QString outputName(const MKVFileInfo &fileInfo, const QString &extension);
// The source's path with its extension replaced, its name cut likewise.
[[nodiscard]] QString pathNextToSource(const MKVFileInfo &fileInfo, const QString &extension);
// Index of the last folder whose path is a plain string prefix of `target`; -1 when none is.
[[nodiscard]] qsizetype lastFolderHolding(const QString &target, const QStringList &folders);

// Names that jobs will write and files that they will read, from the moment a job is queued until
// it leaves the queue, so that two jobs never share an output and none overwrites another's source.
// A name stands for the folder that holds it, whatever path leads there; a source, the subtitle
// file that is paired with a movie included, is known by its device and inode as they were when it
// was claimed, so that renaming it does not unprotect it, and by its name. All lookups are constant
// time, but for that of an existing file among those that wait.
class ClaimedNames final {
 public:
  // The files of a job as the system knows them at this moment. Looking is what costs; whoever asks
  // several things looks once.
  struct Files {
    QString destinationName;
    QString sourceName;
    std::optional<ostrak::FileIdentity> source;
    QString subtitleName;  // empty when no subtitle file is paired
    std::optional<ostrak::FileIdentity> subtitle;
  };
  [[nodiscard]] static Files look(const QString &destination, const QString &source,
                                  const QString &subtitle = {});

  void claim(const QString &destination, const QString &source, const QString &subtitle = {});
  void claim(const Files &files);
  void release(const QString &destination);
  // Movies that wait for their turn, and the one that has it, are sources, too; `waiting` tells
  // them when asked, which is often.
  struct Waiting {
    QStringList files;
    QString current;  // null when there is none
  };
  void protectWaiting(std::function<Waiting()> waiting) { m_waiting = std::move(waiting); }
  // The job that claimed `destination` will write to `other` instead.
  void move(const QString &destination, const QString &other);
  [[nodiscard]] bool isClaimed(const QString &destination) const;
  [[nodiscard]] bool isClaimed(const Files &files) const;
  // Whether the file at `path` is a source of a queued job, or will be one.
  [[nodiscard]] bool isSource(const QString &path) const;
  // Whether the job's destination has the name of a source of its own, or of a queued job's.
  [[nodiscard]] bool isSourceName(const Files &files) const;
  // `wanted`, or the first numbered name that neither exists nor is claimed. While such names are
  // claimed, numbers that were once found taken are not looked at again, so that many movies of one
  // name cost no more than others.
  [[nodiscard]] QString uniqueName(const QString &wanted) const;

 private:
  struct Claim {
    QString sourceName;
    std::optional<ostrak::FileIdentity> source;
    QString subtitleName;
    std::optional<ostrak::FileIdentity> subtitle;
  };
  using Claims = QHash<QString, Claim>;
  [[nodiscard]] bool isWaiting(const QString &path,
                               const std::optional<ostrak::FileIdentity> &identity) const;
  void release(Claims::iterator claim);
  void countAnew(const QString &name);
  void protect(const QString &name, const std::optional<ostrak::FileIdentity> &file);
  void unprotect(const QString &name, const std::optional<ostrak::FileIdentity> &file);

  Claims m_claims;  // by the destination's name
  // By a wanted name, while it or one of its numbers is claimed: all numbers below are taken.
  mutable QHash<QString, quint64> m_nextNumbers;
  QHash<QString, int> m_sourceNames;
  QHash<ostrak::FileIdentity, int> m_sources;
  std::function<Waiting()> m_waiting;
};

// The file that a record is converted to, made unique; nothing when the choice is next to the
// source and no folder of `openedFolders` holds that.
[[nodiscard]] std::optional<QUrl> resolveDestination(const DestinationChoice &choice,
                                                     const MKVFileInfo &fileInfo,
                                                     const QStringList &openedFolders,
                                                     const ClaimedNames &claimed);

// The same choice for every record, without a question; every folder may be used.
[[nodiscard]] DestinationChooser fixedDestination(const DestinationChoice &choice);

}  // namespace decant
