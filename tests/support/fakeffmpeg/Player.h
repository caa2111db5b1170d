#pragma once

#include <string>

#include "Call.h"
#include "Script.h"

// Plays one call: the steps of its section, or what the tool does by itself.
class Player {
 public:
  Player(const Call &call, const Script &script) : m_call(call), m_script(script) {}
  // Returns the exit status.
  int play();

 private:
  // The exit status when the step ends the call, else -1.
  int perform(const Step &step);
  int performOnFiles(const Step &step);
  int performOnProcess(const Step &step);
  void waitFor(const std::string &name) const;
  void keepPipeOpenUntil(const std::string &name) const;
  int writeDestination(unsigned long long size) const;
  [[nodiscard]] std::string withInput(std::string text) const;
  [[nodiscard]] int playDefault() const;

  const Call &m_call;
  const Script &m_script;
};

// Writes all of it, whatever size the pieces have that the pipe takes.
void writeAll(int file, const std::string &bytes);
