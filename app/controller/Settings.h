#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include "ConversionSettings.h"
#include "SettingsTable.h"

namespace decant {

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
