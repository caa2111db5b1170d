#pragma once

#include <QString>
#include <QStringList>

namespace ostrak {

// Operations on lists of texts. Pure, any thread.

[[nodiscard]] QString joined(const QStringList &texts, const QString &separator);
// The elements joined as path components, one slash between them: {"/", "a", "b/"} gives "/a/b".
// Empty elements add nothing; the empty list is the empty text.
[[nodiscard]] QString path(const QStringList &components);
// The elements one directly after the other.
[[nodiscard]] QString string(const QStringList &texts);

// The elements in which the predicate, a regular expression, is found. One that is no regular
// expression is logged and found nowhere.
[[nodiscard]] QStringList filteredUsingPredicateString(const QStringList &texts,
                                                       const QString &predicate);
void filterUsingPredicateString(QStringList &texts, const QString &predicate);

}  // namespace ostrak
