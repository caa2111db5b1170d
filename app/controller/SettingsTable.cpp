#include "SettingsTable.h"

#include <array>
#include <string_view>
#include <unordered_map>

namespace decant {

namespace {

constexpr Setting flag(const char *key, qint64 fallback) {
  return {key, SettingKind::Boolean, fallback, 0, 1, true};
}
constexpr Setting onlyRead(const char *key) {
  return {key, SettingKind::Boolean, 0, 0, 1, false};
}
constexpr Setting choice(const char *key, qint64 fallback, qint64 maximum) {
  return {key, SettingKind::Integer, fallback, 0, maximum, true};
}
// A choice whose entry 1 is not there any more, or never was.
constexpr Setting choiceWithout1(const char *key, qint64 fallback, qint64 maximum) {
  return {key, SettingKind::Integer, fallback, 0, maximum, true, false, 1};
}
constexpr Setting repairing(const char *key, qint64 maximum) {
  return {key, SettingKind::Integer, 0, 0, maximum, true, true};
}
constexpr Setting list(const char *key) {
  return {key, SettingKind::List, 0, 0, 0, true};
}

constexpr std::array<Setting, 35> table{{
    repairing("ConversionPreset", 2),
    flag("IncludeSurroundTrack", 0),
    flag("IncludeSurroundTrackTranscoded", 1),
    flag("WelcomeShown", 1),
    choice("DefaultExtension", 1, 1),
    choice("AACBitrate", 1, 3),
    choice("AC3StereoBitrate", 1, 3),
    choice("AC3SurroundBitrate", 1, 3),
    {"AudioVolume", SettingKind::Number, 100, 0, 1000, true},
    flag("AutoAdd", 0),
    flag("AutoClean", 0),
    flag("AutoRemove", 0),
    choice("AutoRemoveType", 0, 1),
    choice("Conversions", 0, noSettingLimit),
    flag("HasUpgradedFromPre13", 0),
    choiceWithout1("ExternalSubtitleEncoding", 0, 38),
    choiceWithout1("DefaultAudio", 0, 8),
    repairing("DefaultDestination", noSettingLimit),
    flag("FixSubtitleDuration", 1),
    list("DestinationBookmarks"),
    list("DestinationNames"),
    flag("DisableBuiltinSubtitles", 1),
    flag("QuitAfterConversion", 0),
    flag("DTSDownmix", 0),
    flag("AC3Downmix", 0),
    choice("CustomAC3Handling", 3, 3),
    choice("CustomAC351Handling", 3, 3),
    choice("CustomDTSHandling", 1, 3),
    choice("CustomDTS51Handling", 2, 3),
    choice("CustomVorbisHandling", 1, 3),
    choice("CustomMP3Handling", 1, 3),
    choice("CustomUnknownHandling", 1, 1),
    onlyRead("HEAACConvert"),
    onlyRead("ProduceStreamableFiles"),
    onlyRead("InsertJobsAtBottom"),
}};

}  // namespace

std::span<const Setting> settingsTable() {
  return table;
}

const Setting *findSetting(const QString &key) {
  for (const Setting &setting : table) {
    if (key == QLatin1StringView(setting.key)) return &setting;
  }
  return nullptr;
}

const QString &keyOf(const Setting &setting) {
  static const std::array<QString, table.size()> keys = [] {
    std::array<QString, table.size()> made;
    for (size_t i = 0; i < table.size(); ++i)
      made.at(i) = QString::fromLatin1(table.at(i).key);
    return made;
  }();
  return keys.at(static_cast<size_t>(&setting - table.data()));
}

const Setting &settingOf(const char *key) {
  static const std::unordered_map<std::string_view, const Setting *> rows = [] {
    std::unordered_map<std::string_view, const Setting *> made;
    for (const Setting &setting : table)
      made.emplace(setting.key, &setting);
    return made;
  }();
  const auto found = rows.find(key);
  if (found == rows.end()) qFatal("there is no setting named %s", key);
  return *found->second;
}

}  // namespace decant
