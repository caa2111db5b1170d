#pragma once

#include <QString>
#include <span>

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

// The largest whole number that every number on the way, floating point ones too, holds exactly;
// the maximum of a setting without one.
constexpr qint64 noSettingLimit = qint64{1} << 53;

// All settings, in their documented order: the 32 registered ones and the three that are only read.
[[nodiscard]] std::span<const Setting> settingsTable();
// Null when there is no setting of that name.
[[nodiscard]] const Setting *findSetting(const QString &key);
// The one of that name, which there must be.
[[nodiscard]] const Setting &settingOf(const char *key);
// The key of a setting of the table as a text, made once: a decision reads some twenty settings.
[[nodiscard]] const QString &keyOf(const Setting &setting);

}  // namespace decant
