#include "CharacterSet.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ostrak {

CharacterSet::CharacterSet(QStringView characters) {
  for (qsizetype at = 0; at < characters.size(); ++at) {
    const QChar unit = characters.at(at);
    if (unit.isHighSurrogate() && at + 1 < characters.size() &&
        characters.at(at + 1).isLowSurrogate()) {
      m_characters.append(QChar::surrogateToUcs4(unit, characters.at(++at)));
    } else {
      m_characters.append(unit.unicode());
    }
  }
  arrange();
}

const CharacterSet &CharacterSet::whitespace() {
  static const CharacterSet set(
      u"\t \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A"
      u"\u202F\u205F\u3000"_s);
  return set;
}

const CharacterSet &CharacterSet::newlines() {
  static const CharacterSet set(u"\n\v\f\r\u0085\u2028\u2029"_s);
  return set;
}

const CharacterSet &CharacterSet::whitespaceAndNewlines() {
  static const CharacterSet set = whitespace().united(newlines());
  return set;
}

const CharacterSet &CharacterSet::decimalDigits() {
  static const CharacterSet set(u"0123456789");
  return set;
}

bool CharacterSet::contains(char32_t character) const {
  return std::binary_search(m_characters.begin(), m_characters.end(), character);
}

CharacterSet CharacterSet::united(const CharacterSet &other) const {
  CharacterSet result = *this;
  result.m_characters.append(other.m_characters);
  result.arrange();
  return result;
}

void CharacterSet::arrange() {
  std::sort(m_characters.begin(), m_characters.end());
  m_characters.erase(std::unique(m_characters.begin(), m_characters.end()), m_characters.end());
}

QString stringRepresentation(const CharacterSet &set) {
  return QString::fromUcs4(set.characters().constData(), set.characters().size());
}

}  // namespace ostrak
