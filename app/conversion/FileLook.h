#pragma once

#include <QString>
#include <chrono>
#include <optional>

#include "File.h"

namespace decant {

// A file as it was at one moment: which one it is, how long, and when it was last written.
struct FileLook {
  ostrak::FileIdentity identity;
  qint64 size = 0;  // bytes
  std::chrono::nanoseconds modified{0};

  friend bool operator==(const FileLook &, const FileLook &) = default;
};

// How what is at `path` looks now; of a symbolic link the link itself. Nothing when there is
// nothing, or it cannot be asked about. Any thread.
[[nodiscard]] std::optional<FileLook> lookAtFile(const QString &path);

}  // namespace decant
