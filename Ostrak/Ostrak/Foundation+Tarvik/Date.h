#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>

namespace ostrak {

// A time span as text: "2m 5s" for 125.9, "59s" for 59.9, "120m 0s" for 7200; there is no hour
// unit. What is no number counts as 0; more than the texts can hold is cut to what they can.
[[nodiscard]] QString formattedTimeFromTimeInterval(double seconds);

// Dates are local times; formats are the toolkit's ("yyyy-MM-dd HH:mm:ss", "d MMM yyyy"). A text
// that does not have the format gives an invalid date.

// `localeIdentifier` ("de_DE") says in which language names of months and days are written; an
// unknown one is read as "C", which is English.
[[nodiscard]] QDateTime dateWithString(const QString &text, const QString &format,
                                       const QString &localeIdentifier);
// The same in "en_US".
[[nodiscard]] QDateTime dateWithString(const QString &text, const QString &format);
// The day that the compiler's __DATE__ names ("Jan  5 2026"), at midnight.
[[nodiscard]] QDateTime dateWithPreprocessorDate(const char *date);

// Always in "en_US". The empty text for an invalid date.
[[nodiscard]] QString stringUsingFormat(const QDateTime &date, const QString &format);

enum class DateStyle { None, Short, Long };
// In the current locale; a part whose style is None is left out.
[[nodiscard]] QString stringUsingDateStyle(const QDateTime &date, DateStyle dateStyle,
                                           DateStyle timeStyle);

}  // namespace ostrak
