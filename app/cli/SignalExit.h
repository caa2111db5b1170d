#pragma once

#include <array>
#include <csignal>

namespace decant {

// While it lives, SIGINT, SIGTERM, SIGHUP and SIGQUIT end the process at once with 128 and their
// number: for commands that write nothing and have nothing to tidy up. A child ends with the
// program. A signal that the caller had switched off stays off.
class SignalExit final {
 public:
  SignalExit();
  ~SignalExit();
  SignalExit(const SignalExit &) = delete;
  SignalExit &operator=(const SignalExit &) = delete;

 private:
  std::array<struct sigaction, 4> m_before{};
};

}  // namespace decant
