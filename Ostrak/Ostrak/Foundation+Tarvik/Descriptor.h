#pragma once

#include <unistd.h>

#include <QByteArray>
#include <QString>
#include <utility>

namespace ostrak {

// Owns an open file descriptor; negative means none.
class Descriptor final {
 public:
  Descriptor() = default;
  explicit Descriptor(int descriptor) : m_descriptor(descriptor) {}
  ~Descriptor() {
    if (m_descriptor >= 0) ::close(m_descriptor);
  }
  Descriptor(Descriptor &&other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  Descriptor &operator=(Descriptor &&other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
  }
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;

  [[nodiscard]] explicit operator bool() const { return m_descriptor >= 0; }
  [[nodiscard]] int get() const { return m_descriptor; }
  // Gives the descriptor away; the caller closes it.
  [[nodiscard]] int release() { return std::exchange(m_descriptor, -1); }

 private:
  int m_descriptor = -1;
};

// A path as the bytes that system calls take; empty, which names nothing, where it holds a NUL.
[[nodiscard]] QByteArray nativePath(const QString &path);

}  // namespace ostrak
