#pragma once

#include <QStringView>
#include <span>

namespace decant {

struct LanguageRow {
  QStringView twoLetters;     // ISO 639-1
  QStringView bibliographic;  // ISO 639-2/B
};

// 184 two-letter codes in 204 rows, sorted: the 20 languages that have a terminology code besides
// their bibliographic one have two equal rows, so that the table has one row for each three-letter
// code.
[[nodiscard]] std::span<const LanguageRow> languageTable();

struct LanguageTwin {
  QStringView terminology;    // ISO 639-2/T: what mp4 and mov say
  QStringView bibliographic;  // ISO 639-2/B: what Matroska says
};
// The 20 doubled languages.
[[nodiscard]] std::span<const LanguageTwin> languageTwins();

// The three-letter code of a two-letter one; a null view when the table has none.
[[nodiscard]] QStringView bibliographicOfTwoLetters(QStringView twoLetters);
// The bibliographic twin of a terminology code; any other code as it is.
[[nodiscard]] QStringView bibliographicOf(QStringView code);

}  // namespace decant
