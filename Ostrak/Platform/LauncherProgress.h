#pragma once

#include <QList>
#include <optional>

// Progress and a number on the program's icon in the desktop's launcher.
class LauncherProgress {
 public:
  virtual ~LauncherProgress() = default;
  // `fraction` from 0 to 1; nothing hides the bar. `count` of 0 hides the number.
  virtual void show(std::optional<double> fraction, int count) = 0;
};

class NullLauncherProgress final : public LauncherProgress {
 public:
  void show(std::optional<double>, int) override {}
};

// For tests: remembers what was shown.
class RecordingLauncherProgress final : public LauncherProgress {
 public:
  struct Shown {
    std::optional<double> fraction;
    int count = 0;
    bool operator==(const Shown &) const = default;
  };
  void show(std::optional<double> fraction, int count) override { shown.append({fraction, count}); }
  QList<Shown> shown;
};
