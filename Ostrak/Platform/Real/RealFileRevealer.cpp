#include "RealFileRevealer.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "FileUri.h"
#include "Logging.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

RealFileRevealer::RealFileRevealer(const QDBusConnection &bus, UrlOpener &opener,
                                   std::chrono::milliseconds patience, QObject *parent)
    : QObject(parent), m_bus(bus), m_opener(opener), m_patience(patience) {}

RealFileRevealer::~RealFileRevealer() = default;

void RealFileRevealer::reveal(const QString &path) {
  if (!QFileInfo::exists(path)) {
    openFolder(path);
    return;
  }
  if (!m_bus.isConnected()) {
    withoutFileManager(path, u"there is no session bus"_s);
    return;
  }
  QDBusMessage call = QDBusMessage::createMethodCall(
      u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
      u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
  call << QStringList{ostrak::fileUri(path)} << QString();
  auto *watcher = new QDBusPendingCallWatcher(
      m_bus.asyncCall(call, static_cast<int>(m_patience.count())), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this, path](QDBusPendingCallWatcher *finished) {
            finished->deleteLater();
            if (finished->isError()) withoutFileManager(path, finished->error().message());
          });
}

void RealFileRevealer::withoutFileManager(const QString &path, const QString &why) {
  if (!std::exchange(m_complained, true)) {
    ostrak::tk_log_level(6, u"Info: no file manager selects files, so folders are opened: %@"_s,
                         why);
  }
  openFolder(path);
}

void RealFileRevealer::openFolder(const QString &path) {
  // The path's own words: behind a link, ".." leads elsewhere than a shortened path would.
  const QString folder = path.left(std::max<qsizetype>(path.lastIndexOf(u'/'), 1));
  if (!m_opener.open(QUrl(ostrak::fileUri(folder), QUrl::StrictMode))) {
    ostrak::tk_log_level(4, u"Warning: nothing could show the folder %@"_s, folder);
  }
}
