#pragma once

#include <QByteArray>
#include <QString>

// Files that a test writes or reads in one go.
namespace wholefile {

// Makes the file in a folder that is there, or replaces what is in it; false when that fails.
[[nodiscard]] bool write(const QString &path, const QByteArray &bytes = {});
// The same; the file's path, null when that fails.
[[nodiscard]] QString made(const QString &path, const QByteArray &bytes = {});
// Null when it cannot be read.
[[nodiscard]] QByteArray read(const QString &path);

}  // namespace wholefile
