#pragma once

#include <QLatin1StringView>
#include <QStringList>
#include <QStringView>

namespace ostrak {

// Looking for one text in another. Pure, any thread.

// True if `part` occurs anywhere, case-sensitive; the empty text occurs everywhere.
[[nodiscard]] bool contains(QStringView text, QStringView part);
[[nodiscard]] bool contains(QStringView text, QLatin1StringView part);
// `insensitive`: upper and lower case count as the same.
[[nodiscard]] bool contains(QStringView text, QStringView part, bool insensitive);
// False for an empty list.
[[nodiscard]] bool containsAny(QStringView text, const QStringList &parts);
// True for an empty list.
[[nodiscard]] bool containsAll(QStringView text, const QStringList &parts);
[[nodiscard]] bool equalsAny(QStringView text, const QStringList &candidates);
// Occurrences that do not overlap; 0 for an empty `part`.
[[nodiscard]] qsizetype countOccurencesOfString(QStringView text, QStringView part);

}  // namespace ostrak
