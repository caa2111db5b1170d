#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace ostrak {

// Operations on texts, the short vocabulary of the program. Pure, any thread.

// True if `part` occurs anywhere, case-sensitive; the empty text occurs everywhere.
[[nodiscard]] bool contains(QStringView text, QStringView part);
[[nodiscard]] bool containsAny(QStringView text, const QStringList &parts);
// Split at every line break of any kind (LF, CR, VT, FF, NEL, line and paragraph separator): a carriage
// return followed by a line feed leaves an empty element between.
[[nodiscard]] QStringList lines(const QString &text);
// Split at every white-space character; runs of blanks leave empty elements.
[[nodiscard]] QStringList words(const QString &text);
// Split at every occurrence of `separator`, empty pieces kept.
[[nodiscard]] QStringList split(const QString &text, const QString &separator);
[[nodiscard]] QString replaced(const QString &text, const QString &what, const QString &with);
[[nodiscard]] QString trimmedOfWhitespaceAndNewlines(const QString &text);
// The first `length` characters of a longer text, else the text itself.
[[nodiscard]] QString clamp(const QString &text, qsizetype length);
// Percent-encoded with the characters that a URL query allows left as they are, and back.
[[nodiscard]] QString escaped(const QString &text);
[[nodiscard]] QString unescaped(const QString &text);
// The text for this key in the user's language; the key itself when there is none.
[[nodiscard]] QString localized(const QString &key);

}  // namespace ostrak
