#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

namespace ostrak {

// One piece of a document in the Rich Text Format.
struct RichTextToken {
  enum class Kind { Open, Close, Word, Symbol, Byte, Letters, End };

  Kind kind = Kind::End;
  QByteArray text;         // of a Word its name, of a Symbol its one letter, of Letters themselves
  bool hasNumber = false;  // a Word may have one
  int number = 0;          // of a Byte, written "\'hh", its value
};

// Cuts such a document into its pieces; any bytes at all have some. Numbers that are too large are
// cut to what fits. The bytes must outlive the scanner.
class RichTextScanner final {
 public:
  explicit RichTextScanner(QByteArrayView document) : m_rest(document) {}

  // Kind::End for ever at the end.
  [[nodiscard]] RichTextToken next();

 private:
  // None where nothing is to be seen; the next piece follows.
  [[nodiscard]] std::optional<RichTextToken> afterBackslash();
  [[nodiscard]] RichTextToken word();
  [[nodiscard]] std::optional<RichTextToken> hexByte();
  [[nodiscard]] RichTextToken letters();

  QByteArrayView m_rest;
};

}  // namespace ostrak
