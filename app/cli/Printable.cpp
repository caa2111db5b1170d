#include "Printable.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

namespace decant {

namespace {

bool isControl(QChar c) {
  return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
         c == QChar::ParagraphSeparator;
}

QString hexEscape(uint byte) {
  const QString digits = QString::number(byte, 16).rightJustified(2, u'0');
  return u"\\x"_s + digits;
}

QString escapedControl(QChar c) {
  switch (c.unicode()) {
    case u'\n':
      return u"\\n"_s;
    case u'\t':
      return u"\\t"_s;
    case u'\r':
      return u"\\r"_s;
    default:
      break;
  }
  QString escape;
  const QByteArray bytes = QString(c).toUtf8();
  for (const char byte : bytes)
    escape += hexEscape(static_cast<uchar>(byte));
  return escape;
}

bool hasControl(const QString &text) {
  return std::any_of(text.cbegin(), text.cend(), isControl);
}

QString ansiQuoted(const QString &word) {
  QString quoted = u"$'"_s;
  for (const QChar c : word) {
    if (isControl(c))
      quoted += escapedControl(c);
    else if (c == u'\\' || c == u'\'')
      quoted += u'\\' + QString(c);
    else
      quoted += c;
  }
  return quoted + u'\'';
}

QString quotedWord(const QString &word) {
  static const QRegularExpression plain(u"\\A[A-Za-z0-9_@%+=:,./-]+\\z"_s);
  if (plain.match(word).hasMatch()) return word;
  if (hasControl(word)) return ansiQuoted(word);
  QString inner = word;
  inner.replace(u"'"_s, u"'\\''"_s);
  return u'\'' + inner + u'\'';
}

struct CodePoints {
  char32_t first;
  char32_t last;
};

// East Asian wide and full-width characters, and pictographs.
constexpr CodePoints wideOnes[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                                   {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                                   {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};

int cellsOf(char32_t point) {
  switch (QChar::category(point)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
      return 0;
    default:
      break;
  }
  const bool wide = std::any_of(
      std::begin(wideOnes), std::end(wideOnes),
      [point](CodePoints range) { return point >= range.first && point <= range.last; });
  return wide ? 2 : 1;
}

}  // namespace

QString printable(const QString &text) {
  QString shown;
  shown.reserve(text.size());
  for (const QChar c : text) {
    if (isControl(c))
      shown += escapedControl(c);
    else
      shown += c;
  }
  return shown;
}

QString onOneLine(const QString &text) {
  static const QRegularExpression breaks(u"\\s*[\\r\\n]\\s*"_s);
  QString line = text.trimmed();
  line.replace(breaks, u" "_s);
  return printable(line);
}

QString escapedBytes(const QByteArray &bytes) {
  // Also of nothing there is a text.
  QString shown = u""_s;
  for (qsizetype at = 0; at < bytes.size();) {
    qsizetype length = 1;
    QString decoded;
    // The shortest valid sequence that begins here, if there is one.
    for (; length <= 4 && at + length <= bytes.size(); ++length) {
      QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless |
                                                       QStringConverter::Flag::ConvertInitialBom);
      decoded = decoder(QByteArrayView(bytes).sliced(at, length));
      if (!decoder.hasError() && decoded.toUtf8() == QByteArrayView(bytes).sliced(at, length))
        break;
      decoded.clear();
    }
    if (decoded.isEmpty()) {
      shown += hexEscape(static_cast<uchar>(bytes.at(at)));
      length = 1;
    } else {
      shown += printable(decoded);
    }
    at += length;
  }
  return shown;
}

QString shellQuoted(const QStringList &words) {
  QStringList quoted;
  quoted.reserve(words.size());
  for (const QString &word : words)
    quoted.append(quotedWord(word));
  return quoted.join(u' ');
}

int cellWidth(const QString &text) {
  int cells = 0;
  for (const char32_t point : text.toStdU32String())
    cells += cellsOf(point);
  return cells;
}

QString elided(const QString &text, int cells) {
  if (cellWidth(text) <= cells) return text;
  if (cells <= 0) return {};
  const std::u32string points = text.toStdU32String();
  int room = cells - 1;
  const int tailRoom = room - room / 2;
  size_t tail = points.size();
  int used = 0;
  while (tail > 0 && used + cellsOf(points[tail - 1]) <= tailRoom)
    used += cellsOf(points[--tail]);
  room -= used;
  size_t head = 0;
  used = 0;
  while (head < tail && used + cellsOf(points[head]) <= room)
    used += cellsOf(points[head++]);
  const QString shortened = QString::fromStdU32String(points.substr(0, head)) + u"…"_s +
                            QString::fromStdU32String(points.substr(tail));
  return shortened;
}

}  // namespace decant
