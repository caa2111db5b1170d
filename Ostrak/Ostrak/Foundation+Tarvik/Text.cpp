#include "Text.h"

#include <pwd.h>

#include <QCoreApplication>
#include <QDir>
#include <vector>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// Objects instead of functions, because a call through a pointer is not inlined.
struct Newline {
  bool operator()(char16_t unit) const { return isNewline(unit); }
};
struct Whitespace {
  bool operator()(char16_t unit) const { return isWhitespace(unit); }
};

// Calls `piece` with every part of `text` between units that `separates` answers true for.
template <typename Separates, typename Piece>
void cut(QStringView text, Separates separates, Piece piece) {
  const char16_t *start = text.utf16();
  const char16_t *const end = start + text.size();
  for (const char16_t *at = start; at != end; ++at) {
    if (separates(*at)) {
      piece(QStringView(start, at));
      start = at + 1;
    }
  }
  piece(QStringView(start, end));
}

template <typename Separates>
QList<QStringView> viewsBetween(QStringView text, Separates separates) {
  QList<QStringView> pieces;
  cut(text, separates, [&](QStringView piece) { pieces.append(piece); });
  return pieces;
}

template <typename Separates>
QStringList textsBetween(QStringView text, Separates separates) {
  QStringList pieces;
  cut(text, separates, [&](QStringView piece) { pieces.append(piece.toString()); });
  return pieces;
}

template <typename Belongs>
QStringView trimmed(QStringView text, Belongs belongs) {
  while (!text.isEmpty() && belongs(text.front().unicode())) {
    text = text.sliced(1);
  }
  while (!text.isEmpty() && belongs(text.back().unicode())) {
    text.chop(1);
  }
  return text;
}

char32_t codePoint(QStringView character) {
  return character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1])
                               : character[0].unicode();
}

QStringView firstCharacterView(QStringView text) {
  const bool pair = text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate();
  return text.first(qMin<qsizetype>(pair ? 2 : 1, text.size()));
}

QStringView lastCharacterView(QStringView text) {
  const qsizetype size = text.size();
  const bool pair = size > 1 && text[size - 2].isHighSurrogate() && text[size - 1].isLowSurrogate();
  return text.last(qMin<qsizetype>(pair ? 2 : 1, size));
}

int hexDigit(char digit) {
  if (digit >= '0' && digit <= '9') return digit - '0';
  const char lower = static_cast<char>(digit | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The home folder of the named user; null when there is no such user.
QString homeOf(const QString &user) {
  std::vector<char> buffer(1 << 14);
  passwd entry{};
  passwd *found = nullptr;
  getpwnam_r(user.toLocal8Bit().constData(), &entry, buffer.data(), buffer.size(), &found);
  return found ? QString::fromLocal8Bit(found->pw_dir) : QString();
}

}  // namespace

QStringList lines(const QString &text) {
  return textsBetween(text, Newline{});
}

QList<QStringView> lineViews(QStringView text) {
  return viewsBetween(text, Newline{});
}

QStringList words(const QString &text) {
  return textsBetween(text, Whitespace{});
}

QList<QStringView> wordViews(QStringView text) {
  return viewsBetween(text, Whitespace{});
}

QStringList split(const QString &text, const QString &separator) {
  return separator.isEmpty() ? QStringList{text} : text.split(separator);
}

QList<QStringView> splitViews(QStringView text, QStringView separator) {
  return separator.isEmpty() ? QList<QStringView>{text} : text.split(separator);
}

QString replaced(const QString &text, const QString &what, const QString &with) {
  if (what.isEmpty()) return text;
  QString result = text;
  return result.replace(what, with);
}

QString removed(const QString &text, const QString &what) {
  return replaced(text, what, u""_s);
}

QString stringByReplacingMultipleStrings(const QString &text,
                                         const QMap<QString, QString> &replacements) {
  QString result;
  for (qsizetype at = 0; at < text.size();) {
    const QStringView rest = QStringView(text).sliced(at);
    auto best = replacements.cend();
    for (auto it = replacements.cbegin(); it != replacements.cend(); ++it) {
      const bool longer = best == replacements.cend() || it.key().size() > best.key().size();
      if (longer && !it.key().isEmpty() && rest.startsWith(it.key())) best = it;
    }
    if (best == replacements.cend()) {
      result.append(text.at(at++));
    } else {
      result.append(best.value());
      at += best.key().size();
    }
  }
  return result;
}

QString trimmedOfWhitespaceAndNewlines(const QString &text) {
  return trimmedOfWhitespaceAndNewlines(QStringView(text)).toString();
}

QStringView trimmedOfWhitespaceAndNewlines(QStringView text) {
  return trimmed(text, [](char16_t unit) { return isWhitespace(unit) || isNewline(unit); });
}

QString trimmedOfWhitespace(const QString &text) {
  return trimmed(text, Whitespace{}).toString();
}

QString stringByTrimmingLeadingCharactersInSet(const QString &text, const CharacterSet &set) {
  QStringView rest = text;
  while (!rest.isEmpty() && set.contains(codePoint(firstCharacterView(rest)))) {
    rest = rest.sliced(firstCharacterView(rest).size());
  }
  return rest.toString();
}

QString stringByTrimmingTrailingCharactersInSet(const QString &text, const CharacterSet &set) {
  QStringView rest = text;
  while (!rest.isEmpty() && set.contains(codePoint(lastCharacterView(rest)))) {
    rest.chop(lastCharacterView(rest).size());
  }
  return rest.toString();
}

QString clamp(const QString &text, qsizetype length) {
  if (text.size() <= length) return text;
  if (length <= 0) return u""_s;
  const bool halvesPair = text.at(length - 1).isHighSurrogate() && text.at(length).isLowSurrogate();
  return text.first(halvesPair ? length - 1 : length);
}

QString firstCharacter(QStringView text) {
  return firstCharacterView(text).toString();
}

QString lastCharacter(QStringView text) {
  return lastCharacterView(text).toString();
}

TextRange fullRange(QStringView text) {
  return {0, text.size()};
}

QString escaped(const QString &text) {
  static const QByteArray allowedBesidesUnreserved = "!$&'()*+,/:;=?@"_ba;
  return QString::fromLatin1(QUrl::toPercentEncoding(text, allowedBesidesUnreserved));
}

QString unescaped(const QString &text) {
  const QByteArray bytes = text.toUtf8();
  QByteArray result;
  result.reserve(bytes.size());
  for (qsizetype at = 0; at < bytes.size(); ++at) {
    const bool room = bytes[at] == '%' && at + 2 < bytes.size();
    const int high = room ? hexDigit(bytes[at + 1]) : -1;
    const int low = room ? hexDigit(bytes[at + 2]) : -1;
    if (high < 0 || low < 0) {
      result.append(bytes[at]);
    } else {
      result.append(static_cast<char>(high * 16 + low));
      at += 2;
    }
  }
  return QString::fromUtf8(result);
}

QString localized(const QString &key) {
  return QCoreApplication::translate("decant", key.toUtf8().constData());
}

QString hyperlinkWithURL(const QString &text, const QUrl &address) {
  const QString target = address.toString(QUrl::FullyEncoded).toHtmlEscaped();
  return u"<a href=\""_s + target + u"\">"_s + text.toHtmlEscaped() + u"</a>"_s;
}

QString expanded(const QString &path) {
  if (!path.startsWith(u'~')) return path;
  const qsizetype slash = path.indexOf(u'/');
  const qsizetype end = slash < 0 ? path.size() : slash;
  const QString user = path.sliced(1, end - 1);
  const QString home = user.isEmpty() ? QDir::homePath() : homeOf(user);
  return home.isNull() ? path : QString(home + path.sliced(end));
}

QByteArray data(QStringView text) {
  return text.toUtf8();
}

}  // namespace ostrak
