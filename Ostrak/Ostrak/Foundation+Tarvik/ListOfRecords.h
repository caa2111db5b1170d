#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <QVariantMap>

namespace ostrak {

// Operations on lists of dictionaries and of mixed values. Pure, any thread.

using Records = QList<QVariantMap>;

// By the value under `key`, equal ones in their order. Values are compared within their kind: a
// record without one comes first, then come numbers, then the other kinds.
[[nodiscard]] Records sortedArrayByKey(const Records &records, const QString &key,
                                       bool ascending = true);
[[nodiscard]] bool containsDictionaryWithKey(const Records &records, const QString &key,
                                             const QVariant &equalTo);
// The values of the list and of all lists in it, at any depth, in one list.
[[nodiscard]] QVariantList flattenedArray(const QVariantList &list);
// The list as it is written in JSON, without line breaks.
[[nodiscard]] QString literalString(const QVariantList &list);

}  // namespace ostrak
