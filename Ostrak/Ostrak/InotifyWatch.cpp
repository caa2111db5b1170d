#include "InotifyWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace ostrak {

InotifyWatch::InotifyWatch() : m_descriptor(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {}

int InotifyWatch::add(const QByteArray &path, quint32 mask) const {
  const int watch = ::inotify_add_watch(m_descriptor.get(), path.constData(), mask | IN_ONLYDIR);
  return watch >= 0 ? watch : -errno;
}

int InotifyWatch::add(int folder, quint32 mask) const {
  return add("/proc/self/fd/" + QByteArray::number(folder), mask);
}

void InotifyWatch::remove(int watch) const {
  // One that went with its folder is gone already.
  (void)::inotify_rm_watch(m_descriptor.get(), watch);
}

void InotifyWatch::read(const std::function<void(const InotifyEvent &)> &tell) const {
  constexpr size_t size = 65536;
  alignas(inotify_event) std::array<char, size> buffer;
  for (;;) {
    const ssize_t count = ::read(m_descriptor.get(), buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    for (const char *at = buffer.data(); at < buffer.data() + count;) {
      inotify_event event{};
      std::memcpy(&event, at, sizeof event);
      // The kernel fills the name up with zeros.
      const char *name = at + sizeof event;
      tell({event.wd, event.mask,
            QByteArray::fromRawData(name, static_cast<qsizetype>(::strnlen(name, event.len)))});
      at += sizeof event + event.len;
    }
  }
}

}  // namespace ostrak
