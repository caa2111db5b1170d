#pragma once

#include "Volumes.h"

// Asks the system. Any thread.
class RealVolumes final : public Volumes {
 public:
  [[nodiscard]] std::optional<quint64> freeSpace(const QString &folder) const override;
  [[nodiscard]] std::optional<quint64> maximumFileSize(const QString &folder) const override;
};

// The largest file in bytes on a file system of this type (statfs f_type) for a process with this
// limit on file sizes (RLIMIT_FSIZE); nothing when neither sets a bound.
[[nodiscard]] std::optional<quint64> maximumFileSizeOf(quint64 fileSystemType,
                                                       quint64 processLimit);
