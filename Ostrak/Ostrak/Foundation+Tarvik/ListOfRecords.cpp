#include "ListOfRecords.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>

namespace ostrak {

namespace {

// Kinds of values, in the order in which they are sorted; values have an order only among their
// kind.
int kindOf(const QVariant &value) {
  switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
      return 0;
    case QMetaType::Float:
    case QMetaType::Double:
      if (std::isnan(value.toDouble())) return 0;
      return 1;
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
      return 1;
    default:
      return 2 + value.typeId();
  }
}

bool isLess(const QVariant &left, const QVariant &right) {
  const int leftKind = kindOf(left);
  const int rightKind = kindOf(right);
  if (leftKind != rightKind) return leftKind < rightKind;
  return leftKind != 0 && QVariant::compare(left, right) == QPartialOrdering::Less;
}

void flattenInto(QVariantList &result, const QVariantList &list) {
  for (const QVariant &value : list) {
    if (value.typeId() == QMetaType::QVariantList) {
      flattenInto(result, value.toList());
    } else {
      result.append(value);
    }
  }
}

}  // namespace

Records sortedArrayByKey(const Records &records, const QString &key, bool ascending) {
  Records result = records;
  std::stable_sort(result.begin(), result.end(),
                   [&](const QVariantMap &left, const QVariantMap &right) {
                     return ascending ? isLess(left.value(key), right.value(key))
                                      : isLess(right.value(key), left.value(key));
                   });
  return result;
}

bool containsDictionaryWithKey(const Records &records, const QString &key,
                               const QVariant &equalTo) {
  return std::any_of(records.begin(), records.end(), [&](const QVariantMap &record) {
    return record.contains(key) && record.value(key) == equalTo;
  });
}

QVariantList flattenedArray(const QVariantList &list) {
  QVariantList result;
  flattenInto(result, list);
  return result;
}

QString literalString(const QVariantList &list) {
  const QJsonDocument document(QJsonArray::fromVariantList(list));
  return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

}  // namespace ostrak
