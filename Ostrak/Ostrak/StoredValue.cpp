#include "StoredValue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <array>
#include <charconv>
#include <limits>

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

constexpr auto dataKey = "@data"_L1;
constexpr auto mapKey = "@map"_L1;

QJsonValue toJson(const QVariant &value);

QJsonObject mapToJson(const QVariantMap &map) {
  QJsonObject object;
  for (auto it = map.cbegin(); it != map.cend(); ++it)
    object.insert(it.key(), toJson(it.value()));
  const bool looksLikeOurs = object.size() == 1 && object.begin().key().startsWith(u'@');
  return looksLikeOurs ? QJsonObject{{mapKey, object}} : object;
}

QJsonArray listToJson(const QVariantList &list) {
  QJsonArray array;
  for (const QVariant &element : list)
    array.append(toJson(element));
  return array;
}

QJsonValue toJson(const QVariant &value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
      return value.toBool();
    case QMetaType::LongLong:
      return value.toLongLong();
    case QMetaType::Double:
      return value.toDouble();
    case QMetaType::QByteArray:
      return QJsonObject{{dataKey, QString::fromLatin1(value.toByteArray().toBase64())}};
    case QMetaType::QVariantList:
      return listToJson(value.toList());
    case QMetaType::QVariantMap:
      return mapToJson(value.toMap());
    case QMetaType::QString:
      return value.toString();
    default:
      return QJsonValue::Null;
  }
}

QVariant fromJson(const QJsonValue &value);

QVariant objectFromJson(const QJsonObject &object) {
  if (object.size() == 1 && object.contains(dataKey)) {
    return QByteArray::fromBase64(object.value(dataKey).toString().toLatin1());
  }
  if (object.size() == 1 && object.value(mapKey).isObject()) {
    const QJsonObject inner = object.value(mapKey).toObject();
    QVariantMap map;
    for (auto it = inner.begin(); it != inner.end(); ++it)
      map.insert(it.key(), fromJson(*it));
    return map;
  }
  QVariantMap map;
  for (auto it = object.begin(); it != object.end(); ++it)
    map.insert(it.key(), fromJson(*it));
  return map;
}

QVariant numberFromJson(const QJsonValue &value) {
  // QJsonValue keeps whole numbers as integers: two fall-backs that differ mean that it is none.
  const bool isInteger = value.toInteger(0) == value.toInteger(1);
  return isInteger ? QVariant(value.toInteger()) : QVariant(value.toDouble());
}

QVariant fromJson(const QJsonValue &value) {
  switch (value.type()) {
    case QJsonValue::Bool:
      return value.toBool();
    case QJsonValue::Double:
      return numberFromJson(value);
    case QJsonValue::String:
      return value.toString();
    case QJsonValue::Array: {
      QVariantList list;
      const QJsonArray array = value.toArray();
      for (const QJsonValueConstRef element : array)
        list.append(fromJson(element));
      return list;
    }
    case QJsonValue::Object:
      return objectFromJson(value.toObject());
    default:
      return {};
  }
}

double shortestDouble(float number) {
  std::array<char, 32> text{};
  const auto printed = std::to_chars(text.data(), text.data() + text.size(), number);
  return QByteArray(text.data(), printed.ptr - text.data()).toDouble();
}

// The one JSON value that `text` is; undefined when it is something else.
QJsonValue parsedJson(const QString &text) {
  const QString wrapped = u"["_s + text + u"]"_s;
  const QJsonArray array = QJsonDocument::fromJson(wrapped.toUtf8()).array();
  return array.size() == 1 ? array.first() : QJsonValue(QJsonValue::Undefined);
}

QString printedJson(const QJsonValue &value) {
  const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(array.sliced(1, array.size() - 2));
}

}  // namespace

QString encodedForStore(const QVariant &value) {
  if (value.typeId() != QMetaType::QString) return printedJson(toJson(value));
  const QString text = value.toString();
  return parsedJson(text).isUndefined() ? text : printedJson(text);
}

QVariant decodedFromStore(const QString &text) {
  const QJsonValue value = parsedJson(text);
  return value.isUndefined() ? QVariant(text) : fromJson(value);
}

QVariant normalizedForStore(const QVariant &value) {
  switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::QByteArray:
    case QMetaType::QString:
      return value;
    case QMetaType::Float:
      return shortestDouble(value.toFloat());
    case QMetaType::ULongLong:
    case QMetaType::ULong:
      if (value.toULongLong() > quint64{std::numeric_limits<qint64>::max()})
        return value.toDouble();
      return value.toLongLong();
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
      return value.toLongLong();
    case QMetaType::QUrl:
      return QString::fromLatin1(value.toUrl().toEncoded());
    case QMetaType::QStringList:
    case QMetaType::QByteArrayList:
    case QMetaType::QVariantList: {
      QVariantList list;
      const QVariantList given = value.toList();
      for (const QVariant &element : given)
        list.append(normalizedForStore(element));
      return list;
    }
    case QMetaType::QVariantHash:
    case QMetaType::QVariantMap: {
      QVariantMap map = value.toMap();
      for (QVariant &element : map)
        element = normalizedForStore(element);
      return map;
    }
    default:
      break;
  }
  return value.canConvert<QString>() ? QVariant(value.toString()) : QVariant();
}

QString storeKey(const QString &key) {
  QString stored = key;
  return stored.replace(u'%', "%25"_L1).replace(u'/', "%2F"_L1).replace(u'\\', "%5C"_L1);
}

QString keyFromStore(const QString &stored) {
  QString key = stored;
  return key.replace("%5C"_L1, "\\"_L1).replace("%2F"_L1, "/"_L1).replace("%25"_L1, "%"_L1);
}

}  // namespace ostrak
