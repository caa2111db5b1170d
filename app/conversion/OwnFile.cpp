#include "OwnFile.h"

#include <fcntl.h>
#include <sys/file.h>
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
  if (!made) return errno == EEXIST || lookAtFile(path) ? Creation::exists : Creation::impossible;
  file.m_look = lookAtFile(path);
  file.m_held = std::move(made);
  return Creation::created;
}

bool OwnFile::hold() const {
  if (!m_held || (::flock(m_held.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK))
    return false;
  return isThere();
}

bool OwnFile::isThere() const {
  const std::optional<FileLook> now = lookAtFile(m_path);
  if (!m_look || !now || now->identity != m_look->identity) return false;
  // Not held any more: the number of a deleted file is soon given to another one.
  return !m_sealed || *now == *m_look;
}

void OwnFile::seal() {
  m_look = isThere() ? lookAtFile(m_path) : std::nullopt;
  m_sealed = true;
  m_held = ostrak::Descriptor();
}

void OwnFile::remove() const {
  if (isThere()) ::unlink(ostrak::nativePath(m_path).constData());
}

}  // namespace decant
