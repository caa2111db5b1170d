#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include "Diagnosis.h"

namespace decant {

// Keeps what ffmpeg prints for a later diagnosis: ASCII, every other byte replaced by U+FFFD,
// without the periodic statistics lines, lines appended with nothing between them. Of a flood the
// first and the last part are kept, and of the lines between, those that hold a phrase a diagnosis
// looks for, each phrase once. However much is printed, memory is bounded. A value; pure.
class OutputCollector final {
 public:
  // Bytes kept of the beginning and of the end.
  static constexpr qsizetype headLimit = qsizetype{128} * 1024;
  static constexpr qsizetype tailLimit = qsizetype{128} * 1024;
  // A line that grows longer is taken in pieces of this many bytes.
  static constexpr qsizetype lineLimit = qsizetype{16} * 1024;

  // A piece of output, cut anywhere; an unfinished line waits for the next piece.
  void add(QByteArrayView bytes);
  // What was left when the tool ended. It completes a line that waits; the rest of it is appended
  // whole, its line breaks and statistics too.
  void finish(QByteArrayView rest);
  // Everything kept, in order. Of what is still waiting nothing.
  [[nodiscard]] QString text() const;

 private:
  // A line with phrases that were not seen before, and where it lies in everything appended.
  struct NotedLine {
    qint64 end = 0;
    QByteArray line;
  };

  void addToLine(QByteArrayView bytes);
  void endLine();
  void takeLine(QByteArrayView line);
  void appendLine(QByteArrayView line, qsizetype length);
  void append(QByteArrayView bytes);

  QByteArray m_line;  // waits for its end
  QByteArray m_head;
  bool m_headIsFull = false;
  QByteArray m_tail;  // cut to its limit when it is twice as long
  qint64 m_appended = 0;
  QList<NotedLine> m_noted;
  Phrases m_seen = 0;
};

}  // namespace decant
