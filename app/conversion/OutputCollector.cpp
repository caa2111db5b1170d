#include "OutputCollector.h"

#include <algorithm>

#include "LineBreak.h"

namespace decant {

namespace {

// So much of a line that is taken in pieces is looked at again with the next piece: a phrase is
// never torn.
constexpr qsizetype overlap = longestTellingPhrase - 1;

bool isStatistics(QByteArrayView line) {
  return line.contains("frame=") && line.contains("bitrate=");
}

// Bytes up to the first line break, or all.
qsizetype lengthOfLine(QByteArrayView bytes) {
  return std::find_if(bytes.begin(), bytes.end(), isLineBreak) - bytes.begin();
}

QByteArrayView endOf(const QByteArray &bytes, qsizetype limit) {
  return QByteArrayView(bytes).last(std::min(bytes.size(), limit));
}

void appendAsAscii(QString &text, QByteArrayView bytes) {
  for (const char byte : bytes)
    text += static_cast<unsigned char>(byte) < 0x80 ? QChar(QLatin1Char(byte))
                                                    : QChar(QChar::ReplacementCharacter);
}

}  // namespace

void OutputCollector::add(QByteArrayView bytes) {
  for (;;) {
    const qsizetype length = lengthOfLine(bytes);
    const QByteArrayView line = bytes.first(length);
    if (length == bytes.size()) return addToLine(line);
    if (m_line.isEmpty() && length < lineLimit) {
      takeLine(line);
    } else {
      addToLine(line);
      endLine();
    }
    bytes = bytes.sliced(length + 1);
  }
}

void OutputCollector::finish(QByteArrayView rest) {
  if (!m_line.isEmpty()) {
    const qsizetype length = lengthOfLine(rest);
    addToLine(rest.first(length));
    endLine();
    rest = rest.sliced(std::min(length + 1, rest.size()));
  }
  while (!rest.isEmpty()) {
    const qsizetype length = std::min(lengthOfLine(rest) + 1, rest.size());
    addToLine(rest.first(length));
    appendLine(m_line, m_line.size());
    m_line.resize(0);
    rest = rest.sliced(length);
  }
}

QString OutputCollector::text() const {
  const QByteArrayView tail = endOf(m_tail, tailLimit);
  const qint64 tailStart = m_appended - tail.size();
  QString text;
  text.reserve(m_head.size() + tail.size());
  appendAsAscii(text, m_head);
  for (const NotedLine &noted : m_noted) {
    const bool wholeInHead = noted.end <= m_head.size();
    const bool wholeInTail = noted.end - noted.line.size() >= tailStart;
    if (!wholeInHead && !wholeInTail) appendAsAscii(text, noted.line);
  }
  appendAsAscii(text, tail);
  return text;
}

void OutputCollector::addToLine(QByteArrayView bytes) {
  while (!bytes.isEmpty()) {
    const qsizetype taken = std::min(bytes.size(), lineLimit - m_line.size());
    m_line.append(bytes.first(taken));
    bytes = bytes.sliced(taken);
    if (m_line.size() < lineLimit) return;
    appendLine(m_line, lineLimit - overlap);
    m_line.remove(0, lineLimit - overlap);
  }
}

void OutputCollector::endLine() {
  takeLine(m_line);
  m_line.resize(0);
}

void OutputCollector::takeLine(QByteArrayView line) {
  if (!line.isEmpty() && !isStatistics(line)) appendLine(line, line.size());
}

// Appends the beginning of a line, and notes what the line tells.
void OutputCollector::appendLine(QByteArrayView line, qsizetype length) {
  const Phrases unseen = tellingPhrases(line) & ~m_seen;
  if (unseen) {
    m_noted.append({m_appended + line.size(), line.toByteArray()});
    m_seen |= unseen;
  }
  append(line.first(length));
}

void OutputCollector::append(QByteArrayView bytes) {
  m_appended += bytes.size();
  m_headIsFull = m_headIsFull || m_head.size() + bytes.size() > headLimit;
  if (!m_headIsFull) {
    m_head.append(bytes);
    return;
  }
  m_tail.append(bytes);
  if (m_tail.size() > 2 * tailLimit) m_tail = endOf(m_tail, tailLimit).toByteArray();
}

}  // namespace decant
