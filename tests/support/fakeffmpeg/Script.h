#pragma once

#include <optional>
#include <string>
#include <vector>

struct Call;

// One line of a section.
struct Step {
  std::string verb;
  std::string value;  // what follows the verb, its escapes resolved
};

// What to do for the calls of one role whose input ends with `inputEnd`.
struct Section {
  std::string role;
  std::string inputEnd;
  std::vector<Step> steps;
};

// A scenario file, see README.md.
struct Script {
  std::string path;
  std::string folder;  // what names in the scenario are relative to
  std::vector<Section> sections;

  // The scenario of this process; nothing when there is none.
  static std::optional<Script> find(const char *program);
  [[nodiscard]] const Section *sectionFor(const Call &call) const;
  [[nodiscard]] std::string resolved(const std::string &name) const;
};

// The whole file; nothing when it cannot be read.
std::optional<std::string> readFile(const std::string &path);
