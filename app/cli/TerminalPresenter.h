#pragma once

#include <functional>

#include "Alerts.h"

namespace decant {

class TextSink;

// What stands where the window's dialogs would: tells each alert in one line on standard error and
// goes on. It answers the default button, but declines every problem report (its last button),
// opens nothing, and never ticks "Don't warn again". Main thread.
class TerminalPresenter final : public ostrak::AlertPresenter {
 public:
  // Told of each alert first; true when it has been dealt with and is not printed.
  using Listener = std::function<bool(const ostrak::Alert &alert)>;

  explicit TerminalPresenter(TextSink &standardError) : m_error(standardError) {}
  void setListener(Listener listener) { m_listener = std::move(listener); }

  int present(ostrak::Alert &alert) override;

 private:
  TextSink &m_error;
  Listener m_listener;
};

// An alert as one line, without a line end; the program's name is left out as a title.
[[nodiscard]] QString alertLine(const ostrak::Alert &alert, const QString &appName);

}  // namespace decant
