#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace decant {

// Texts as they may be shown to a person on one line, whatever names hold. Pure.

// Control characters as "\n", "\t", "\x1b", so that a name can neither break a line nor steer the
// terminal.
[[nodiscard]] QString printable(const QString &text);
// A message of several lines as one: line breaks become blanks, other control characters are
// escaped.
[[nodiscard]] QString onOneLine(const QString &text);
// Bytes that are not UTF-8 as "\xNN", the rest as it is.
[[nodiscard]] QString escapedBytes(const QByteArray &bytes);
// Words as one line that a shell reads back as exactly these: quoted only where needed; control
// characters in the form $'…'.
[[nodiscard]] QString shellQuoted(const QStringList &words);
// Width of a text on a terminal: wide characters take two cells, combining ones none.
[[nodiscard]] int cellWidth(const QString &text);
// At most this many cells: the middle of a longer text gives way to an ellipsis.
[[nodiscard]] QString elided(const QString &text, int cells);

}  // namespace decant
