#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QUrl>

#include "CharacterSet.h"
#include "TextCase.h"
#include "TextParsing.h"
#include "TextSearch.h"

namespace ostrak {

// Operations on texts, the short vocabulary of the program. Pure, any thread. Lengths and positions
// count UTF-16 units. Those named ...Views give pieces of the text itself, which must outlive them.

// Split at every line break of any kind (LF, CR, VT, FF, NEL, line and paragraph separator): a
// carriage return followed by a line feed leaves an empty element between.
[[nodiscard]] QStringList lines(const QString &text);
[[nodiscard]] QList<QStringView> lineViews(QStringView text);
// Split at every white-space character, which a line break is not; runs of blanks leave empty
// elements.
[[nodiscard]] QStringList words(const QString &text);
[[nodiscard]] QList<QStringView> wordViews(QStringView text);
// Split at every occurrence of `separator`, empty pieces kept. An empty separator splits nothing.
[[nodiscard]] QStringList split(const QString &text, const QString &separator);
[[nodiscard]] QList<QStringView> splitViews(QStringView text, QStringView separator);

// Every occurrence of `what` replaced; an empty `what` replaces nothing.
[[nodiscard]] QString replaced(const QString &text, const QString &what, const QString &with);
[[nodiscard]] QString removed(const QString &text, const QString &what);
// Every key replaced by its value in one pass, so that what was put in is not replaced again. Where
// several keys begin at the same place the longest wins.
[[nodiscard]] QString stringByReplacingMultipleStrings(const QString &text,
                                                       const QMap<QString, QString> &replacements);

[[nodiscard]] QString trimmedOfWhitespaceAndNewlines(const QString &text);
[[nodiscard]] QStringView trimmedOfWhitespaceAndNewlines(QStringView text);
[[nodiscard]] QString trimmedOfWhitespace(const QString &text);
[[nodiscard]] QString stringByTrimmingLeadingCharactersInSet(const QString &text,
                                                             const CharacterSet &set);
[[nodiscard]] QString stringByTrimmingTrailingCharactersInSet(const QString &text,
                                                              const CharacterSet &set);

// The first `length` characters of a longer text, else the text itself. A character of two units is
// not cut in half: it is left out.
[[nodiscard]] QString clamp(const QString &text, qsizetype length);
// One character, both units of a pair; empty for the empty text.
[[nodiscard]] QString firstCharacter(QStringView text);
[[nodiscard]] QString lastCharacter(QStringView text);

struct TextRange {
  qsizetype location = 0;
  qsizetype length = 0;
  bool operator==(const TextRange &) const = default;
};
[[nodiscard]] TextRange fullRange(QStringView text);

// Percent-encoded with the characters that a URL query allows left as they are, and back. A percent
// sign that two hexadecimal digits do not follow stays; what is not UTF-8 becomes U+FFFD.
[[nodiscard]] QString escaped(const QString &text);
[[nodiscard]] QString unescaped(const QString &text);

// The text for this key in the user's language; the key itself when there is none.
[[nodiscard]] QString localized(const QString &key);

// The text as rich text that leads to `address`.
[[nodiscard]] QString hyperlinkWithURL(const QString &text, const QUrl &address);

// A leading "~" or "~name" replaced by the home folder of the user or of the named one; a text that
// begins otherwise, or names nobody, stays.
[[nodiscard]] QString expanded(const QString &path);

// The text as UTF-8.
[[nodiscard]] QByteArray data(QStringView text);

}  // namespace ostrak
