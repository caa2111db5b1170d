#include "Json.h"

#include <QJsonDocument>
#include <algorithm>
#include <cmath>

#include "Data.h"
#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// What keeps the value from being JSON; null when nothing does.
QString obstacle(const QVariant &value) {
  switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::QString:
    case QMetaType::QStringList:
      return {};
    case QMetaType::Double:
    case QMetaType::Float:
      return std::isfinite(value.toDouble()) ? QString() : u"number is not finite"_s;
    case QMetaType::QVariantList:
      for (const QVariant &element : value.toList()) {
        if (const QString found = obstacle(element); !found.isNull()) return found;
      }
      return {};
    case QMetaType::QVariantMap:
      for (const QVariant &element : value.toMap()) {
        if (const QString found = obstacle(element); !found.isNull()) return found;
      }
      return {};
    default:
      return u"type "_s + QString::fromLatin1(value.typeName()) + u" has no JSON form"_s;
  }
}

QString compactText(const QJsonDocument &document) {
  return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

std::optional<QByteArray> written(const QJsonDocument &document, const QVariant &input) {
  const QString found = obstacle(input);
  if (found.isNull()) return document.toJson(QJsonDocument::Compact);
  tk_log_level(3, u"Error: JSON write fails! input %@ data %@ err %@"_s, compactText(document),
               QString(), found);
  return std::nullopt;
}

std::optional<QJsonDocument> parsed(const QByteArray &bytes) {
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
  if (error.error == QJsonParseError::NoError) return document;
  tk_log_level(3, u"Error: JSON read fails! input %@ dict %@ err %@"_s,
               string(bytes).value_or(QString()), QString(), error.errorString());
  return std::nullopt;
}

}  // namespace

std::optional<QByteArray> JSONData(const QVariantList &list) {
  return written(QJsonDocument(QJsonArray::fromVariantList(list)), list);
}

std::optional<QByteArray> JSONData(const QVariantMap &dictionary) {
  return written(QJsonDocument(QJsonObject::fromVariantMap(dictionary)), dictionary);
}

std::optional<QByteArray> JSONData(const QJsonArray &list) {
  return written(QJsonDocument(list), list.toVariantList());
}

std::optional<QByteArray> JSONData(const QJsonObject &dictionary) {
  return written(QJsonDocument(dictionary), dictionary.toVariantMap());
}

std::optional<QJsonValue> JSONObject(const QByteArray &bytes) {
  const auto document = parsed(bytes);
  if (!document) return std::nullopt;
  return document->isArray() ? QJsonValue(document->array()) : QJsonValue(document->object());
}

std::optional<QJsonArray> JSONArray(const QByteArray &bytes) {
  const auto document = parsed(bytes);
  if (!document) return std::nullopt;
  if (document->isArray()) return document->array();
  tk_log_level(3, u"Error: JSON read fails! input is class %@ instead of array"_s, u"dictionary"_s);
  return std::nullopt;
}

std::optional<QJsonObject> JSONDictionary(const QByteArray &bytes) {
  const auto document = parsed(bytes);
  if (!document) return std::nullopt;
  if (document->isObject()) return document->object();
  tk_log_level(3, u"Error: JSON read fails! input is class %@ instead of dictionary"_s, u"array"_s);
  return std::nullopt;
}

}  // namespace ostrak
