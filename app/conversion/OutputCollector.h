#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace decant {

// Keeps what ffmpeg prints for a later diagnosis: ASCII, every other byte replaced by U+FFFD, without the
// periodic statistics lines, lines appended with nothing between them. Of a flood the first and the last
// part are kept, and every line between that a diagnosis looks for. A value; pure.
class OutputCollector final {
 public:
  // Bytes kept of the beginning and of the end.
  static constexpr qsizetype headLimit = 128 * 1024;
  static constexpr qsizetype tailLimit = 128 * 1024;

  // A piece of output, cut anywhere; an unfinished line waits for the next piece.
  void add(QByteArrayView bytes);
  // What was left when the tool ended; it is appended whole.
  void finish(QByteArrayView rest);
  // Everything kept, in order.
  [[nodiscard]] QString text() const;

 private:
  void appendLine(QByteArrayView line);
  void append(QByteArrayView bytes);
  QByteArray m_pending;
  QByteArray m_head;
  QByteArray m_noted;  // telling lines that fell out of head and tail
  QByteArray m_tail;
};

}  // namespace decant
