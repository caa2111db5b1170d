#include "WholeFile.h"

#include <QFile>

namespace wholefile {

bool write(const QString &path, const QByteArray &bytes) {
  QFile file(path);
  return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

QString made(const QString &path, const QByteArray &bytes) {
  return write(path, bytes) ? path : QString();
}

QByteArray read(const QString &path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace wholefile
