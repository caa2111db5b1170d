#include "ProgressFileName.h"

namespace decant {
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestName = 255;  // bytes of UTF-8
constexpr auto extension = ".log"_L1;
constexpr qsizetype roomForNumber = 6;  // "-99999"

// How many bytes of UTF-8 the character at the start of `text` takes, and how many units it has.
struct CharacterSize {
  qsizetype bytes;
  qsizetype units;
};

CharacterSize firstCharacterSize(QStringView text) {
  const bool pair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
  if (pair) return {4, 2};
  const char16_t unit = text[0].unicode();
  return {unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3, 1};
}

QStringView cutToBytes(QStringView text, qsizetype limit) {
  qsizetype bytes = 0;
  qsizetype kept = 0;
  while (kept < text.size()) {
    const CharacterSize next = firstCharacterSize(text.sliced(kept));
    if (bytes + next.bytes > limit) break;
    bytes += next.bytes;
    kept += next.units;
  }
  return text.first(kept);
}

}  // namespace

QString progressFileName(const QString &fileName) {
  return cutToBytes(fileName, longestName - extension.size() - roomForNumber) + extension;
}

}  // namespace decant
