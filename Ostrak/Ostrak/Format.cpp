#include "Format.h"

#include <QLocale>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// One placeholder, taken apart: %[flags][width][.precision][length words]conversion.
struct Placeholder {
  QString flags;
  int width = 0;
  int precision = -1;
  QString lengthWords;
  char16_t conversion = 0;
  qsizetype end = 0;  // index after it; 0 when the text is no placeholder
};

int readNumber(QStringView format, qsizetype &at) {
  constexpr int limit = 10000;
  int number = 0;
  for (; at < format.size() && format[at] >= u'0' && format[at] <= u'9'; ++at) {
    number = qMin(limit, number * 10 + (format[at].unicode() - u'0'));
  }
  return number;
}

Placeholder readPlaceholder(QStringView format, qsizetype at) {
  Placeholder found;
  ++at;
  for (; at < format.size() && "-+ #0"_L1.contains(format[at]); ++at)
    found.flags += format[at];
  found.width = readNumber(format, at);
  if (at < format.size() && format[at] == u'.') {
    ++at;
    found.precision = readNumber(format, at);
  }
  for (; at < format.size() && "hlqjzt"_L1.contains(format[at]); ++at)
    found.lengthWords += format[at];
  if (at < format.size() && "@sdiuoxXeEfFgG%"_L1.contains(format[at])) {
    found.conversion = format[at].unicode();
    found.end = at + 1;
  }
  return found;
}

QString padded(const Placeholder &placeholder, QString text) {
  if (placeholder.precision >= 0) text.truncate(placeholder.precision);
  return placeholder.flags.contains(u'-') ? text.leftJustified(placeholder.width)
                                          : text.rightJustified(placeholder.width);
}

QByteArray printfFormat(const Placeholder &placeholder, const char *lengthWord) {
  QByteArray format = "%" + placeholder.flags.toLatin1();
  if (placeholder.width > 0) format += QByteArray::number(placeholder.width);
  if (placeholder.precision >= 0) format += "." + QByteArray::number(placeholder.precision);
  format += lengthWord;
  format += static_cast<char>(placeholder.conversion);
  return format;
}

// A negative number under an unsigned conversion shows as many bits as the length words name.
quint64 asUnsigned(const Placeholder &placeholder, qint64 number) {
  if (number >= 0 || placeholder.lengthWords.contains(u'l')) return static_cast<quint64>(number);
  if (placeholder.lengthWords == "hh"_L1) return static_cast<quint8>(number);
  if (placeholder.lengthWords == "h"_L1) return static_cast<quint16>(number);
  return placeholder.lengthWords.isEmpty() ? static_cast<quint32>(number)
                                           : static_cast<quint64>(number);
}

qint64 truncatedToInteger(double number) {
  if (std::isnan(number)) return 0;
  constexpr double limit = 9.2e18;
  return static_cast<qint64>(qBound(-limit, number, limit));
}

struct Printer {
  const Placeholder &placeholder;

  [[nodiscard]] bool wantsFloating() const {
    return "eEfFgG"_L1.contains(QChar(placeholder.conversion));
  }
  [[nodiscard]] bool wantsUnsigned() const {
    return "uoxX"_L1.contains(QChar(placeholder.conversion));
  }

  QString operator()(const QString &text) const { return padded(placeholder, text); }
  QString operator()(qint64 number) const {
    if (wantsFloating()) return (*this)(static_cast<double>(number));
    if (wantsUnsigned()) return (*this)(asUnsigned(placeholder, number));
    return QString::asprintf(printfFormat(placeholder, "ll").constData(), number);
  }
  QString operator()(quint64 number) const {
    if (wantsFloating()) return (*this)(static_cast<double>(number));
    Placeholder unsignedOne = placeholder;
    if (!wantsUnsigned()) unsignedOne.conversion = u'u';
    return QString::asprintf(printfFormat(unsignedOne, "ll").constData(), number);
  }
  QString operator()(double number) const {
    if (!wantsFloating()) return (*this)(truncatedToInteger(number));
    return QString::asprintf(printfFormat(placeholder, "").constData(), number);
  }
};

QString fill(const Placeholder &placeholder, const FormatArgument &value) {
  if (placeholder.conversion == u'@' || placeholder.conversion == u's') {
    return padded(placeholder, value.text());
  }
  if (const auto *text = std::get_if<QString>(&value.value()); text && text->isNull()) {
    return padded(placeholder, value.text());
  }
  return std::visit(Printer{placeholder}, value.value());
}

struct TextOf {
  QString operator()(const QString &text) const { return text.isNull() ? u"(null)"_s : text; }
  QString operator()(qint64 number) const { return QString::number(number); }
  QString operator()(quint64 number) const { return QString::number(number); }
  QString operator()(double number) const {
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
  }
};

}  // namespace

QString FormatArgument::text() const {
  return std::visit(TextOf{}, m_value);
}

QString formatText(QStringView format, std::initializer_list<FormatArgument> values) {
  QString result;
  const auto *next = values.begin();
  for (qsizetype at = 0; at < format.size();) {
    const Placeholder placeholder =
        format[at] == u'%' ? readPlaceholder(format, at) : Placeholder();
    if (placeholder.end == 0) {
      result += format[at++];
      continue;
    }
    at = placeholder.end;
    if (placeholder.conversion == u'%') {
      result += u'%';
    } else if (next == values.end()) {
      result += u"(null)"_s;
    } else {
      result += fill(placeholder, *next++);
    }
  }
  return result;
}

}  // namespace ostrak
