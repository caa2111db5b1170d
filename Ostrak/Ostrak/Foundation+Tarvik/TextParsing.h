#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>

namespace ostrak {

// Texts read as something else. Numbers are written the C way, whatever the user's locale: an
// optional sign, digits 0 to 9, a point. Pure, any thread.

// True if the text begins, after blanks, with a whole number that fits 64 bits: "12 files".
[[nodiscard]] bool isIntegerNumber(QStringView text);
// True if the text is a whole number that fits 64 bits and nothing else.
[[nodiscard]] bool isIntegerNumberOnly(QStringView text);
// True if the whole text is a number with a fraction or an exponent: "1.5", "-.5", "2e3".
[[nodiscard]] bool isFloatNumber(QStringView text);
// True if the whole text is either.
[[nodiscard]] bool isNumber(QStringView text);

// True if the text has the shape of one mail address, name@host.domain. Quoted names and hosts
// given by number are not taken.
[[nodiscard]] bool isValidEmail(QStringView text);
// True for one or more addresses separated by commas, with blanks around them allowed.
[[nodiscard]] bool isValidEmails(QStringView text);

// Rows and fields of a text of delimiter-separated values. A field in double quotes may hold
// delimiters, line breaks and doubled quotes; a quote that is never closed runs to the end. Rows
// end at LF, CR or CR LF; one at the end of the text begins no further row. No row for the empty
// text. `delimiter` must not be empty, a quote or a line break: else there is no row either.
[[nodiscard]] QList<QStringList> parsedDSVWithDelimiter(const QString &text,
                                                        const QString &delimiter);

// The bytes whose hexadecimal digits, of either case, the text holds; nothing when it holds
// anything else or an odd number of them.
[[nodiscard]] std::optional<QByteArray> dataFromHexString(QStringView text);

}  // namespace ostrak
