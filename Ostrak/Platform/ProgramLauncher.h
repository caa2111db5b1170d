#pragma once

#include <QString>
#include <QStringList>

// Starts programs that live on without this one. Main thread.
class ProgramLauncher {
 public:
  virtual ~ProgramLauncher() = default;
  // Starts the executable at this absolute path, without arguments, in this process's environment.
  // False when it could not be started.
  [[nodiscard]] virtual bool launch(const QString &executable) = 0;
};

// Starts nothing.
class NullProgramLauncher final : public ProgramLauncher {
 public:
  [[nodiscard]] bool launch(const QString &) override { return false; }
};

// For tests.
class RecordingProgramLauncher final : public ProgramLauncher {
 public:
  [[nodiscard]] bool launch(const QString &executable) override {
    launched.append(executable);
    return succeeds;
  }
  QStringList launched;
  bool succeeds = true;
};
