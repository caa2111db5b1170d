#include "Url.h"

#include <QDir>
#include <QFileInfo>

#include "Ostrak.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

namespace ostrak {

QUrl URL(const QString &text) {
  return QUrl(text, QUrl::StrictMode);
}

QUrl fileURL(const QString &path) {
  if (path.isEmpty()) return {};
  if (!path.startsWith(u'/')) return fileURL(QDir(QDir::currentPath()).filePath(path));
  if (!path.startsWith("//"_L1)) return QUrl::fromLocalFile(path);
  // What follows two slashes would be read as the name of a host, unless an empty one goes before.
  QUrl location;
  location.setScheme(u"file"_s);
  location.setHost(u""_s);
  location.setPath(path, QUrl::DecodedMode);
  return location;
}

QUrl resourceURL(const QString &fileName) {
  const QString found = resourcePath(fileName);
  return found.isNull() ? QUrl() : fileURL(found);
}

QString resourcePath(const QString &fileName) {
  if (!tk || fileName.isEmpty() || fileName.startsWith(u'/') ||
      fileName.split(u'/').contains(u".."_s)) {
    return {};
  }
  const QString found = tk->resDir() + u'/' + fileName;
  return QFileInfo::exists(found) ? found : QString();
}

QUrl URLWithScheme(const UrlParts &parts) {
  // Stands for "+" until the query is encoded: the builder leaves a "+" alone and would encode the
  // percent sign of a "%2B" that is put in before.
  static const QString plusToken = u"q7Zx2PLUSk9Wv4Tb"_s;

  QUrl url;
  if (!parts.scheme.isNull()) url.setScheme(parts.scheme);
  if (!parts.host.isNull()) url.setHost(parts.host, QUrl::StrictMode);
  if (!parts.path.isNull()) url.setPath(parts.path, QUrl::DecodedMode);
  if (!parts.user.isNull()) url.setUserName(parts.user, QUrl::DecodedMode);
  if (!parts.password.isNull()) url.setPassword(parts.password, QUrl::DecodedMode);
  if (!parts.fragment.isNull()) url.setFragment(parts.fragment, QUrl::DecodedMode);
  if (parts.port >= 0) url.setPort(parts.port);
  // A part that is refused stays empty, and the next one that is set wipes the error away.
  if (parts.scheme.isEmpty() != url.scheme().isEmpty() ||
      parts.host.isEmpty() != url.host().isEmpty() ||
      (parts.port >= 0 && parts.port != url.port())) {
    return {};
  }
  if (!parts.query.isNull()) {
    QString query = parts.query;
    url.setQuery(query.replace(u'+', plusToken), QUrl::DecodedMode);
    QString encoded = url.query(QUrl::FullyEncoded);
    url.setQuery(encoded.replace(plusToken, u"%2B"_s), QUrl::StrictMode);
  }
  return url.isValid() ? url : QUrl();
}

QUrl URLWithHost(const QString &host, const QString &path, const QString &query) {
  UrlParts parts;
  parts.scheme = u"https"_s;
  parts.host = host;
  parts.path = path;
  parts.query = query;
  return URLWithScheme(parts);
}

QUrl add(const QUrl &location, const QString &component) {
  QString path = location.path(QUrl::FullyDecoded);
  qsizetype start = 0;
  while (start < component.size() && component.at(start) == u'/') {
    ++start;
  }
  if (!path.endsWith(u'/')) path.append(u'/');
  path.append(component.sliced(start));
  QUrl result = location;
  result.setPath(path, QUrl::DecodedMode);
  return result;
}

bool open(const QUrl &address) {
  return tk && tk->workspace() && address.isValid() && tk->workspace()->open(address);
}

}  // namespace ostrak
