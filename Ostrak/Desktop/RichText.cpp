#include "RichText.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <utility>

#include "RichTextScanner.h"

namespace ostrak {
using namespace Qt::StringLiterals;

namespace {

using Kind = RichTextToken::Kind;

constexpr double twipsPerPoint = 20;
constexpr qsizetype deepest = 256;  // groups within groups; no writer comes near
constexpr int deepestList = 8;

// What the bytes 0x80 to 0x9f mean in code page 1252; 0 where they mean nothing.
constexpr std::array<char16_t, 32> windowsLetters{
    0x20ac, 0,      0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017d, 0,      0,      0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0,      0x017e, 0x0178};

// Where the text of a group goes.
enum class Place { Text, Nowhere, Colors, Instruction, Marker };

struct Group {
  RichRun look;
  Place place = Place::Text;
  int skipAfterUnicode = 1;  // stand-ins that follow a letter given by its number
};

const std::unordered_map<std::string, Place> &destinations() {
  static const std::unordered_map<std::string, Place> places{
      {"fonttbl", Place::Nowhere},     {"stylesheet", Place::Nowhere},
      {"info", Place::Nowhere},        {"pict", Place::Nowhere},
      {"object", Place::Nowhere},      {"header", Place::Nowhere},
      {"headerl", Place::Nowhere},     {"headerr", Place::Nowhere},
      {"headerf", Place::Nowhere},     {"footer", Place::Nowhere},
      {"footerl", Place::Nowhere},     {"footerr", Place::Nowhere},
      {"footerf", Place::Nowhere},     {"footnote", Place::Nowhere},
      {"listtable", Place::Nowhere},   {"colortbl", Place::Colors},
      {"fldinst", Place::Instruction}, {"listtext", Place::Marker},
      {"pntext", Place::Marker},       {"listoverridetable", Place::Nowhere}};
  return places;
}

const std::unordered_map<std::string, QString> &namedLetters() {
  static const std::unordered_map<std::string, QString> letters{
      {"tab", u"\t"_s},        {"cell", u"\t"_s},          {"line", u"\n"_s},
      {"emdash", u"\u2014"_s}, {"endash", u"\u2013"_s},    {"lquote", u"\u2018"_s},
      {"rquote", u"\u2019"_s}, {"ldblquote", u"\u201c"_s}, {"rdblquote", u"\u201d"_s},
      {"bullet", u"\u2022"_s}, {"emspace", u"\u2003"_s},   {"enspace", u"\u2002"_s}};
  return letters;
}

QString lettersOf(const QByteArray &bytes) {
  QString letters;
  letters.reserve(bytes.size());
  for (const char each : bytes) {
    const auto value = static_cast<unsigned char>(each);
    const bool isSpecial = value >= 0x80 && value <= 0x9f;
    const char16_t letter = isSpecial ? windowsLetters.at(value - 0x80u) : char16_t(value);
    if (letter != 0) letters.append(QChar(letter));
  }
  return letters;
}

// The address in `HYPERLINK "address"`; what follows it names windows and places and is left out.
QString linkOf(const QString &instruction) {
  const QString trimmed = instruction.trimmed();
  if (!trimmed.startsWith("HYPERLINK"_L1, Qt::CaseInsensitive)) return {};
  const QString rest = trimmed.sliced(9).trimmed();
  if (rest.startsWith(u'"')) return rest.sliced(1).section(u'"', 0, 0);
  return rest.section(u' ', 0, 0);
}

class Reader final {
 public:
  explicit Reader(QByteArrayView document) : m_scanner(document) {}
  QList<RichParagraph> read();

 private:
  void take(const RichTextToken &token);
  void open();
  void close();
  void word(const RichTextToken &token);
  bool changesLook(const RichTextToken &token);
  bool changesParagraph(const RichTextToken &token);
  void number(int value);
  void symbol(char which);
  void put(const QString &text);
  void putColor(const RichTextToken &token);
  void endParagraph();
  [[nodiscard]] Group &group() { return m_groups.back(); }
  // Whether this piece stands in for a letter that was already given by its number.
  bool isStandIn();

  RichTextScanner m_scanner;
  QList<Group> m_groups{Group()};
  qsizetype m_tooDeep = 0;
  QList<std::optional<QRgb>> m_colors;
  std::optional<QRgb> m_color;  // of the table, while it is read
  QString m_instruction;
  QString m_marker;
  bool m_starred = false;  // the next word names something that may be left out
  int m_standIns = 0;
  RichParagraph m_paragraph;
  QList<RichParagraph> m_paragraphs;
};

QList<RichParagraph> Reader::read() {
  for (RichTextToken token = m_scanner.next(); token.kind != Kind::End; token = m_scanner.next())
    take(token);
  if (!m_paragraph.runs.isEmpty()) endParagraph();
  return m_paragraphs;
}

void Reader::take(const RichTextToken &token) {
  if (token.kind == Kind::Open) return open();
  if (token.kind == Kind::Close) return close();
  if (m_tooDeep > 0) return;
  switch (token.kind) {
    case Kind::Word:
      return word(token);
    case Kind::Symbol:
      return symbol(token.text.front());
    case Kind::Byte:
      if (!isStandIn()) put(lettersOf(QByteArray(1, static_cast<char>(token.number))));
      return;
    default:
      break;
  }
  const qsizetype skipped = std::min<qsizetype>(m_standIns, token.text.size());
  m_standIns -= static_cast<int>(skipped);
  put(lettersOf(token.text.sliced(skipped)));
}

bool Reader::isStandIn() {
  if (m_standIns == 0) return false;
  --m_standIns;
  return true;
}

void Reader::open() {
  m_standIns = 0;
  m_starred = false;
  if (m_tooDeep > 0 || m_groups.size() >= deepest)
    ++m_tooDeep;
  else
    m_groups.append(Group(group()));
}

void Reader::close() {
  m_standIns = 0;
  if (m_tooDeep > 0)
    --m_tooDeep;
  else if (m_groups.size() > 1)
    m_groups.removeLast();
}

void Reader::word(const RichTextToken &token) {
  const bool mayBeLeftOut = std::exchange(m_starred, false);
  const std::string name = token.text.toStdString();
  if (group().place == Place::Nowhere) return;
  if (group().place == Place::Colors) return putColor(token);
  if (const auto found = destinations().find(name); found != destinations().end()) {
    group().place = found->second;
    if (found->second == Place::Instruction) m_instruction.clear();
    if (found->second == Place::Marker) m_marker.clear();
    return;
  }
  if (name == "field") return m_instruction.clear();
  if (name == "fldrslt") {
    group().look.link = linkOf(m_instruction);
    return;
  }
  if (mayBeLeftOut) {
    group().place = Place::Nowhere;
    return;
  }
  if (name == "u") return number(token.number);
  if (const auto found = namedLetters().find(name); found != namedLetters().end()) {
    if (!isStandIn()) put(found->second);
    return;
  }
  if (name == "par" || name == "row" || name == "sect" || name == "page") {
    if (group().place == Place::Text) endParagraph();
    return;
  }
  if (!changesLook(token)) (void)changesParagraph(token);
}

bool Reader::changesLook(const RichTextToken &token) {
  RichRun &look = group().look;
  const bool on = !token.hasNumber || token.number != 0;
  if (token.text == "b") {
    look.bold = on;
  } else if (token.text == "i") {
    look.italic = on;
  } else if (token.text == "ul") {
    look.underline = on;
  } else if (token.text == "ulnone") {
    look.underline = false;
  } else if (token.text == "fs") {
    look.points = std::clamp(token.number, 0, 400) / 2.0;
  } else if (token.text == "cf") {
    look.color = m_colors.value(token.number);
  } else if (token.text == "uc") {
    group().skipAfterUnicode = std::clamp(token.number, 0, 16);
  } else if (token.text == "plain") {
    const QString link = look.link;
    look = {};
    look.link = link;
  } else {
    return false;
  }
  return true;
}

bool Reader::changesParagraph(const RichTextToken &token) {
  using Alignment = RichParagraph::Alignment;
  const double points = std::clamp(token.number / twipsPerPoint, 0.0, 400.0);
  if (token.text == "pard") {
    const QList<RichRun> runs = m_paragraph.runs;
    m_paragraph = {};
    m_paragraph.runs = runs;
  } else if (token.text == "ql") {
    m_paragraph.alignment = Alignment::Left;
  } else if (token.text == "qc") {
    m_paragraph.alignment = Alignment::Center;
  } else if (token.text == "qr") {
    m_paragraph.alignment = Alignment::Right;
  } else if (token.text == "qj") {
    m_paragraph.alignment = Alignment::Justify;
  } else if (token.text == "li") {
    m_paragraph.indent = points;
  } else if (token.text == "sb") {
    m_paragraph.before = points;
  } else if (token.text == "sa") {
    m_paragraph.after = points;
  } else if (token.text == "ilvl") {
    m_paragraph.level = std::clamp(token.number, 0, deepestList);
  } else if (token.text == "ls" && m_paragraph.list == RichParagraph::List::None) {
    m_paragraph.list = RichParagraph::List::Bullets;
  } else {
    return false;
  }
  return true;
}

// A unit of UTF-16; the larger half of them is written as negative numbers.
void Reader::number(int value) {
  put(QString(QChar(static_cast<char16_t>(value))));
  m_standIns = group().skipAfterUnicode;
}

void Reader::symbol(char which) {
  if (which == '*') {
    m_starred = true;
    return;
  }
  if (isStandIn()) return;
  switch (which) {
    case '~':
      return put(u"\u00a0"_s);
    case '_':
      return put(u"\u2011"_s);
    case '-':
      return put(u"\u00ad"_s);
    case '\n':
    case '\r':
      if (group().place == Place::Text) endParagraph();
      return;
    case '\\':
    case '{':
    case '}':
      return put(QString(QLatin1Char(which)));
    default:
      return;
  }
}

void Reader::put(const QString &text) {
  if (text.isEmpty()) return;
  switch (group().place) {
    case Place::Nowhere:
      return;
    case Place::Colors:
      for (qsizetype i = 0; i < text.count(u';'); ++i)
        m_colors.append(std::exchange(m_color, {}));
      return;
    case Place::Instruction:
      m_instruction.append(text);
      return;
    case Place::Marker:
      m_marker = QString(m_marker + text).trimmed();
      m_paragraph.list = !m_marker.isEmpty() && m_marker.front().isDigit()
                             ? RichParagraph::List::Numbers
                             : RichParagraph::List::Bullets;
      return;
    case Place::Text:
      break;
  }
  RichRun run = group().look;
  if (!m_paragraph.runs.isEmpty()) {
    RichRun &last = m_paragraph.runs.last();
    run.text = last.text;
    if (run == last) {
      last.text.append(text);
      return;
    }
  }
  run.text = text;
  m_paragraph.runs.append(run);
}

void Reader::putColor(const RichTextToken &token) {
  const QRgb before = m_color.value_or(qRgb(0, 0, 0));
  const int part = std::clamp(token.number, 0, 255);
  if (token.text == "red")
    m_color = qRgb(part, qGreen(before), qBlue(before));
  else if (token.text == "green")
    m_color = qRgb(qRed(before), part, qBlue(before));
  else if (token.text == "blue")
    m_color = qRgb(qRed(before), qGreen(before), part);
}

// The next one looks alike until it says otherwise.
void Reader::endParagraph() {
  m_paragraphs.append(m_paragraph);
  m_paragraph.runs.clear();
  m_marker.clear();
}

}  // namespace

QList<RichParagraph> readRichText(QByteArrayView document) {
  if (!document.startsWith("{\\rtf")) return {};
  return Reader(document).read();
}

}  // namespace ostrak
