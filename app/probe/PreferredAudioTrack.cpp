#include "PreferredAudioTrack.h"

#include <array>
#include <iterator>

#include "Exceptions.h"
#include "Format.h"
#include "LanguageTable.h"

namespace decant {

using namespace Qt::StringLiterals;

namespace {

// What the values 2 to 8 of "DefaultAudio" stand for.
constexpr std::array<QStringView, 7> fixedLanguages = {u"eng", u"ger", u"fre", u"spa",
                                                       u"chi", u"jpn", u"rus"};
constexpr qint64 firstFixedLanguage = 2;

QStringList languagesOfChoice(const QStringList &preferredLanguages, int defaultAudio) {
  if (defaultAudio == 0) return preferredLanguages;
  const qint64 index = qint64{defaultAudio} - firstFixedLanguage;
  if (index < 0 || index >= std::ssize(fixedLanguages)) {
    throw ostrak::RangeError(
        ostrak::makeString(u"the language choice %i names no language"_s, defaultAudio));
  }
  return {fixedLanguages[static_cast<size_t>(index)].toString()};
}

// Position of the language among the preferred ones; their number when it is absent.
qsizetype rankOf(QStringView language, const QStringList &preferred) {
  qsizetype rank = 0;
  for (const QString &each : preferred) {
    if (bibliographicOf(each) == bibliographicOf(language)) break;
    ++rank;
  }
  return rank;
}

// 'de_DE.UTF-8' and 'de-DE' give "de", 'sr@latin' "sr", 'C.UTF-8' "en".
QString identifierOfLocale(QStringView locale) {
  qsizetype length = 0;
  while (length < locale.size() && !QStringView(u"_-.@").contains(locale[length]))
    ++length;
  const QStringView language = locale.first(length);
  return language == u"C" || language == u"POSIX" ? u"en"_s : language.toString();
}

}  // namespace

QStringList preferredLanguages3Letter(const QStringList &identifiers) {
  QStringList codes;
  for (const QString &identifier : identifiers) {
    const QStringView code = bibliographicOfTwoLetters(identifier);
    codes.append(code.isNull() ? identifier : code.toString());
  }
  return codes;
}

QStringList preferredLanguageIdentifiers(const QString &language, const QString &lcAll,
                                         const QString &lcMessages, const QString &lang) {
  QStringList identifiers;
  for (const QStringView locale : QStringView(language).split(u':')) {
    const QString identifier = identifierOfLocale(locale);
    if (!identifier.isEmpty()) identifiers.append(identifier);
  }
  if (!identifiers.isEmpty()) return identifiers;

  for (const QString &locale : {lcAll, lcMessages, lang}) {
    const QString identifier = identifierOfLocale(locale);
    if (!identifier.isEmpty()) return {identifier};
  }
  return {u"en"_s};
}

std::optional<int> bestAudioTrack(const QList<AudioTrackDescription> &tracks,
                                  const QStringList &preferredLanguages, int defaultAudio) {
  const QStringList preferred = languagesOfChoice(preferredLanguages, defaultAudio);
  qsizetype bestRank = preferred.size();
  QList<int> candidates;
  for (int index = 0; index < static_cast<int>(tracks.size()); ++index) {
    const qsizetype rank = rankOf(trackLanguage(tracks[index]), preferred);
    if (rank < bestRank) {
      bestRank = rank;
      candidates.clear();
    }
    if (rank == bestRank) candidates.append(index);
  }
  if (candidates.isEmpty()) return {};

  for (const QStringView codec : {QStringView(u"aac"), QStringView(u"ac3")}) {
    for (const int index : candidates) {
      if (trackCodec(tracks[index]) == codec) return index;
    }
  }
  return candidates.first();
}

}  // namespace decant
