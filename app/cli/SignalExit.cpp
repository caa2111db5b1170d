#include "SignalExit.h"

#include <unistd.h>

#include "ExitCode.h"

namespace decant {

namespace {

constexpr std::array<int, 4> ending{SIGINT, SIGTERM, SIGHUP, SIGQUIT};

extern "C" void endAtOnce(int signal) {
  ::_exit(statusOfSignal(signal));
}

}  // namespace

SignalExit::SignalExit() {
  struct sigaction action {};
  action.sa_handler = endAtOnce;
  for (size_t i = 0; i < ending.size(); ++i) {
    ::sigaction(ending[i], nullptr, &m_before[i]);
    if (m_before[i].sa_handler != SIG_IGN) ::sigaction(ending[i], &action, nullptr);
  }
}

SignalExit::~SignalExit() {
  for (size_t i = 0; i < ending.size(); ++i)
    ::sigaction(ending[i], &m_before[i], nullptr);
}

}  // namespace decant
