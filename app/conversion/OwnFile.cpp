#include "OwnFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace decant {

OwnFile::Creation OwnFile::create(const QString &path, OwnFile &file) {
  file = OwnFile();
  file.m_path = path;
  const QByteArray name = ostrak::nativePath(path);
  int descriptor = -1;
  do {
    descriptor = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EINTR);
  ostrak::Descriptor made(descriptor);
  // Other errors say nothing about whether the name is taken.
  if (!made) return errno == EEXIST || lookAt(path) ? Creation::exists : Creation::impossible;
  file.m_look = lookAt(path);
  file.m_held = std::move(made);
  return Creation::created;
}

bool OwnFile::hold() const {
  if (!m_held || (::flock(m_held.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK))
    return false;
  return isThere();
}

bool OwnFile::isThere() const {
  const std::optional<Look> now = lookAt(m_path);
  if (!m_look || !now || now->identity != m_look->identity) return false;
  // Not held any more: the number of a deleted file is soon given to another one.
  return !m_sealed || (now->size == m_look->size && now->modified == m_look->modified);
}

void OwnFile::seal() {
  m_look = isThere() ? lookAt(m_path) : std::nullopt;
  m_sealed = true;
  m_held = ostrak::Descriptor();
}

void OwnFile::remove() const {
  if (isThere()) ::unlink(ostrak::nativePath(m_path).constData());
}

std::optional<OwnFile::Look> OwnFile::lookAt(const QString &path) {
  struct stat info;
  if (::lstat(ostrak::nativePath(path).constData(), &info) != 0) return {};
  return Look{
      {info.st_dev, info.st_ino},
      info.st_size,
      std::chrono::seconds(info.st_mtim.tv_sec) + std::chrono::nanoseconds(info.st_mtim.tv_nsec)};
}

}  // namespace decant
