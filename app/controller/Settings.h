#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <span>

#include "ConversionSettings.h"

namespace decant {

// What a setting holds, and so what may be stored.
enum class SettingKind {
  Boolean,  // 0 or 1
  Integer,  // within minimum and maximum
  Number,   // floating point, within minimum and maximum
  List      // not set by text
};

// One row of the table of settings. Absent values read as `fallback`.
struct Setting {
  const char *key;
  SettingKind kind;
  qint64 fallback;
  qint64 minimum;
  qint64 maximum;
  bool registered;  // registered as a default; else only read, and absent means 0
  bool repairs =
      false;  // out-of-range values have a rule of their own and are not replaced on reading
  qint64 retired = -1;  // a value between minimum and maximum that names nothing; -1: there is none
};

// All settings, in their documented order: the 32 registered ones and the three that are only read.
[[nodiscard]] std::span<const Setting> settingsTable();
// Null when there is no setting of that name.
[[nodiscard]] const Setting *findSetting(const QString &key);
// What a setting takes, in words: "0 or 1", "0 to 3", "0 or 2 to 8". A destination depends on the
// folders in the store of `tk`.
[[nodiscard]] QString allowedValues(const Setting &setting);

// What can be said against a text as the value of a setting; null when it is fine.
[[nodiscard]] QString refusalOfValue(const Setting &setting, const QString &text);
// The text as the value that is stored; only after refusalOfValue had nothing to say.
[[nodiscard]] QVariant valueFromText(const Setting &setting, const QString &text);

// Registers every default with the store of `tk`. Doing it again changes nothing.
void registerSettings();

// Reads a setting of the store of `tk`. A stored value out of range reads as the default and is
// logged once per process. Any thread.
[[nodiscard]] qint64 settingInt(const char *key);
[[nodiscard]] bool settingBool(const char *key);
[[nodiscard]] float settingFloat(const char *key);
[[nodiscard]] double settingDouble(const char *key);

// One sentence for each stored value that is out of range and so is read as its default; one that
// this run overrides is not read at all.
[[nodiscard]] QStringList storedValueComplaints();

[[nodiscard]] ConversionSettings readConversionSettings();
[[nodiscard]] CompletionSettings readCompletionSettings();

}  // namespace decant
