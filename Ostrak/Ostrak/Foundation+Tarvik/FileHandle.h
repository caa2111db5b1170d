#pragma once

#include <QtGlobal>

class QIODevice;

namespace ostrak {

// Reads 4 bytes of an open device as an unsigned number, the lowest byte first. Where fewer are
// left the missing ones count as 0. Waits for none: a pipe gives what has arrived.
[[nodiscard]] quint32 readInt(QIODevice &device);

}  // namespace ostrak
