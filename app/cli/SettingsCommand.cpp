#include "SettingsCommand.h"

#include <QJsonArray>
#include <QLocale>
#include <algorithm>

#include "Defaults.h"
#include "ErrorLine.h"
#include "JsonLine.h"
#include "LaunchFixups.h"
#include "Ostrak.h"
#include "Printable.h"
#include "Settings.h"
#include "TextSink.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// Bytes, such as a folder's bookmark, as Base64.
QString textOfItem(const QVariant &item) {
  if (item.typeId() == QMetaType::QByteArray)
    return QString::fromLatin1(item.toByteArray().toBase64());
  return item.toString();
}

QStringList textsOfList(const Setting &setting) {
  QStringList texts;
  const QVariantList items = ostrak::defaultArray(keyOf(setting));
  for (const QVariant &item : items)
    texts.append(textOfItem(item));
  return texts;
}

QJsonValue jsonValue(const Setting &setting) {
  switch (setting.kind) {
    case SettingKind::List:
      return QJsonArray::fromStringList(textsOfList(setting));
    case SettingKind::Number:
      return settingDouble(setting.key);
    default:
      return settingInt(setting.key);
  }
}

QString bareValue(const Setting &setting) {
  switch (setting.kind) {
    case SettingKind::List:
      return textsOfList(setting).join(u'\n');
    case SettingKind::Number:
      return QString::number(settingDouble(setting.key), 'g', QLocale::FloatingPointShortest);
    default:
      return QString::number(settingInt(setting.key));
  }
}

QString unknownKey(const QString &key) {
  return worded(u"There is no setting '%@'; settings list names them all."_s, key);
}

QString listIsKept(const QString &key) {
  return worded(u"'%@' is a list of folders, which is not changed here."_s, key);
}

}  // namespace

QString problemOfChange(const SettingChange &change) {
  const Setting *setting = findSetting(change.key);
  if (!setting) return unknownKey(change.key);
  if (setting->kind == SettingKind::List) return listIsKept(change.key);
  return refusalOfValue(*setting, change.value);
}

QString problemOfSettingsWords(const Invocation &invocation) {
  if (invocation.command == Command::SettingsSet)
    return problemOfChange({invocation.words.at(0), invocation.words.at(1)});
  for (const QString &key : invocation.words) {
    const Setting *setting = findSetting(key);
    if (!setting) return unknownKey(key);
    if (invocation.command == Command::SettingsReset && setting->kind == SettingKind::List)
      return listIsKept(key);
  }
  return {};
}

ExitCode SettingsCommand::run(const Invocation &invocation) {
  switch (invocation.command) {
    case Command::SettingsList:
      list(invocation.json);
      break;
    case Command::SettingsGet:
      get(invocation.words.at(0));
      break;
    case Command::SettingsSet:
      return set(invocation.words.at(0), invocation.words.at(1));
    default:
      return reset(invocation.words);
  }
  return ExitCode::Done;
}

void SettingsCommand::list(bool json) {
  if (json) {
    QJsonObject values;
    for (const Setting &setting : settingsTable())
      values.insert(keyOf(setting), jsonValue(setting));
    m_output.write(jsonLine(values));
    return;
  }
  qsizetype width = 0;
  for (const Setting &setting : settingsTable())
    width = std::max(width, keyOf(setting).size());
  QString text;
  for (const Setting &setting : settingsTable()) {
    const QString value =
        printable(setting.kind == SettingKind::List ? textsOfList(setting).join(u", "_s)
                                                    : bareValue(setting));
    const QString key = value.isEmpty() ? keyOf(setting) : keyOf(setting).leftJustified(width + 2);
    text += key + value + u'\n';
  }
  m_output.write(text.toUtf8());
}

void SettingsCommand::get(const QString &key) {
  const QString line = bareValue(*findSetting(key)) + u'\n';
  m_output.write(line.toUtf8());
}

ExitCode SettingsCommand::set(const QString &key, const QString &text) {
  // Else the next launch would take the new index for one of an older version and move it.
  if (key == "DefaultDestination"_L1) migrateDestinationIndex();
  ostrak::tk->userDefaults().setValue(key, valueFromText(*findSetting(key), text));
  return flush({key});
}

ExitCode SettingsCommand::reset(const QStringList &keys) {
  QStringList chosen = keys;
  if (chosen.isEmpty()) {
    for (const Setting &setting : settingsTable()) {
      if (setting.kind != SettingKind::List) chosen.append(keyOf(setting));
    }
  }
  for (const QString &key : std::as_const(chosen))
    ostrak::tk->userDefaults().remove(key);
  return flush(chosen);
}

// The store reports no error: what another reader finds in the file tells whether it was written.
ExitCode SettingsCommand::flush(const QStringList &keys) {
  ostrak::UserDefaults &store = ostrak::tk->userDefaults();
  store.synchronize();
  const ostrak::UserDefaults written(store.path(), ostrak::UserDefaults::Persistence::InMemory);
  const bool reached = std::all_of(keys.cbegin(), keys.cend(), [&](const QString &key) {
    return written.storedValue(key).toString() == store.storedValue(key).toString();
  });
  if (reached) return ExitCode::Done;
  writeErrorLine(m_error, worded(u"The settings file '%@' can't be written."_s, store.path()));
  return ExitCode::Failed;
}

}  // namespace decant
