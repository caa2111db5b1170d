#include "Settings.h"

#include <QMutex>
#include <QSet>
#include <cmath>
#include <limits>

#include "Defaults.h"
#include "DestinationMenu.h"
#include "Format.h"
#include "Logging.h"
#include "Ostrak.h"
#include "StoredValue.h"
#include "Text.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

using ostrak::localized;
using ostrak::makeString;
using ostrak::tk;

std::optional<double> numberOfText(const QString &text) {
  bool isNumber = false;
  const double number = text.toDouble(&isNumber);
  if (!isNumber || !std::isfinite(number)) return {};
  return number;
}

// A settings file holds texts, among them the words for a boolean.
std::optional<double> numberOf(const QVariant &value) {
  if (value.typeId() == QMetaType::LongLong) return static_cast<double>(value.toLongLong());
  if (value.typeId() == QMetaType::Bool) return value.toBool() ? 1 : 0;
  const QString text = value.toString();
  if (text == "true"_L1) return 1;
  if (text == "false"_L1) return 0;
  return numberOfText(text);
}

bool isAllowed(const Setting &setting, double number) {
  if (setting.kind == SettingKind::List) return false;
  if (setting.kind != SettingKind::Number && number != std::floor(number)) return false;
  if (setting.retired >= 0 && number == static_cast<double>(setting.retired)) return false;
  return number >= static_cast<double>(setting.minimum) &&
         number <= static_cast<double>(setting.maximum);
}

bool isDestination(const Setting &setting) {
  return keyOf(setting) == "DefaultDestination"_L1;
}

qsizetype storedFolders() {
  return ostrak::defaultArray(u"DestinationBookmarks"_s).size();
}

QString allowedDestinations() {
  const qsizetype folders = storedFolders();
  if (folders == 0) return makeString(localized(u"%lli or %lli"_s), qint64{0}, qint64{1});
  const qint64 first = menuIndexOfLastFolder(1);
  const qint64 last = menuIndexOfLastFolder(folders);
  if (last == first)
    return makeString(localized(u"%lli, %lli or %lli"_s), qint64{0}, qint64{1}, last);
  return makeString(localized(u"%lli, %lli or %lli to %lli"_s), qint64{0}, qint64{1}, first, last);
}

// Stored folders may have gone, which has a rule of its own; a new choice is one that there is.
bool isTakenNow(const Setting &setting, double number) {
  if (!isAllowed(setting, number)) return false;
  if (!isDestination(setting)) return true;
  return number < 2 || folderAtMenuIndex(static_cast<qsizetype>(number), storedFolders());
}

// A list, which has no text, as it stands in the file.
QString shown(const QVariant &stored) {
  const QString text = stored.toString();
  return text.isNull() ? ostrak::encodedForStore(stored) : text;
}

QString complaint(const Setting &setting, const QVariant &stored) {
  return makeString(
      localized(
          u"The stored value \"%@\" of \"%@\" is out of range (allowed: %@); %lli is used."_s),
      shown(stored), keyOf(setting), allowedValues(setting), setting.fallback);
}

void complainOnce(const Setting &setting, const QVariant &stored) {
  static QMutex mutex;
  static QSet<QString> told;
  {
    const QMutexLocker lock(&mutex);
    if (told.contains(keyOf(setting))) return;
    told.insert(keyOf(setting));
  }
  ostrak::tk_log_level(4, u"Warning: %@"_s, complaint(setting, stored));
}

// A value that is no number cannot follow a rule of its own either.
bool isUsable(const Setting &setting, const std::optional<double> &number) {
  if (!number) return false;
  if (!setting.repairs) return isAllowed(setting, *number);
  return *number == std::floor(*number) && std::abs(*number) <= static_cast<double>(noSettingLimit);
}

double readNumber(const char *key) {
  const Setting &setting = settingOf(key);
  const QVariant value = tk->userDefaults().value(keyOf(setting));
  const auto fallback = static_cast<double>(setting.fallback);
  if (!value.isValid()) return fallback;
  const std::optional<double> number = numberOf(value);
  if (isUsable(setting, number)) return *number;
  complainOnce(setting, value);
  return fallback;
}

int choiceOf(const char *key) {
  // A value with a rule of its own may be larger; it must not become another one.
  return static_cast<int>(qBound(qint64{std::numeric_limits<int>::min()}, settingInt(key),
                                 qint64{std::numeric_limits<int>::max()}));
}

}  // namespace

QString allowedValues(const Setting &setting) {
  if (setting.kind == SettingKind::Boolean) return localized(u"0 or 1"_s);
  if (setting.kind == SettingKind::List) return localized(u"nothing that can be set as text"_s);
  if (isDestination(setting)) return allowedDestinations();
  if (setting.maximum == noSettingLimit)
    return makeString(localized(u"a whole number from %lli"_s), setting.minimum);
  if (setting.kind == SettingKind::Number)
    return makeString(localized(u"a number from %lli to %lli"_s), setting.minimum, setting.maximum);
  if (setting.retired > setting.minimum)
    return makeString(localized(u"%lli or %lli to %lli"_s), setting.minimum, setting.retired + 1,
                      setting.maximum);
  if (setting.maximum == setting.minimum + 1)
    return makeString(localized(u"%lli or %lli"_s), setting.minimum, setting.maximum);
  return makeString(localized(u"%lli to %lli"_s), setting.minimum, setting.maximum);
}

QString refusalOfValue(const Setting &setting, const QString &text) {
  bool isWhole = false;
  text.toLongLong(&isWhole);
  const std::optional<double> number = numberOfText(text);
  if (number && (isWhole || setting.kind == SettingKind::Number) && isTakenNow(setting, *number))
    return {};
  return makeString(localized(u"\"%@\" is not a value of \"%@\" (allowed: %@)"_s), text,
                    QString::fromLatin1(setting.key), allowedValues(setting));
}

QVariant valueFromText(const Setting &setting, const QString &text) {
  bool isWhole = false;
  const qint64 whole = text.toLongLong(&isWhole);
  if (isWhole) return whole;
  return setting.kind == SettingKind::Number ? QVariant(text.toDouble()) : QVariant();
}

void registerSettings() {
  QVariantMap defaults;
  for (const Setting &setting : settingsTable()) {
    if (!setting.registered) continue;
    defaults.insert(keyOf(setting), setting.kind == SettingKind::List ? QVariant(QVariantList())
                                                                      : QVariant(setting.fallback));
  }
  tk->userDefaults().registerDefaults(defaults);
}

qint64 settingInt(const char *key) {
  return static_cast<qint64>(readNumber(key));
}
bool settingBool(const char *key) {
  return readNumber(key) != 0;
}
float settingFloat(const char *key) {
  return static_cast<float>(readNumber(key));
}
double settingDouble(const char *key) {
  return readNumber(key);
}

QStringList storedValueComplaints() {
  QStringList complaints;
  for (const Setting &setting : settingsTable()) {
    if (setting.kind == SettingKind::List || tk->userDefaults().isOverridden(keyOf(setting)))
      continue;
    const QVariant stored = tk->userDefaults().storedValue(keyOf(setting));
    if (stored.isValid() && !isUsable(setting, numberOf(stored)))
      complaints.append(complaint(setting, stored));
  }
  return complaints;
}

ConversionSettings readConversionSettings() {
  return {.ConversionPreset = choiceOf("ConversionPreset"),
          .AC3Downmix = settingBool("AC3Downmix"),
          .DTSDownmix = settingBool("DTSDownmix"),
          .CustomAC3Handling = choiceOf("CustomAC3Handling"),
          .CustomAC351Handling = choiceOf("CustomAC351Handling"),
          .CustomDTSHandling = choiceOf("CustomDTSHandling"),
          .CustomDTS51Handling = choiceOf("CustomDTS51Handling"),
          .CustomMP3Handling = choiceOf("CustomMP3Handling"),
          .CustomVorbisHandling = choiceOf("CustomVorbisHandling"),
          .CustomUnknownHandling = choiceOf("CustomUnknownHandling"),
          .AACBitrate = choiceOf("AACBitrate"),
          .AC3StereoBitrate = choiceOf("AC3StereoBitrate"),
          .AC3SurroundBitrate = choiceOf("AC3SurroundBitrate"),
          .AudioVolume = settingFloat("AudioVolume"),
          .IncludeSurroundTrack = settingBool("IncludeSurroundTrack"),
          .IncludeSurroundTrackTranscoded = settingBool("IncludeSurroundTrackTranscoded"),
          .DisableBuiltinSubtitles = settingBool("DisableBuiltinSubtitles"),
          .ExternalSubtitleEncoding = choiceOf("ExternalSubtitleEncoding"),
          .FixSubtitleDuration = settingBool("FixSubtitleDuration"),
          .ProduceStreamableFiles = settingBool("ProduceStreamableFiles")};
}

CompletionSettings readCompletionSettings() {
  return {.AutoClean = settingBool("AutoClean"),
          .AutoRemove = settingBool("AutoRemove"),
          .AutoRemoveType = choiceOf("AutoRemoveType"),
          .QuitAfterConversion = settingBool("QuitAfterConversion")};
}

}  // namespace decant
