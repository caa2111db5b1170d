#include <QRegularExpression>
#include <QTest>

#include "RichText.h"

using namespace Qt::StringLiterals;
using ostrak::readRichText;
using ostrak::RichParagraph;
using ostrak::RichRun;

namespace {

// A paragraph as a line: marks for the list and the alignment, then runs with their marks.
QString lineOf(const RichParagraph &paragraph) {
  QString line;
  if (paragraph.list == RichParagraph::List::Bullets) line += u"* "_s;
  if (paragraph.list == RichParagraph::List::Numbers) line += u"# "_s;
  if (paragraph.level > 0) line += u"level %1 "_s.arg(paragraph.level);
  if (paragraph.alignment == RichParagraph::Alignment::Center) line += u"centre "_s;
  if (paragraph.alignment == RichParagraph::Alignment::Right) line += u"right "_s;
  if (paragraph.alignment == RichParagraph::Alignment::Justify) line += u"justify "_s;
  if (paragraph.indent > 0) line += u"in %1 "_s.arg(paragraph.indent);
  if (paragraph.before > 0 || paragraph.after > 0)
    line += u"room %1+%2 "_s.arg(paragraph.before).arg(paragraph.after);
  for (const RichRun &run : paragraph.runs) {
    QString marks;
    if (run.bold) marks += u'b';
    if (run.italic) marks += u'i';
    if (run.underline) marks += u'u';
    if (run.points > 0) marks += QString::number(run.points);
    if (run.color)
      marks += u'#' + QString::number(*run.color & 0xffffff, 16).rightJustified(6, u'0');
    if (!run.link.isEmpty()) marks += u'@' + run.link;
    line += marks.isEmpty() ? run.text : QString(u'<' + marks + u'|' + run.text + u'>');
  }
  return line;
}

QString shown(const QByteArray &document) {
  QStringList lines;
  for (const RichParagraph &paragraph : readRichText(document))
    lines.append(lineOf(paragraph));
  return lines.join(u" / "_s);
}

}  // namespace

class TestRichText final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void reads_data() {
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const char *document, const QString &expected) {
      QTest::newRow(name) << QByteArray(document) << expected;
    };
    row("text", "{\\rtf1\\ansi Hello}", u"Hello"_s);
    row("paragraphs", "{\\rtf1 one\\par two\\par}", u"one / two"_s);
    row("an empty paragraph", "{\\rtf1 one\\par\\par two}", u"one /  / two"_s);
    row("line ends mean nothing", "{\\rtf1 one\r\ntwo\\par\nthree}", u"onetwo / three"_s);
    row("an escaped line end", "{\\rtf1 one\\\ntwo}", u"one / two"_s);
    row("bold", "{\\rtf1 a \\b b\\b0  c}", u"a <b|b> c"_s);
    row("a group ends the look", "{\\rtf1 a {\\b b} c}", u"a <b|b> c"_s);
    row("looks mix", "{\\rtf1{\\b\\i both\\b0 one}{\\ul line\\ulnone none}}",
        u"<bi|both><i|one><u|line>none"_s);
    row("plain ends all", "{\\rtf1\\b\\i\\fs40 a\\plain b}", u"<bi20|a>b"_s);
    row("alike runs are one", "{\\rtf1{\\b a}{\\b b}c}", u"<b|ab>c"_s);
    row("sizes", "{\\rtf1\\fs48 big\\fs21 odd}", u"<24|big><10.5|odd>"_s);
    row("colours",
        "{\\rtf1{\\colortbl;\\red255\\green0\\blue0;\\red1\\green2\\blue3;}"
        "a{\\cf1 b}{\\cf2 c}\\cf0 d\\cf9 e}",
        u"a<#ff0000|b><#010203|c>de"_s);
    row("alignment", "{\\rtf1\\qc a\\par\\qr b\\par\\qj c\\par\\pard d}",
        u"centre a / right b / justify c / d"_s);
    row("indent and room", "{\\rtf1\\li360\\sb120\\sa60 a\\par\\pard b}",
        u"in 18 room 6+3 a / b"_s);
    row("bullets",
        "{\\rtf1\\pard{\\listtext\\'95\\tab}\\ls1 a\\par{\\listtext\\'95\\tab}b\\par\\pard c}",
        u"* a / * b / c"_s);
    row("numbers", "{\\rtf1\\pard{\\listtext 1.\\tab}\\ls2\\ilvl0 a\\par\\pard{\\pntext 2.}b}",
        u"# a / # b"_s);
    row("inner list", "{\\rtf1\\pard\\ls1\\ilvl1 a}", u"* level 1 a"_s);
    row("link",
        "{\\rtf1 see {\\field{\\*\\fldinst{HYPERLINK \"https://a.example/?b\"}}"
        "{\\fldrslt{\\ul here}}} now}",
        u"see <u@https://a.example/?b|here> now"_s);
    row("link without quotes",
        "{\\rtf1{\\field{\\*\\fldinst hyperlink mailto:a@b.example \\\\o}{\\fldrslt mail}}}",
        u"<@mailto:a@b.example|mail>"_s);
    row("another field",
        "{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"https://a.example/\"}{\\fldrslt a}}"
        "{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}{\\field{\\fldrslt 8}}}",
        u"<@https://a.example/|a>78"_s);
    row("unicode", "{\\rtf1 a\\u228?b\\u8364\\'80c}", u"aäb€c"_s);
    row("unicode beyond", "{\\rtf1 \\u-10179?\\u-8704?!}", u"\U0001F600!"_s);
    row("stand-ins counted", "{\\rtf1\\uc2 \\u228 ae.{\\uc0 \\u246 x}\\uc1\\u252\\{y}",
        u"ä.öxüy"_s);
    row("a group ends the stand-ins", "{\\rtf1{\\u228}a}", u"äa"_s);
    row("code page", "{\\rtf1\\ansi\\ansicpg1252 \\'e4\\'80\\'93\\'81.}", u"ä€“."_s);
    row("named letters",
        "{\\rtf1 a\\emdash b\\endash\\ldblquote c\\rdblquote\\rquote\\tab d\\line e}",
        u"a\u2014b\u2013\u201cc\u201d\u2019\td\ne"_s);
    row("symbols", "{\\rtf1 \\{\\}\\\\a\\~b\\_c\\-d}", u"{}\\a\u00a0b\u2011c\u00add"_s);
    row("what is not text",
        "{\\rtf1{\\fonttbl{\\f0 Font;}}{\\stylesheet{\\s0 Normal;}}{\\info{\\title T}}"
        "{\\*\\generator G;}{\\pict\\pngblip 00ff}{\\header H}{\\*\\unknown{\\b x}}text}",
        u"text"_s);
    row("unknown words", "{\\rtf1\\deflang1031\\widowctrl a\\foo12 b\\bar}", u"ab"_s);
    row("a table", "{\\rtf1\\trowd\\cellx100 a\\cell b\\cell\\row c}", u"a\tb\t / c"_s);
    row("bytes of a picture", "{\\rtf1 a{\\pict\\bin5 }}}}}}b}", u"ab"_s);
  }
  void reads() {
    QFETCH(QByteArray, document);
    QTEST(shown(document), "expected");
  }

  void survivesDamage_data() {
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &document, const QString &expected) {
      QTest::newRow(name) << document << expected;
    };
    row("nothing", {}, u""_s);
    row("no such document", "<html>", u""_s);
    row("only the beginning", "{\\rtf", u""_s);
    row("cut within a group", "{\\rtf1 a{\\b b", u"a<b|b>"_s);
    row("cut after a backslash", "{\\rtf1 a\\", u"a"_s);
    row("cut within a byte", "{\\rtf1 a\\'4", u"a"_s);
    row("no digits in a byte", "{\\rtf1 a\\'zzb", u"azzb"_s);
    row("many bytes without digits", "{\\rtf1 a" + QByteArray("\\'").repeated(1'000'000) + "zb}",
        u"azb"_s);
    row("too many ends", "{\\rtf1 a}}}} b", u"a b"_s);
    row("a huge number", "{\\rtf1\\fs99999999999999999999 a}", u"<200|a>"_s);
    row("a negative size", "{\\rtf1\\fs-40 a\\li-500 b}", u"ab"_s);
    row("bytes past the end", "{\\rtf1 a\\bin999999 b", u"a"_s);
    row("negative bytes", "{\\rtf1 a\\bin-5 b", u"ab"_s);
    row("a colour that is not there", "{\\rtf1\\cf-3 a}", u"a"_s);
    row("an empty mark of a list", "{\\rtf1{\\listtext  }a}", u"* a"_s);
    row("a star and nothing", "{\\rtf1 a{\\*}b\\*}", u"ab"_s);
    row("zero bytes", QByteArray("{\\rtf1 a\0b}", 12), u"ab"_s);
    row("very deep", "{\\rtf1 a" + QByteArray(100'000, '{') + "b" + QByteArray(100'000, '}') + "c}",
        u"ac"_s);
  }
  void survivesDamage() {
    QFETCH(QByteArray, document);
    QTEST(shown(document), "expected");
  }

  // Every beginning of a document is one that a full disk may have left.
  void survivesEveryCut() {
    const QByteArray whole =
        "{\\rtf1\\ansi{\\colortbl;\\red9\\green9\\blue9;}\\cf1\\b a\\u-10179?\\u-8704?"
        "{\\field{\\*\\fldinst{HYPERLINK \"x:y\"}}{\\fldrslt l}}{\\listtext 1.}\\ls1\\'e4\\par}";
    for (qsizetype size = 0; size <= whole.size(); ++size)
      QVERIFY(readRichText(whole.first(size)).size() <= 2);
  }
};

QTEST_GUILESS_MAIN(TestRichText)
#include "tst_richtext.moc"
