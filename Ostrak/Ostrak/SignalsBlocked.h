#pragma once

#include <pthread.h>

#include <array>
#include <csignal>

namespace ostrak {

// Blocks the signals of the calling thread while it lives, all but those of a crash. A thread that
// is started meanwhile inherits that for good: signals come to the threads that were there before,
// and none of those goes on between the coming of a signal and its being noted by another.
class SignalsBlocked final {
 public:
  SignalsBlocked() {
    sigset_t blocked;
    sigfillset(&blocked);
    for (const int crash : std::array{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
      sigdelset(&blocked, crash);
    pthread_sigmask(SIG_SETMASK, &blocked, &m_before);
  }
  ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
  SignalsBlocked(const SignalsBlocked &) = delete;
  SignalsBlocked &operator=(const SignalsBlocked &) = delete;

 private:
  sigset_t m_before{};
};

}  // namespace ostrak
