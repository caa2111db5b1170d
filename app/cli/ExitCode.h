#pragma once

namespace decant {

// What the process ends with; a signal adds its number to 128.
enum class ExitCode : int {
  Done = 0,    // all that was asked for
  Failed = 1,  // any file failed or was refused
  Usage = 2    // the command line itself is wrong, and nothing was done
};

[[nodiscard]] constexpr int statusOf(ExitCode code) {
  return static_cast<int>(code);
}
[[nodiscard]] constexpr int statusOfSignal(int signal) {
  return 128 + signal;
}

}  // namespace decant
