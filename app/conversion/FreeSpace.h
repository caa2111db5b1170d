#pragma once

#include <QString>

class Volumes;

namespace decant {

// Why the file system of the destination's folder cannot take an output as large as its source;
// null when it can, or when it does not tell. `size` is the source's, `freed` what a file that is
// to be replaced gives back, both in bytes.
[[nodiscard]] QString checkFreeSpace(const Volumes &volumes, const QString &destination,
                                     quint64 size, quint64 freed = 0);

}  // namespace decant
