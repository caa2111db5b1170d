#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

namespace decant {

enum class Command {
  Window,
  Probe,
  Convert,
  SettingsList,
  SettingsGet,
  SettingsSet,
  SettingsReset,
  Help,
  Version
};

// What a help text or a usage line is about.
enum class Topic { Program, Probe, Convert, Settings };

struct SettingChange {
  QString key;
  QString value;

  bool operator==(const SettingChange &) const = default;
};

// A command line, understood. File names stay bytes, as the system hands them over.
struct Invocation {
  Command command = Command::Window;
  Topic topic = Topic::Program;
  bool json = false;
  bool recursive = false;
  bool dryRun = false;
  bool all = false;  // of reset
  std::optional<QByteArray> outputFolder;
  std::optional<QByteArray> subtitle;
  std::optional<int> audioTrack;  // the stream index that is printed as "#N"
  QList<SettingChange> changes;   // of --set, in order
  QList<QByteArray> files;        // of probe, convert and the window
  QStringList words;              // of settings: KEY…, or KEY and VALUE

  // Whether the run may write the settings store.
  [[nodiscard]] bool storesSettings() const {
    return command == Command::SettingsSet || command == Command::SettingsReset ||
           (command == Command::Convert && !dryRun);
  }
};

}  // namespace decant
