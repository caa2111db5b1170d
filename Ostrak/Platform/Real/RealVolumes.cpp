#include "RealVolumes.h"

#include <linux/magic.h>
#include <sys/resource.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>

#include <QFile>
#include <algorithm>

std::optional<quint64> RealVolumes::freeSpace(const QString &folder) const {
  struct statvfs volume;
  if (::statvfs(QFile::encodeName(folder).constData(), &volume) != 0) return {};
  return quint64{volume.f_bavail} * quint64{volume.f_frsize};
}

std::optional<quint64> RealVolumes::maximumFileSize(const QString &folder) const {
  rlimit limit{RLIM_INFINITY, RLIM_INFINITY};
  ::getrlimit(RLIMIT_FSIZE, &limit);
  struct statfs volume;
  const bool known = ::statfs(QFile::encodeName(folder).constData(), &volume) == 0;
  return maximumFileSizeOf(known ? static_cast<quint64>(volume.f_type) : 0, limit.rlim_cur);
}

std::optional<quint64> maximumFileSizeOf(quint64 fileSystemType, quint64 processLimit) {
  // FAT keeps sizes in 32 bits. Other systems report no bound that a movie could reach.
  constexpr quint64 fatLimit = 0xFFFF'FFFF;
  std::optional<quint64> bound;
  if (fileSystemType == MSDOS_SUPER_MAGIC) bound = fatLimit;
  if (processLimit != RLIM_INFINITY) bound = std::min(bound.value_or(processLimit), processLimit);
  return bound;
}
