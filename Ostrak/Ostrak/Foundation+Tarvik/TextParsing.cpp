#include "TextParsing.h"

#include <algorithm>

#include "CharacterSet.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

bool isDigit(QChar character) {
  return character >= u'0' && character <= u'9';
}

bool isAsciiLetterOrDigit(QChar character) {
  const char16_t lower = character.unicode() | 0x20;
  return isDigit(character) || (character.unicode() < 0x80 && lower >= u'a' && lower <= u'z');
}

qsizetype digitsFrom(QStringView text, qsizetype at) {
  const qsizetype start = at;
  while (at < text.size() && isDigit(text[at])) {
    ++at;
  }
  return at - start;
}

qsizetype signAt(QStringView text, qsizetype at) {
  return at < text.size() && (text[at] == u'+' || text[at] == u'-') ? 1 : 0;
}

bool fitsInteger(QStringView digits) {
  bool fits = false;
  static_cast<void>(digits.toLongLong(&fits));
  return fits;
}

bool isHostLabel(QStringView label) {
  return !label.isEmpty() && label.size() <= 63 && !label.startsWith(u'-') &&
         !label.endsWith(u'-') && std::all_of(label.begin(), label.end(), [](QChar character) {
           return isAsciiLetterOrDigit(character) || character == u'-';
         });
}

bool isMailName(QStringView name) {
  constexpr QStringView marks = u".!#$%&'*+-/=?^_`{|}~";
  return !name.isEmpty() && name.size() <= 64 && !name.startsWith(u'.') && !name.endsWith(u'.') &&
         !name.contains(u"..") && std::all_of(name.begin(), name.end(), [&](QChar character) {
           return isAsciiLetterOrDigit(character) || marks.contains(character);
         });
}

bool isMailHost(QStringView host) {
  const QList<QStringView> labels = host.split(u'.');
  if (labels.size() < 2 || host.size() > 255) return false;
  const QStringView top = labels.last();
  return std::all_of(labels.begin(), labels.end(), isHostLabel) && top.size() >= 2 &&
         !std::all_of(top.begin(), top.end(), isDigit);
}

// Reads a text of delimiter-separated values from front to back.
class DsvReader final {
 public:
  DsvReader(QStringView text, QStringView delimiter) : m_rest(text), m_delimiter(delimiter) {}

  QList<QStringList> rows() {
    QList<QStringList> result;
    while (!m_rest.isEmpty()) {
      result.append(row());
    }
    return result;
  }

 private:
  QStringList row() {
    QStringList fields;
    while (true) {
      fields.append(field());
      if (m_rest.startsWith(m_delimiter)) {
        skip(m_delimiter.size());
      } else {
        skip(m_rest.startsWith(u"\r\n") ? 2 : qMin<qsizetype>(1, m_rest.size()));
        return fields;
      }
    }
  }

  QString field() {
    QString value;
    if (m_rest.startsWith(u'"')) value = quoted();
    while (!m_rest.isEmpty() && !m_rest.startsWith(m_delimiter) && m_rest.front() != u'\n' &&
           m_rest.front() != u'\r') {
      value.append(m_rest.front());
      skip(1);
    }
    return value;
  }

  QString quoted() {
    QString value;
    skip(1);
    while (!m_rest.isEmpty()) {
      if (m_rest.startsWith(u"\"\"")) {
        skip(1);
      } else if (m_rest.front() == u'"') {
        skip(1);
        break;
      }
      value.append(m_rest.front());
      skip(1);
    }
    return value;
  }

  void skip(qsizetype units) { m_rest = m_rest.sliced(units); }

  QStringView m_rest;
  QStringView m_delimiter;
};

}  // namespace

bool isIntegerNumber(QStringView text) {
  qsizetype start = 0;
  while (start < text.size() && isWhitespace(text[start].unicode())) {
    ++start;
  }
  const qsizetype sign = signAt(text, start);
  const qsizetype digits = digitsFrom(text, start + sign);
  return digits > 0 && fitsInteger(text.sliced(start, sign + digits));
}

bool isIntegerNumberOnly(QStringView text) {
  const qsizetype sign = signAt(text, 0);
  const qsizetype digits = digitsFrom(text, sign);
  return digits > 0 && sign + digits == text.size() && fitsInteger(text);
}

bool isFloatNumber(QStringView text) {
  qsizetype at = signAt(text, 0);
  const qsizetype whole = digitsFrom(text, at);
  at += whole;
  qsizetype fraction = 0;
  const bool point = at < text.size() && text[at] == u'.';
  if (point) {
    fraction = digitsFrom(text, at + 1);
    at += 1 + fraction;
  }
  if (whole + fraction == 0) return false;
  const bool exponent = at < text.size() && (text[at] == u'e' || text[at] == u'E');
  if (exponent) {
    const qsizetype sign = signAt(text, at + 1);
    const qsizetype digits = digitsFrom(text, at + 1 + sign);
    if (digits == 0) return false;
    at += 1 + sign + digits;
  }
  return (point || exponent) && at == text.size();
}

bool isNumber(QStringView text) {
  return isIntegerNumberOnly(text) || isFloatNumber(text);
}

bool isValidEmail(QStringView text) {
  const qsizetype at = text.lastIndexOf(u'@');
  return at > 0 && isMailName(text.first(at)) && isMailHost(text.sliced(at + 1));
}

bool isValidEmails(QStringView text) {
  const QList<QStringView> addresses = text.split(u',');
  return std::all_of(addresses.begin(), addresses.end(),
                     [](QStringView address) { return isValidEmail(address.trimmed()); });
}

QList<QStringList> parsedDSVWithDelimiter(const QString &text, const QString &delimiter) {
  if (delimiter.isEmpty() || delimiter.contains(u'"') || delimiter.contains(u'\n') ||
      delimiter.contains(u'\r')) {
    return {};
  }
  return DsvReader(text, delimiter).rows();
}

std::optional<QByteArray> dataFromHexString(QStringView text) {
  const bool allDigits = std::all_of(text.begin(), text.end(), [](QChar character) {
    const char16_t lower = character.unicode() | 0x20;
    return isDigit(character) || (character.unicode() < 0x80 && lower >= u'a' && lower <= u'f');
  });
  if (!allDigits || text.size() % 2 != 0) return std::nullopt;
  return QByteArray::fromHex(text.toLatin1());
}

}  // namespace ostrak
