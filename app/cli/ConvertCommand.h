#pragma once

#include "CommandServices.h"
#include "ConvertInput.h"
#include "Destinations.h"
#include "Invocation.h"
#include "NullServices.h"

namespace decant {

class TerminalPresenter;

// Converts the movies among the files, or tells what would be done.
class ConvertCommand final {
 public:
  // Both outlive this.
  ConvertCommand(CommandServices &services, TerminalPresenter &presenter)
      : m_services(services), m_presenter(presenter) {}

  // What is wrong with the settings of --set; null when nothing is.
  [[nodiscard]] static QString problemOf(const Invocation &invocation);
  // Settings that this run has otherwise than they are stored; nothing is wrong with the changes.
  static void overrideSettings(const QList<SettingChange> &changes);
  // `input` has something to do and the settings are overridden. Returns the exit status.
  [[nodiscard]] int run(const Invocation &invocation, ConvertInput input);

 private:
  [[nodiscard]] int convert(const Invocation &invocation, ConvertInput input,
                            const DestinationChoice &destination);
  [[nodiscard]] int dryRun(const Invocation &invocation, ConvertInput input,
                           const DestinationChoice &destination);

  CommandServices &m_services;
  TerminalPresenter &m_presenter;
  NullServices m_desktop;
};

}  // namespace decant
