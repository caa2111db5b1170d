#include "Script.h"

#include <fcntl.h>
#include <sys/auxv.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "Call.h"

namespace {

constexpr const char *fileName = "ffmpeg.scenario";

std::string unescaped(const std::string &text) {
  std::string bytes;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      bytes += text[i];
      continue;
    }
    const char code = text[++i];
    if (code == 'n') {
      bytes += '\n';
    } else if (code == 'r') {
      bytes += '\r';
    } else if (code == 't') {
      bytes += '\t';
    } else if (code == 'x' && i + 2 < text.size()) {
      bytes += static_cast<char>(std::strtol(text.substr(i + 1, 2).c_str(), nullptr, 16));
      i += 2;
    } else {
      bytes += code;
    }
  }
  return bytes;
}

bool isRole(const std::string &word) {
  return word == "probe" || word == "fixup" || word == "conversion" || word == "other" ||
         word == "any";
}

std::vector<Section> parsed(const std::string &text) {
  std::vector<Section> sections;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    const size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos || line[begin] == '#') continue;
    const size_t end = line.find(' ', begin);
    const std::string verb = line.substr(begin, end - begin);
    const std::string value = end == std::string::npos ? "" : unescaped(line.substr(end + 1));
    if (isRole(verb)) {
      sections.push_back({verb, value, {}});
    } else if (!sections.empty()) {
      sections.back().steps.push_back({verb, value});
    } else {
      std::fprintf(stderr, "fakeffmpeg: a step outside any section: %s\n", line.c_str());
      std::exit(70);
    }
  }
  return sections;
}

std::string folderOf(const std::string &path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash);
}

std::string scenarioPath(const char *program) {
  if (const char *named = std::getenv("FAKEFFMPEG_SCENARIO")) return named;
  const std::string called = program ? program : "";
  if (called.find('/') != std::string::npos) {
    const std::string beside = folderOf(called) + '/' + fileName;
    if (::access(beside.c_str(), R_OK) == 0) return beside;
  }
  // The path that was executed, for callers that give another first argument.
  const char *executed = reinterpret_cast<const char *>(::getauxval(AT_EXECFN));
  return executed ? folderOf(executed) + '/' + fileName : "";
}

}  // namespace

std::optional<std::string> readFile(const std::string &path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return {};
  std::string bytes;
  char buffer[65536];
  for (ssize_t count; (count = ::read(file, buffer, sizeof buffer)) > 0;) {
    bytes.append(buffer, static_cast<size_t>(count));
  }
  ::close(file);
  return bytes;
}

std::optional<Script> Script::find(const char *program) {
  Script script;
  script.path = scenarioPath(program);
  const std::optional<std::string> text = readFile(script.path);
  if (!text) return {};
  script.folder = folderOf(script.path);
  script.sections = parsed(*text);
  return script;
}

const Section *Script::sectionFor(const Call &call) const {
  for (const Section &section : sections) {
    const bool roleFits = section.role == "any" || section.role == call.role;
    if (roleFits && call.input.ends_with(section.inputEnd)) return &section;
  }
  return nullptr;
}

std::string Script::resolved(const std::string &name) const {
  return name.starts_with('/') ? name : folder + '/' + name;
}
