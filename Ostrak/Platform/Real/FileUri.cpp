#include "FileUri.h"

#include <QFile>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace ostrak {

QString fileUri(const QString &path) {
  // QUrl would take the beginning of "//folder/movie.mkv" for the name of a machine.
  return u"file://"_s + QString::fromLatin1(QFile::encodeName(path).toPercentEncoding("/"));
}

QString pathOfFileUri(const QString &uri) {
  const QUrl url(uri);
  const bool here = url.host().isEmpty() || url.host() == u"localhost"_s;
  if (!url.isLocalFile() || !here) return {};
  const QString path = url.path(QUrl::FullyDecoded);
  return path.startsWith(u'/') ? path : QString();
}

}  // namespace ostrak
