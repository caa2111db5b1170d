#pragma once

#include <QDBusConnection>
#include <QObject>

#include "FileRevealer.h"

class UrlOpener;

// Reveals by org.freedesktop.FileManager1, and where no file manager offers that, opens the folder.
// Never waits. Main thread.
class RealFileRevealer final : public QObject, public FileRevealer {
  Q_OBJECT

 public:
  // `opener` opens folders; not owned.
  RealFileRevealer(const QDBusConnection &bus, UrlOpener &opener, QObject *parent = nullptr);
  ~RealFileRevealer() override;

  void reveal(const QString &path) override;

 private:
  void openFolder(const QString &path);

  QDBusConnection m_bus;
  UrlOpener &m_opener;
};
