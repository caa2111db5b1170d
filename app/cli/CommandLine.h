#pragma once

#include <QByteArray>
#include <QList>

#include "CommandServices.h"
#include "ExitCode.h"
#include "Invocation.h"

namespace decant {

class TerminalPresenter;

// The program without its window: understands the arguments, sets up the library for the command
// and runs it. Needs an application object and may run its event loop. Main thread.
class CommandLine final {
 public:
  explicit CommandLine(CommandServices services) : m_services(std::move(services)) {}

  // `arguments` are those after the program's name, as the system hands them over. Returns the
  // status that the process ends with.
  [[nodiscard]] int run(const QList<QByteArray> &arguments);

 private:
  [[nodiscard]] int runCommand(const Invocation &invocation);
  [[nodiscard]] int runConvert(const Invocation &invocation, TerminalPresenter &presenter);
  [[nodiscard]] int runSettings(const Invocation &invocation);
  [[nodiscard]] int refuseUsage(Topic topic, const QString &problem);
  [[nodiscard]] int refuseWindow();
  [[nodiscard]] int tellVersion();
  void tellAboutStore();
  void tellAboutSettings();

  CommandServices m_services;
};

}  // namespace decant
