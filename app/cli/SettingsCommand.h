#pragma once

#include "ExitCode.h"
#include "Invocation.h"

namespace decant {

class TextSink;

// What is wrong with a change of a setting: no such key, a value out of range; null when nothing
// is.
[[nodiscard]] QString problemOfChange(const SettingChange &change);
// What is wrong with the words of a settings command.
[[nodiscard]] QString problemOfSettingsWords(const Invocation &invocation);

// list, get, set and reset, on the store of `tk`.
class SettingsCommand final {
 public:
  SettingsCommand(TextSink &output, TextSink &error) : m_output(output), m_error(error) {}
  // The words have no problem.
  [[nodiscard]] ExitCode run(const Invocation &invocation);

 private:
  void list(bool json);
  void get(const QString &key);
  [[nodiscard]] ExitCode set(const QString &key, const QString &text);
  [[nodiscard]] ExitCode reset(const QStringList &keys);
  [[nodiscard]] ExitCode flush(const QStringList &keys);

  TextSink &m_output;
  TextSink &m_error;
};

}  // namespace decant
