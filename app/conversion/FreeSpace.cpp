#include "FreeSpace.h"

#include <QFileInfo>

#include "Text.h"
#include "Volumes.h"

namespace decant {
using namespace Qt::StringLiterals;

QString checkFreeSpace(const Volumes &volumes, const QString &destination, quint64 size,
                       quint64 freed) {
  const QString folder = QFileInfo(destination).path();
  const std::optional<quint64> free = volumes.freeSpace(folder);
  if (free && *free + freed < size) {
    return ostrak::localized(
        u"There is not enough free space on your target disk for conversion."_s);
  }
  const std::optional<quint64> maximum = volumes.maximumFileSize(folder);
  if (maximum && *maximum < size)
    return ostrak::localized(u"Your target disk doesn't support large files."_s);
  return {};
}

}  // namespace decant
