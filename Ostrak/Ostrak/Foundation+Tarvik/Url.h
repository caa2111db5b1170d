#pragma once

#include <QString>
#include <QUrl>

namespace ostrak {

// Operations on addresses and file locations. Where there is none the result is an invalid QUrl, or
// a null text. Any thread.

// The text as an address; invalid when it is not written as one (blanks, for instance).
[[nodiscard]] QUrl URL(const QString &text);
// The location of a file, the one way to make it: two slashes at the beginning of a path name no
// host. A relative path is joined to the working folder; nothing is resolved or collapsed.
[[nodiscard]] QUrl fileURL(const QString &path);

// The file of that name in the bundle's resources; nothing when it is not there, when the name
// leads out of the resources, or before there is a `tk`.
[[nodiscard]] QUrl resourceURL(const QString &fileName);
[[nodiscard]] QString resourcePath(const QString &fileName);

struct UrlParts {
  QString scheme;
  QString host;
  QString path;  // begins with "/" where there is a host
  QString query;
  QString user;
  QString password;
  QString fragment;
  int port = -1;  // -1: the scheme's own
};
// An address from its parts, none of them encoded. A null part is left out. A "+" in the query
// means itself: it becomes "%2B", because many servers read "+" as a blank. Invalid when the parts
// make none.
[[nodiscard]] QUrl URLWithScheme(const UrlParts &parts);
// The same for an address that begins with "https".
[[nodiscard]] QUrl URLWithHost(const QString &host, const QString &path, const QString &query);

// The location with one more path component; one slash stands between.
[[nodiscard]] QUrl add(const QUrl &location, const QString &component);

// Opens the address with the user's default program, through `tk`. False when that is impossible.
bool open(const QUrl &address);

}  // namespace ostrak
