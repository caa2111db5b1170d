#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <functional>
#include <optional>

namespace ostrak {

// Operations on paths and file locations. None reports an error: a failure is nothing, false or 0.
// All are synchronous and may be called from any thread.

// A new, empty folder of the user's own inside the temporary folder, named like the program's
// identifier. The caller removes it.
[[nodiscard]] std::optional<QString> makeTempFolder();

// How long a file's name may be, in bytes of UTF-8.
constexpr qsizetype longestFileName = 255;
// As much of the beginning of a name as fits into so many bytes of UTF-8, no character cut in two.
[[nodiscard]] QString nameCutToBytes(QStringView name, qsizetype bytes);

// A path at which nothing exists: the path itself or, from 0 upwards, "movie-0.mp4". A path without
// an extension still gets the dot: "movie-0.". A symbolic link that leads nowhere counts as
// existing. Where the number would make the name longer than any may be, it takes the place of the
// last characters before the extension.
[[nodiscard]] QString uniqueFile(const QString &path);
[[nodiscard]] QUrl uniqueFile(const QUrl &location);
// The same with a further rule for what counts as taken, for instance names that others have
// claimed.
[[nodiscard]] QString uniqueFile(const QString &path,
                                 const std::function<bool(const QString &)> &isTaken);
// The same, for who knows that all lower numbers are taken: counts from `number` on, and leaves the
// number that it has used there.
[[nodiscard]] QString uniqueFile(const QString &path,
                                 const std::function<bool(const QString &)> &isTaken,
                                 quint64 &number);

[[nodiscard]] quint64 fileSize(const QString &path);
[[nodiscard]] quint64 fileSize(const QUrl &location);
[[nodiscard]] quint64 directorySize(const QString &path);
[[nodiscard]] quint64 directorySize(const QUrl &location);
[[nodiscard]] quint64 fileOrDirectorySize(const QUrl &location);
[[nodiscard]] bool fileExists(const QString &path);
[[nodiscard]] bool fileExists(const QUrl &location);
[[nodiscard]] bool fileIsDirectory(const QUrl &location);
// Whether a new file can be created at exactly this path: nothing may be there, and a test file is
// created exclusively, written and removed.
[[nodiscard]] bool isWriteablePath(const QString &path);
[[nodiscard]] bool isWriteablePath(const QUrl &location);
// The immutable attribute; false where it cannot be read.
[[nodiscard]] bool fileIsRestricted(const QString &path);
[[nodiscard]] bool fileIsRestricted(const QUrl &location);
// Alias files do not exist on this platform: always false, always nothing.
[[nodiscard]] bool fileIsAlias(const QString &path);
[[nodiscard]] bool fileIsAlias(const QUrl &location);
[[nodiscard]] std::optional<QString> fileAliasTarget(const QString &path);
[[nodiscard]] std::optional<QString> fileAliasTarget(const QUrl &location);
[[nodiscard]] QString stringByResolvingSymlinksInPathFixed(const QString &path);

[[nodiscard]] std::optional<QStringList> dirContents(const QString &path);
[[nodiscard]] std::optional<QList<QUrl>> dirContents(const QUrl &location);
[[nodiscard]] std::optional<QStringList> dirContentsRecursive(const QString &path);
[[nodiscard]] std::optional<QList<QUrl>> dirContentsRecursive(const QUrl &location);
[[nodiscard]] std::optional<QStringList> dirContentsAbsolute(const QString &path);
[[nodiscard]] std::optional<QStringList> dirContentsRecursiveAbsolute(const QString &path);

[[nodiscard]] std::optional<QByteArray> contents(const QString &path);
[[nodiscard]] std::optional<QByteArray> contents(const QUrl &location);
void setContents(const QString &path, const QByteArray &bytes);
void setContents(const QUrl &location, const QByteArray &bytes);

// Device and inode: which file a path leads to, following symbolic links. Two paths name the same
// file exactly when these are equal. Nothing when there is no file.
struct FileIdentity {
  quint64 device = 0;
  quint64 inode = 0;
  bool operator==(const FileIdentity &) const = default;
};
[[nodiscard]] std::optional<FileIdentity> fileIdentity(const QString &path);
// That of an open file; nothing for a negative descriptor.
[[nodiscard]] std::optional<FileIdentity> fileIdentity(int descriptor);
[[nodiscard]] size_t qHash(const FileIdentity &identity, size_t seed = 0);
[[nodiscard]] bool isSameFile(const QString &path, const QString &other);

}  // namespace ostrak
