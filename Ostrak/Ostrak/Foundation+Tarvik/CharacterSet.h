#pragma once

#include <QList>
#include <QString>

namespace ostrak {

// A set of Unicode characters, a value.
class CharacterSet final {
 public:
  CharacterSet() = default;
  // The characters that occur in `characters`; half a pair counts as itself.
  explicit CharacterSet(QStringView characters);

  // Blanks of every width and the tabulator.
  [[nodiscard]] static const CharacterSet &whitespace();
  // Line feed, vertical tabulator, form feed, carriage return, next line, line and paragraph
  // separator.
  [[nodiscard]] static const CharacterSet &newlines();
  [[nodiscard]] static const CharacterSet &whitespaceAndNewlines();
  [[nodiscard]] static const CharacterSet &decimalDigits();  // 0 to 9

  [[nodiscard]] bool contains(char32_t character) const;
  [[nodiscard]] bool isEmpty() const { return m_characters.isEmpty(); }
  [[nodiscard]] CharacterSet united(const CharacterSet &other) const;
  // In ascending order, each once.
  [[nodiscard]] const QList<char32_t> &characters() const { return m_characters; }

  bool operator==(const CharacterSet &) const = default;

 private:
  void arrange();
  QList<char32_t> m_characters;
};

// The characters of the set as one text, in ascending order.
[[nodiscard]] QString stringRepresentation(const CharacterSet &set);

// Both without a table, for splitting: a line break of any kind, a blank or tabulator. What texts
// are mostly made of is told by the first comparison.
[[nodiscard]] constexpr bool isNewline(char16_t unit) {
  if (unit > 0x0D && unit < 0x85) return false;
  return (unit >= 0x0A && unit <= 0x0D) || unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}
[[nodiscard]] constexpr bool isWhitespace(char16_t unit) {
  if (unit > 0x20 && unit < 0xA0) return false;
  return unit == 0x20 || unit == 0x09 || unit == 0xA0 || unit == 0x1680 ||
         (unit >= 0x2000 && unit <= 0x200A) || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

}  // namespace ostrak
