#include "Call.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

std::string valueAfter(const std::vector<std::string> &arguments, const char *option) {
  const auto found = std::find(arguments.begin(), arguments.end(), option);
  if (found == arguments.end() || found + 1 == arguments.end()) return {};
  return *(found + 1);
}

std::string quoted(const std::string &text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char escape[7];
      std::snprintf(escape, sizeof escape, "\\u%04x", c);
      json += escape;
    } else {
      json += c;
    }
  }
  return json + '"';
}

std::string list(const std::vector<std::string> &items) {
  std::string json = "[";
  for (const std::string &item : items) {
    if (json.size() > 1) json += ',';
    json += item;
  }
  return json + ']';
}

std::vector<std::string> openDescriptors() {
  std::vector<std::string> numbers;
  DIR *folder = ::opendir("/proc/self/fd");
  if (!folder) return numbers;
  const std::string own = std::to_string(::dirfd(folder));
  while (const dirent *entry = ::readdir(folder)) {
    if (entry->d_name[0] != '.' && own != entry->d_name) numbers.emplace_back(entry->d_name);
  }
  ::closedir(folder);
  return numbers;
}

}  // namespace

Call Call::of(int argc, char **argv) {
  Call call;
  call.arguments.assign(argv + std::min(argc, 1), argv + argc);
  call.input = valueAfter(call.arguments, "-i");
  call.progressFile = valueAfter(call.arguments, "-progress");
  if (!call.progressFile.empty()) {
    call.role = "conversion";
  } else if (valueAfter(call.arguments, "-t") == "1") {
    call.role = "fixup";
  } else if (call.arguments.size() == 2 && !call.input.empty()) {
    call.role = "probe";
  } else {
    call.role = "other";
  }
  if (call.role == "conversion" || call.role == "fixup") call.destination = call.arguments.back();
  return call;
}

std::string Call::asJson() const {
  std::vector<std::string> words;
  for (const std::string &argument : arguments)
    words.push_back(quoted(argument));
  std::vector<std::string> variables;
  for (const char *name : {"FFREPORT", "AV_LOG_FORCE_COLOR"}) {
    if (std::getenv(name)) variables.push_back(quoted(name));
  }
  return "{\"role\":" + quoted(role) + ",\"arguments\":" + list(words) +
         ",\"pid\":" + std::to_string(::getpid()) + ",\"descriptors\":" + list(openDescriptors()) +
         ",\"variables\":" + list(variables) + "}";
}
