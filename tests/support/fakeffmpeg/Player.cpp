#include "Player.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Report.h"

namespace {

constexpr unsigned long long smallDestination = 64;
volatile std::sig_atomic_t termStatus = 255;

void exitOnTerm(int) {
  ::_exit(termStatus);
}

void touch(const std::string &path, int flags, const std::string &bytes) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | flags, 0644);
  if (file < 0) return;
  writeAll(file, bytes);
  ::close(file);
}

bool touchesDestination(const Section &section) {
  for (const Step &step : section.steps) {
    if (step.verb == "destination" || step.verb == "no-destination") return true;
  }
  return false;
}

void flood(unsigned long long megabytes) {
  const std::string line = "[matroska,webm @ 0x55d0c0ffee00] Read error at pos. 4711 (0x1267)\n";
  std::string block;
  while (block.size() + line.size() <= 65536)
    block += line;
  for (unsigned long long left = megabytes * 1024 * 1024; left > 0;) {
    const auto size = left < block.size() ? static_cast<size_t>(left) : block.size();
    writeAll(STDERR_FILENO, block.substr(0, size));
    left -= size;
  }
}

}  // namespace

void writeAll(int file, const std::string &bytes) {
  size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    done += static_cast<size_t>(count);
  }
}

int Player::play() {
  const Section *section = m_script.sectionFor(m_call);
  if (!section) return playDefault();
  if (!m_call.destination.empty() && !touchesDestination(*section)) {
    if (const int status = writeDestination(smallDestination); status >= 0) return status;
  }
  for (const Step &step : section->steps) {
    if (const int status = perform(step); status >= 0) return status;
  }
  return m_call.role == "probe" ? 1 : 0;
}

int Player::perform(const Step &step) {
  if (step.verb == "stderr") {
    writeAll(STDERR_FILENO, withInput(step.value));
  } else if (step.verb == "stdout") {
    writeAll(STDOUT_FILENO, withInput(step.value));
  } else if (step.verb == "report") {
    writeAll(STDERR_FILENO, withInput(readFile(m_script.resolved(step.value)).value_or("")));
  } else if (step.verb == "default-report") {
    writeAll(STDERR_FILENO, withInput(defaultReport));
  } else if (step.verb == "flood") {
    flood(std::strtoull(step.value.c_str(), nullptr, 10));
  } else {
    return performOnFiles(step);
  }
  return -1;
}

int Player::performOnFiles(const Step &step) {
  if (step.verb == "progress") {
    touch(m_call.progressFile, O_APPEND, step.value);
  } else if (step.verb == "announce") {
    touch(m_script.resolved(step.value), 0, "");
  } else if (step.verb == "wait") {
    waitFor(m_script.resolved(step.value));
  } else if (step.verb == "destination") {
    return writeDestination(std::strtoull(step.value.c_str(), nullptr, 10));
  } else if (step.verb == "delete-destination") {
    ::unlink(m_call.destination.c_str());
  } else if (step.verb != "no-destination") {
    return performOnProcess(step);
  }
  return -1;
}

int Player::performOnProcess(const Step &step) {
  const int number = std::atoi(step.value.c_str());
  if (step.verb == "exit") return number;
  if (step.verb == "ignore-term") {
    std::signal(SIGTERM, SIG_IGN);
  } else if (step.verb == "exit-on-term") {
    termStatus = number;
    std::signal(SIGTERM, exitOnTerm);
  } else if (step.verb == "die") {
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    std::signal(number, SIG_DFL);
    std::raise(number);
  } else if (step.verb == "hang") {
    for (;;)
      ::pause();
  } else if (step.verb == "grandchild") {
    keepPipeOpenUntil(m_script.resolved(step.value));
  } else if (step.verb == "close-output") {
    ::close(STDOUT_FILENO);
    ::close(STDERR_FILENO);
  } else {
    std::fprintf(stderr, "fakeffmpeg: unknown step: %s\n", step.verb.c_str());
    return 70;
  }
  return -1;
}

// Returns when the file is there, or when its folder is gone, so that no stand-in outlives its
// test.
void Player::waitFor(const std::string &name) const {
  const int events = ::inotify_init1(IN_CLOEXEC);
  const std::string folder = name.substr(0, name.rfind('/') + 1);
  ::inotify_add_watch(events, folder.c_str(), IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF);
  char buffer[4096];
  while (::access(name.c_str(), F_OK) != 0 && ::access(folder.c_str(), F_OK) == 0) {
    if (::read(events, buffer, sizeof buffer) < 0 && errno != EINTR) break;
  }
  ::close(events);
}

void Player::keepPipeOpenUntil(const std::string &name) const {
  const pid_t grandchild = ::fork();
  if (grandchild != 0) return;
  waitFor(name);
  ::_exit(0);
}

int Player::writeDestination(unsigned long long size) const {
  const char *name = m_call.destination.c_str();
  const int file = ::open(name, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file < 0) {
    std::fprintf(stderr, "%s: %s\n", name, std::strerror(errno));
    return 1;
  }
  const std::string block(65536, 'm');
  for (unsigned long long left = size; left > 0;) {
    const auto part = left < block.size() ? static_cast<size_t>(left) : block.size();
    const ssize_t count = ::write(file, block.data(), part);
    if (count <= 0) {
      std::fprintf(stderr, "av_interleaved_write_frame(): %s\n", std::strerror(errno));
      ::close(file);
      return 1;
    }
    left -= static_cast<unsigned long long>(count);
  }
  ::close(file);
  return -1;
}

std::string Player::withInput(std::string text) const {
  const std::string mark = "@INPUT@";
  for (size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += m_call.input.size()) {
    text.replace(at, mark.size(), m_call.input);
  }
  return text;
}

int Player::playDefault() const {
  if (m_call.role == "other") {
    std::fprintf(stderr, "fakeffmpeg: neither a probe, nor a fix-up test, nor a conversion\n");
    return 1;
  }
  if (::access(m_call.input.c_str(), R_OK) != 0) {
    std::fprintf(stderr, "%s: %s\n", m_call.input.c_str(), std::strerror(errno));
    return 1;
  }
  if (m_call.role == "probe") {
    writeAll(STDERR_FILENO, withInput(defaultReport));
    return 1;
  }
  if (const int status = writeDestination(smallDestination); status >= 0) return status;
  if (m_call.role == "conversion") touch(m_call.progressFile, O_APPEND, defaultProgress);
  return 0;
}
