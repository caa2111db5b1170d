#include "RealFileRevealer.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFileInfo>
#include <QUrl>

#include "Logging.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

RealFileRevealer::RealFileRevealer(const QDBusConnection &bus, UrlOpener &opener, QObject *parent)
    : QObject(parent), m_bus(bus), m_opener(opener) {}

RealFileRevealer::~RealFileRevealer() = default;

void RealFileRevealer::reveal(const QString &path) {
  if (!m_bus.isConnected()) {
    openFolder(path);
    return;
  }
  QDBusMessage call = QDBusMessage::createMethodCall(
      u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
      u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
  call << QStringList{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)} << QString();
  auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this,
          [this, path](QDBusPendingCallWatcher *finished) {
            finished->deleteLater();
            if (finished->isError()) openFolder(path);
          });
}

void RealFileRevealer::openFolder(const QString &path) {
  const QString folder = QFileInfo(path).absolutePath();
  if (!m_opener.open(QUrl::fromLocalFile(folder))) {
    ostrak::tk_log_level(4, u"Warning: nothing could show the folder %@"_s, folder);
  }
}
