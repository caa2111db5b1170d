#include "TextSink.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace decant {

namespace {

constexpr int usualColumns = 80;

// Whether writing may be tried again after this error.
bool passes(int error, int descriptor) {
  if (error == EINTR) return true;
  if (error != EAGAIN) return false;
  pollfd ready{descriptor, POLLOUT, 0};
  return ::poll(&ready, 1, -1) >= 0 || errno == EINTR;
}

}  // namespace

DescriptorSink::DescriptorSink(int descriptor)
    : m_descriptor(descriptor), m_isTerminal(::isatty(descriptor) == 1) {}

void DescriptorSink::write(const QByteArray &utf8) {
  qsizetype done = 0;
  while (!m_closed && done < utf8.size()) {
    const ssize_t count =
        ::write(m_descriptor, utf8.constData() + done, static_cast<size_t>(utf8.size() - done));
    if (count >= 0) {
      done += count;
      continue;
    }
    const int error = errno;
    m_closed = !passes(error, m_descriptor);
    if (m_closed && error != EPIPE && error != EBADF)
      m_failure = QString::fromLocal8Bit(std::strerror(error));
  }
}

int DescriptorSink::columns() const {
  winsize size{};
  const bool known = ::ioctl(m_descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : usualColumns;
}

void secureStandardStreams() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // The lowest free number is taken, which is this one, since all below are open.
    if (::fcntl(descriptor, F_GETFD) < 0 && ::open("/dev/null", O_RDWR) < 0) ::_exit(1);
  }
  std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace decant
