#include "RealSandbox.h"

#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>

RealSandbox::RealSandbox(const QString &infoFile) : m_active(QFile::exists(infoFile)) {}

bool RealSandbox::startAccess(const QString &folder) {
  if (!m_active) return true;
  // Whether it can be written to is asked, and told, when a job starts.
  return QFileInfo(folder).isDir() &&
         ::faccessat(AT_FDCWD, QFile::encodeName(folder).constData(), X_OK, AT_EACCESS) == 0;
}
