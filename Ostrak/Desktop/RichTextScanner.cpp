#include "RichTextScanner.h"

#include <algorithm>

namespace ostrak {

namespace {

using Kind = RichTextToken::Kind;

constexpr qsizetype mostDigits = 9;  // more do not fit into an int

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

int hexDigit(char c) {
  if (isDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

template <typename Test>
QByteArrayView takeWhile(QByteArrayView &rest, Test test) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), test);
  const QByteArrayView taken = rest.first(end - rest.begin());
  rest = rest.sliced(taken.size());
  return taken;
}

}  // namespace

RichTextToken RichTextScanner::next() {
  while (true) {
    // Line ends are how the writer kept its lines short; they mean nothing.
    takeWhile(m_rest, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
    if (m_rest.isEmpty()) return {};
    const char first = m_rest.front();
    if (first != '{' && first != '}' && first != '\\') return letters();
    m_rest = m_rest.sliced(1);
    if (first == '{') return {Kind::Open, {}, false, 0};
    if (first == '}') return {Kind::Close, {}, false, 0};
    if (const auto token = afterBackslash()) return *token;
  }
}

std::optional<RichTextToken> RichTextScanner::afterBackslash() {
  if (m_rest.isEmpty()) return {};
  const char first = m_rest.front();
  if (isLetter(first)) return word();
  m_rest = m_rest.sliced(1);
  if (first == '\'') return hexByte();
  return RichTextToken{Kind::Symbol, QByteArray(1, first), false, 0};
}

RichTextToken RichTextScanner::word() {
  RichTextToken token{Kind::Word, takeWhile(m_rest, isLetter).toByteArray(), false, 0};
  const bool negative = m_rest.size() > 1 && m_rest[0] == '-' && isDigit(m_rest[1]);
  if (negative) m_rest = m_rest.sliced(1);
  const QByteArrayView digits = takeWhile(m_rest, isDigit);
  if (!digits.isEmpty()) {
    token.hasNumber = true;
    token.number = digits.first(std::min(digits.size(), mostDigits)).toInt();
    if (negative) token.number = -token.number;
  }
  // One blank after a word belongs to it.
  if (m_rest.startsWith(' ')) m_rest = m_rest.sliced(1);
  // The bytes of a picture or the like, which may hold braces.
  if (token.text == "bin")
    m_rest = m_rest.sliced(std::clamp<qsizetype>(token.number, 0, m_rest.size()));
  return token;
}

// Without its two digits it is nothing, and what stands there is text.
std::optional<RichTextToken> RichTextScanner::hexByte() {
  if (m_rest.size() < 2) {
    m_rest = {};
    return {};
  }
  const int high = hexDigit(m_rest[0]);
  const int low = hexDigit(m_rest[1]);
  if (high < 0 || low < 0) return {};
  m_rest = m_rest.sliced(2);
  return RichTextToken{Kind::Byte, {}, true, high * 16 + low};
}

RichTextToken RichTextScanner::letters() {
  const QByteArrayView taken = takeWhile(m_rest, [](char c) {
    return c != '{' && c != '}' && c != '\\' && c != '\r' && c != '\n' && c != '\0';
  });
  return {Kind::Letters, taken.toByteArray(), false, 0};
}

}  // namespace ostrak
