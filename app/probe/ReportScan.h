#pragma once

#include <QString>
#include <QStringView>
#include <utility>

namespace decant {

// The report without the absolute path that the tool was given: a name can look like any line of
// the report. The path stands between quotes, blanks or colons: the "/s" in "kb/s" is not the file
// "/s".
[[nodiscard]] QString withoutPath(const QString &report, const QString &path);

// Small readings of one report line. Views into the report: nothing is copied. Pure, any thread.

// What stands before the first `separator`, or all of it.
[[nodiscard]] QStringView before(QStringView text, QStringView separator);
// What stands after the first `separator`, up to the second where there is one. Throws
// ostrak::RangeError when there is none.
[[nodiscard]] QStringView after(QStringView text, QStringView separator);
// Without the characters of `set` at both ends; with `outside`, without those that are not in it.
[[nodiscard]] QStringView strippedOf(QStringView text, QStringView set);
[[nodiscard]] QStringView strippedToSet(QStringView text, QStringView set);
// The integer at the start, after white space, else 0; one that does not fit is the nearest that
// does.
[[nodiscard]] int leadingInteger(QStringView text);
// Whether `part` occurs when all blanks of `text` are removed.
[[nodiscard]] bool containsIgnoringBlanks(QStringView text, QStringView part);

// Whether a trimmed line has the form of a tag, "key             : value": the tool pads the key to
// 16 characters, and a longer key is taken to be one word. Such a line is data of the file,
// whatever its key begins with.
[[nodiscard]] bool isTagLine(QStringView trimmedLine);

// Walks the lines of a report. Every kind of line break ends a line, but for those that the tool
// prints as part of a tag's value: it breaks lines with LF only.
class ReportLines final {
 public:
  explicit ReportLines(QStringView report) : m_rest(report) {}
  // False when there are no more lines.
  [[nodiscard]] bool next(QStringView &line);

 private:
  QStringView m_rest;
  bool m_atEnd = false;
};

}  // namespace decant
