#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

namespace decant {

// What arrives at intake, sorted: movies in the given order, subtitle files by their cleaned path
// without extension; everything else.
struct SortedFiles {
  QStringList movies;
  // Cleaned path without extension → path as given; the last of one stem wins.
  QMap<QString, QString> subtitles;
  QStringList others;
  QStringList untested;  // ".sub" files, in the given order, while their content is not known
};

// Accepted movie extensions, lower case, in their documented order; subtitle extensions likewise.
[[nodiscard]] const QStringList &movieFileTypes();
[[nodiscard]] const QStringList &subtitleFileTypes();
// Sorts paths by their extension. Opens no file; ".sub" files go to `untested`.
[[nodiscard]] SortedFiles sortByName(const QStringList &paths);
// Whether the file holds subtitles as text, by its first bytes: an MPEG program stream is a picture
// subtitle. False also for what is not a readable file. May take long on a folder far away.
[[nodiscard]] bool isTextSubtitle(const QString &path);
// The subtitle file for a movie: the exact stem first, then "stem.", then any that begins with the
// stem, each by path. How the paths are written ("./", "x/../") makes no difference; links are not
// looked at. Null when there is none.
[[nodiscard]] QString pairedSubtitle(const QString &moviePath,
                                     const QMap<QString, QString> &subtitles);
// The key of a subtitle file: its path, cleaned, without its extension. However a path is written,
// its file is the same: "./" and "x/../" do not count.
[[nodiscard]] QString stemOf(const QString &path);
// A path without its extension; the dot of a hidden file does not begin one.
[[nodiscard]] QString withoutExtension(const QString &path);
// The extension, lower case; empty when there is none.
[[nodiscard]] QString lowerExtension(const QString &path);

}  // namespace decant
