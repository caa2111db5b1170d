#include "FileLook.h"

#include <sys/stat.h>

#include "Descriptor.h"

namespace decant {

std::optional<FileLook> lookAtFile(const QString &path) {
  struct stat info {};
  if (::lstat(ostrak::nativePath(path).constData(), &info) != 0) return {};
  return FileLook{
      {info.st_dev, info.st_ino},
      info.st_size,
      std::chrono::seconds(info.st_mtim.tv_sec) + std::chrono::nanoseconds(info.st_mtim.tv_nsec)};
}

}  // namespace decant
