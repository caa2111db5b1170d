#pragma once

#include <QDBusConnection>
#include <QObject>
#include <chrono>

#include "FileRevealer.h"

class UrlOpener;

// Reveals by org.freedesktop.FileManager1, and where no file manager offers that, opens the folder;
// also for a file that is not there any more. Never waits. Main thread.
class RealFileRevealer final : public QObject, public FileRevealer {
  Q_OBJECT

 public:
  // `opener` opens folders; not owned. A file manager that has not answered within `patience`
  // counts as none; it may have to be started first.
  RealFileRevealer(const QDBusConnection &bus, UrlOpener &opener,
                   std::chrono::milliseconds patience = std::chrono::seconds(10),
                   QObject *parent = nullptr);
  ~RealFileRevealer() override;

  void reveal(const QString &path) override;

 private:
  void withoutFileManager(const QString &path, const QString &why);
  void openFolder(const QString &path);

  QDBusConnection m_bus;
  UrlOpener &m_opener;
  std::chrono::milliseconds m_patience;
  bool m_complained = false;
};
