#include "FileHandle.h"

#include <QIODevice>
#include <QtEndian>
#include <array>

namespace ostrak {

quint32 readInt(QIODevice &device) {
  std::array<char, sizeof(quint32)> bytes{};
  qsizetype have = 0;
  while (have < qsizetype{bytes.size()}) {
    const qint64 got = device.read(bytes.data() + have, qint64{bytes.size()} - have);
    if (got <= 0) break;
    have += got;
  }
  return qFromLittleEndian<quint32>(bytes.data());
}

}  // namespace ostrak
