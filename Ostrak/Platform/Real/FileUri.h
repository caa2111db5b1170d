#pragma once

#include <QString>

// Paths as the desktop's services write them.

namespace ostrak {

// "file://" and the path; every byte is percent-encoded that could have a meaning of its own.
[[nodiscard]] QString fileUri(const QString &path);

// Null when the address names no file of this machine.
[[nodiscard]] QString pathOfFileUri(const QString &uri);

}  // namespace ostrak
