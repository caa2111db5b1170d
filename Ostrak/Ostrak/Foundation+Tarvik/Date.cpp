#include "Date.h"

#include <QLocale>
#include <cmath>

#include "Format.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

const QLocale &americanEnglish() {
  static const QLocale locale(QLocale::English, QLocale::UnitedStates);
  return locale;
}

QLocale::FormatType formatOf(DateStyle style) {
  return style == DateStyle::Long ? QLocale::LongFormat : QLocale::ShortFormat;
}

}  // namespace

QString formattedTimeFromTimeInterval(double seconds) {
  constexpr double mostSeconds = 9e15;  // beyond it a double no longer counts single seconds
  const double kept =
      std::isnan(seconds) ? 0 : std::fmax(-mostSeconds, std::fmin(seconds, mostSeconds));
  const auto whole = static_cast<qint64>(kept);
  const qint64 minutes = whole / 60;
  if (minutes == 0) return makeString(u"%is"_s, whole);
  return makeString(u"%im %is"_s, minutes, whole % 60);
}

QDateTime dateWithString(const QString &text, const QString &format,
                         const QString &localeIdentifier) {
  return QLocale(localeIdentifier).toDateTime(text, format);
}

QDateTime dateWithString(const QString &text, const QString &format) {
  return americanEnglish().toDateTime(text, format);
}

QDateTime dateWithPreprocessorDate(const char *date) {
  const QString text = QString::fromLatin1(date).simplified();
  const QDate day = americanEnglish().toDate(text, u"MMM d yyyy"_s);
  return day.isValid() ? day.startOfDay() : QDateTime();
}

QString stringUsingFormat(const QDateTime &date, const QString &format) {
  return date.isValid() ? americanEnglish().toString(date, format) : u""_s;
}

QString stringUsingDateStyle(const QDateTime &date, DateStyle dateStyle, DateStyle timeStyle) {
  if (!date.isValid()) return u""_s;
  const QLocale locale;
  QStringList parts;
  if (dateStyle != DateStyle::None) parts << locale.toString(date.date(), formatOf(dateStyle));
  if (timeStyle != DateStyle::None) {
    // The long form of a time names the time zone, so it is made from the whole date.
    parts << (timeStyle == DateStyle::Long
                  ? locale.toString(date, locale.timeFormat(QLocale::LongFormat))
                  : locale.toString(date.time(), QLocale::ShortFormat));
  }
  return parts.join(u' ');
}

}  // namespace ostrak
