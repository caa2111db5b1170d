#pragma once

#include <QString>
#include <QStringList>

namespace ostrak {

// Capital letters. Words are what stands between white space and line breaks, which stay as they
// are. A word is found in a list whatever its case, also with punctuation around it ("(of)" is
// "of"). Pure, any thread.

// The first letter of each word a capital, the rest untouched, except small words such as "of" and
// "the", which are lower case wherever they stand.
[[nodiscard]] QString titlecaseString(const QString &text);
// The same with lists of one's own; a word of `uppercaseWords` becomes capitals throughout. A word
// in both lists is lower case.
[[nodiscard]] QString titlecaseStringWithLowercaseWords(const QString &text,
                                                        const QStringList &lowercaseWords,
                                                        const QStringList &uppercaseWords);
// The first letter of each word a capital and its rest lower case, but for `uppercaseWords`.
[[nodiscard]] QString capitalizedStringWithUppercaseWords(const QString &text,
                                                          const QStringList &uppercaseWords);
// A capital wherever letters begin, lower case elsewhere: "jean-luc o'NEILL" gives "Jean-Luc
// O'Neill".
[[nodiscard]] QString propercaseString(const QString &text);

}  // namespace ostrak
