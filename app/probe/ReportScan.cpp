#include "ReportScan.h"

#include <algorithm>
#include <limits>

#include "Exceptions.h"
#include "Format.h"

namespace decant {

using namespace Qt::StringLiterals;

QStringView before(QStringView text, QStringView separator) {
  const qsizetype at = text.indexOf(separator);
  return at < 0 ? text : text.first(at);
}

QStringView after(QStringView text, QStringView separator) {
  const qsizetype at = text.indexOf(separator);
  if (at < 0) {
    throw ostrak::RangeError(
        ostrak::makeString(u"the report line '%@' has no '%@'"_s, text, separator));
  }
  return before(text.sliced(at + separator.size()), separator);
}

namespace {

template <typename Predicate>
QStringView stripped(QStringView text, Predicate goes) {
  while (!text.isEmpty() && goes(text.front()))
    text = text.sliced(1);
  while (!text.isEmpty() && goes(text.back()))
    text.chop(1);
  return text;
}

// The tool prints control characters as question marks, those of line and page layout as they are.
QString asPrinted(QString path) {
  for (QChar &c : path) {
    if (c < QChar(0x08) || (c > QChar(0x0d) && c < QChar(0x20))) c = u'?';
  }
  return path;
}

bool isLineBreak(char16_t c) {
  if (c < 0x20) return c >= u'\n' && c <= u'\r';
  return c == 0x85 || c == 0x2028 || c == 0x2029;
}

// Line breaks that the tool prints only as part of what it read from the file.
bool isForeignLineBreak(char16_t c) {
  return isLineBreak(c) && c != u'\n' && c != u'\r';
}

const QChar *endOfLine(QStringView text) {
  return std::find_if(text.begin(), text.end(), [](QChar c) { return isLineBreak(c.unicode()); });
}

}  // namespace

QString withoutPath(const QString &report, const QString &path) {
  const QString printed = asPrinted(path);
  if (!printed.startsWith(u'/')) return report;
  const auto isInWord = [&report](qsizetype at) {
    return at >= 0 && at < report.size() && report[at].isLetterOrNumber();
  };
  QString result;
  qsizetype kept = 0;
  for (qsizetype at = report.indexOf(printed); at >= 0; at = report.indexOf(printed, at)) {
    const qsizetype end = at + printed.size();
    if (isInWord(at - 1) || isInWord(end)) {
      ++at;
      continue;
    }
    result += QStringView(report).sliced(kept, at - kept);
    at = kept = end;
  }
  return kept == 0 ? report : QString(result + QStringView(report).sliced(kept));
}

QStringView strippedOf(QStringView text, QStringView set) {
  return stripped(text, [set](QChar c) { return set.contains(c); });
}

QStringView strippedToSet(QStringView text, QStringView set) {
  return stripped(text, [set](QChar c) { return !set.contains(c); });
}

int leadingInteger(QStringView text) {
  using Limits = std::numeric_limits<int>;
  text = text.trimmed();
  const bool negative = text.startsWith(u'-');
  if (negative || text.startsWith(u'+')) text = text.sliced(1);
  qint64 value = 0;
  for (const QChar c : text) {
    if (c < u'0' || c > u'9') break;
    value = value * 10 + (c.unicode() - u'0');
    if (value > Limits::max()) return negative ? Limits::min() : Limits::max();
  }
  return static_cast<int>(negative ? -value : value);
}

bool containsIgnoringBlanks(QStringView text, QStringView part) {
  const QChar first = part.front();
  for (qsizetype start = text.indexOf(first); start >= 0; start = text.indexOf(first, start + 1)) {
    qsizetype matched = 0;
    for (const QChar c : text.sliced(start)) {
      if (c == u' ') continue;
      if (c != part[matched]) break;
      if (++matched == part.size()) return true;
    }
  }
  return false;
}

namespace {

// What the tool itself writes: 'Stream #0:0', 'Duration: 00:01', never more words.
bool beginsLikeReportLine(QStringView trimmedLine) {
  if (trimmedLine.startsWith(u"Stream #")) return true;
  constexpr QStringView duration = u"Duration";
  if (!trimmedLine.startsWith(duration)) return false;
  const QStringView rest = trimmedLine.sliced(duration.size());
  return rest.startsWith(u':') || (!rest.trimmed().isEmpty() && rest.trimmed().front().isDigit());
}

// 'Stream #0:1', 'Stream #0:1[0x2]', 'Stream #0:1(eng)'; a key of that sort ends in its padding.
bool endsStreamLabel(QChar last) {
  return last.isDigit() || last == u']' || last == u')';
}

// A key that reads 'Duration: …': the tool's own line has other parts and no padding.
bool isPaddedDuration(QStringView trimmedLine) {
  return trimmedLine.startsWith(u"Duration: ") && trimmedLine.contains(u" : ") &&
         !trimmedLine.contains(u", start: ") && !trimmedLine.contains(u"bitrate: ");
}

}  // namespace

bool isTagLine(QStringView trimmedLine) {
  constexpr qsizetype keyWidth = 16;
  qsizetype colon = trimmedLine.indexOf(u": ");
  if (trimmedLine.startsWith(u"Stream #"))
    return colon > 0 && !endsStreamLabel(trimmedLine[colon - 1]);
  if (colon < 0 && trimmedLine.endsWith(u':')) colon = trimmedLine.size() - 1;
  if (isPaddedDuration(trimmedLine)) return true;
  return colon == keyWidth || (colon > keyWidth && !beginsLikeReportLine(trimmedLine));
}

bool ReportLines::next(QStringView &line) {
  if (m_atEnd) return false;
  const QChar *end = endOfLine(m_rest);
  if (end != m_rest.end() && isForeignLineBreak(end->unicode())) {
    const QChar *lineFeed =
        std::find_if(end, m_rest.end(), [](QChar c) { return c == u'\n' || c == u'\r'; });
    if (isTagLine(QStringView(m_rest.begin(), lineFeed).trimmed())) end = lineFeed;
  }
  line = QStringView(m_rest.begin(), end);
  m_atEnd = end == m_rest.end();
  if (!m_atEnd) m_rest = m_rest.sliced(line.size() + 1);
  return true;
}

}  // namespace decant
