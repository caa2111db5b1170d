#include "TextCase.h"

#include "CharacterSet.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

const QStringList &smallWords() {
  static const QStringList list = {
      u"a"_s,    u"an"_s,   u"the"_s,  u"and"_s,  u"but"_s,  u"for"_s,  u"nor"_s,  u"or"_s,
      u"so"_s,   u"yet"_s,  u"at"_s,   u"by"_s,   u"for"_s,  u"in"_s,   u"of"_s,   u"off"_s,
      u"on"_s,   u"out"_s,  u"to"_s,   u"up"_s,   u"via"_s,  u"to"_s,   u"c"_s,    u"ca"_s,
      u"etc"_s,  u"e.g."_s, u"i.e."_s, u"vs."_s,  u"vs"_s,   u"v"_s,    u"down"_s, u"from"_s,
      u"into"_s, u"like"_s, u"near"_s, u"onto"_s, u"over"_s, u"than"_s, u"with"_s, u"upon"_s};
  return list;
}

// Length in units of the character at `at`.
qsizetype unitsAt(QStringView text, qsizetype at) {
  const bool pair =
      text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
  return pair ? 2 : 1;
}

bool isLetterOrNumberAt(QStringView text, qsizetype at) {
  return unitsAt(text, at) == 2
             ? QChar::isLetterOrNumber(QChar::surrogateToUcs4(text[at], text[at + 1]))
             : text[at].isLetterOrNumber();
}

QStringView withoutPunctuation(QStringView word) {
  while (!word.isEmpty() && word.front().isPunct()) {
    word = word.sliced(1);
  }
  while (!word.isEmpty() && word.back().isPunct()) {
    word.chop(1);
  }
  return word;
}

bool isListed(QStringView word, const QStringList &list) {
  const QStringView bare = withoutPunctuation(word);
  for (const QString &listed : list) {
    if (word.compare(listed, Qt::CaseInsensitive) == 0) return true;
    if (!bare.isEmpty() && bare.compare(listed, Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

// The first letter a capital; punctuation before it, a bracket or a quote, is stepped over, a digit
// is not.
QString withCapital(QStringView word) {
  qsizetype at = 0;
  while (at < word.size() && !isLetterOrNumberAt(word, at)) {
    at += unitsAt(word, at);
  }
  if (at == word.size()) return word.toString();
  const qsizetype units = unitsAt(word, at);
  return word.first(at).toString() + word.sliced(at, units).toString().toUpper() +
         word.sliced(at + units).toString();
}

// Every word turned by `turn`, all that stands between them kept.
template <typename Turn>
QString wordByWord(const QString &text, Turn turn) {
  const QStringView view = text;
  QString result;
  result.reserve(text.size());
  qsizetype start = 0;
  for (qsizetype at = 0; at <= view.size(); ++at) {
    const bool end = at == view.size();
    if (!end && !isWhitespace(view[at].unicode()) && !isNewline(view[at].unicode())) continue;
    if (at > start) result.append(turn(view.sliced(start, at - start)));
    if (!end) result.append(view[at]);
    start = at + 1;
  }
  return result;
}

}  // namespace

QString titlecaseString(const QString &text) {
  return titlecaseStringWithLowercaseWords(text, smallWords(), {});
}

QString titlecaseStringWithLowercaseWords(const QString &text, const QStringList &lowercaseWords,
                                          const QStringList &uppercaseWords) {
  return wordByWord(text, [&](QStringView word) {
    if (isListed(word, lowercaseWords)) return word.toString().toLower();
    if (isListed(word, uppercaseWords)) return word.toString().toUpper();
    return withCapital(word);
  });
}

QString capitalizedStringWithUppercaseWords(const QString &text,
                                            const QStringList &uppercaseWords) {
  return wordByWord(text, [&](QStringView word) {
    if (isListed(word, uppercaseWords)) return word.toString().toUpper();
    return withCapital(word.toString().toLower());
  });
}

QString propercaseString(const QString &text) {
  const QStringView view = text;
  QString result;
  result.reserve(text.size());
  bool insideLetters = false;
  for (qsizetype at = 0; at < view.size();) {
    const qsizetype units = unitsAt(view, at);
    const QString character = view.sliced(at, units).toString();
    result.append(insideLetters ? character.toLower() : character.toUpper());
    insideLetters = isLetterOrNumberAt(view, at);
    at += units;
  }
  return result;
}

}  // namespace ostrak
