#include "SignalWatcher.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

#include "Descriptor.h"

namespace decant {

namespace {

constexpr std::array<int, 4> watched{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

// What a signal handler may touch.
volatile std::sig_atomic_t firstSignal = 0;
volatile std::sig_atomic_t wakeDescriptor = -1;

extern "C" void noteSignal(int signal) {
  const int before = errno;
  if (firstSignal == 0) firstSignal = signal;
  const char byte = 0;
  // A full pipe has woken the loop already.
  [[maybe_unused]] const ssize_t written = ::write(wakeDescriptor, &byte, 1);
  errno = before;
}

}  // namespace

struct SignalWatcher::Handlers {
  ostrak::Descriptor readEnd;
  ostrak::Descriptor writeEnd;
  std::array<struct sigaction, watched.size()> before{};
};

SignalWatcher::SignalWatcher(QObject *parent)
    : QObject(parent), m_handlers(std::make_unique<Handlers>()) {
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  m_handlers->readEnd = ostrak::Descriptor(ends[0]);
  m_handlers->writeEnd = ostrak::Descriptor(ends[1]);
  firstSignal = 0;
  wakeDescriptor = ends[1];
  m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
  connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
    m_notifier->setEnabled(false);
    Q_EMIT interrupted(received());
  });
  struct sigaction action {};
  action.sa_handler = noteSignal;
  action.sa_flags = SA_RESTART;
  for (size_t i = 0; i < watched.size(); ++i) {
    ::sigaction(watched[i], nullptr, &m_handlers->before[i]);
    if (m_handlers->before[i].sa_handler != SIG_IGN) ::sigaction(watched[i], &action, nullptr);
  }
}

SignalWatcher::~SignalWatcher() {
  if (!m_notifier) return;
  for (size_t i = 0; i < watched.size(); ++i)
    ::sigaction(watched[i], &m_handlers->before[i], nullptr);
  wakeDescriptor = -1;
}

int SignalWatcher::received() {
  return firstSignal;
}

}  // namespace decant
