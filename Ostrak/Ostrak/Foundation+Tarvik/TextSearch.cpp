#include "TextSearch.h"

#include <algorithm>

namespace ostrak {

bool contains(QStringView text, QStringView part) {
  return text.contains(part);
}

bool contains(QStringView text, QLatin1StringView part) {
  return text.contains(part);
}

bool contains(QStringView text, QStringView part, bool insensitive) {
  return text.contains(part, insensitive ? Qt::CaseInsensitive : Qt::CaseSensitive);
}

bool containsAny(QStringView text, const QStringList &parts) {
  return std::any_of(parts.begin(), parts.end(),
                     [&](const QString &part) { return text.contains(part); });
}

bool containsAll(QStringView text, const QStringList &parts) {
  return std::all_of(parts.begin(), parts.end(),
                     [&](const QString &part) { return text.contains(part); });
}

bool equalsAny(QStringView text, const QStringList &candidates) {
  return std::any_of(candidates.begin(), candidates.end(),
                     [&](const QString &candidate) { return text == candidate; });
}

qsizetype countOccurencesOfString(QStringView text, QStringView part) {
  if (part.isEmpty()) return 0;
  qsizetype count = 0;
  for (qsizetype at = text.indexOf(part); at >= 0; at = text.indexOf(part, at + part.size())) {
    ++count;
  }
  return count;
}

}  // namespace ostrak
