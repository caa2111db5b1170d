#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <concepts>
#include <memory>

#include "CharacterSet.h"

namespace ostrak {

// Values between their forms. Every value here is shared until it is written to, so a copy is
// cheap.

// A copy to change, whose changes the original does not see.
template <std::copyable T>
[[nodiscard]] T mutableObject(const T &object) {
  return object;
}

// A copy that nobody can change, for handing around; later changes of the original do not reach it.
template <std::copyable T>
[[nodiscard]] std::shared_ptr<const T> immutableObject(const T &object) {
  return std::make_shared<const T>(object);
}

// The number as text, the C way whatever the user's locale: whole numbers with all their digits,
// others with as many as read back to the same number.
[[nodiscard]] QString stringRepresentation(qint64 number);
[[nodiscard]] QString stringRepresentation(quint64 number);
[[nodiscard]] QString stringRepresentation(qint32 number);
[[nodiscard]] QString stringRepresentation(double number);
// The elements in ascending order with ", " between them.
[[nodiscard]] QString stringRepresentation(const QSet<QString> &set);

}  // namespace ostrak
