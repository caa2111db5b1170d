#pragma once

#include <string>
#include <vector>

// One call of the tool, as its command line tells it.
struct Call {
  std::vector<std::string> arguments;  // without the program's own name
  std::string role;                    // "probe", "fixup", "conversion" or "other"
  std::string input;                   // after the first "-i"
  std::string progressFile;            // after "-progress"
  std::string destination;             // the last argument of fixup and conversion

  static Call of(int argc, char **argv);
  // One JSON object: role, arguments, pid, the descriptors open at the start, and which of the
  // variables that no ffmpeg child may inherit are set.
  [[nodiscard]] std::string asJson() const;
};
