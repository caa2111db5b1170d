#include <QCoreApplication>
#include <QDir>
#include <QTest>
#include <QTranslator>

#include "Text.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

// Knows one text of the program, and the same text of another context that must not be taken.
class OneTranslation final : public QTranslator {
 public:
  [[nodiscard]] QString translate(const char *context, const char *sourceText, const char *,
                                  int) const override {
    if (QByteArrayView(sourceText) != QByteArrayView("Queued")) return {};
    return QByteArrayView(context) == QByteArrayView("decant") ? u"Wartend"_s : u"falsch"_s;
  }
  [[nodiscard]] bool isEmpty() const override { return false; }
};

QStringList texts(const QList<QStringView> &views) {
  QStringList result;
  for (const QStringView view : views) {
    result.append(view.toString());
  }
  return result;
}

}  // namespace

class TestText final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void splitsLines_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty") << u""_s << QStringList{u""_s};
    QTest::newRow("no break") << u"a b"_s << QStringList{u"a b"_s};
    QTest::newRow("line feed") << u"a\nb"_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("at the end") << u"a\n"_s << QStringList{u"a"_s, u""_s};
    QTest::newRow("only breaks") << u"\n\n"_s << QStringList{u""_s, u""_s, u""_s};
    QTest::newRow("carriage return and line feed")
        << u"a\r\nb"_s << QStringList{u"a"_s, u""_s, u"b"_s};
    QTest::newRow("every kind") << u"1\n2\r3\v4\f5\u00856\u20287\u20298"_s
                                << QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s,
                                               u"5"_s, u"6"_s, u"7"_s, u"8"_s};
    QTest::newRow("neighbours of breaks") << u"\u0009\u000E\u0084\u0086\u2027\u202A"_s
                                          << QStringList{u"\u0009\u000E\u0084\u0086\u2027\u202A"_s};
    QTest::newRow("pairs") << u"😀\n😀"_s << QStringList{u"😀"_s, u"😀"_s};
  }
  void splitsLines() {
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QCOMPARE(lines(text), expected);
    QCOMPARE(texts(lineViews(text)), expected);
  }

  void splitsWords_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty") << u""_s << QStringList{u""_s};
    QTest::newRow("two") << u"a b"_s << QStringList{u"a"_s, u"b"_s};
    QTest::newRow("run of blanks") << u"a  b"_s << QStringList{u"a"_s, u""_s, u"b"_s};
    QTest::newRow("around") << u" a\t"_s << QStringList{u""_s, u"a"_s, u""_s};
    QTest::newRow("wide blanks") << u"a\u00A0b\u2003c\u3000d"_s
                                 << QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s};
    QTest::newRow("a line break is none") << u"a\nb"_s << QStringList{u"a\nb"_s};
  }
  void splitsWords() {
    QFETCH(QString, text);
    QFETCH(QStringList, expected);
    QCOMPARE(words(text), expected);
    QCOMPARE(texts(wordViews(text)), expected);
  }

  void splits_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("empty text") << u""_s << u","_s << QStringList{u""_s};
    QTest::newRow("empty separator") << u"abc"_s << u""_s << QStringList{u"abc"_s};
    QTest::newRow("absent") << u"abc"_s << u","_s << QStringList{u"abc"_s};
    QTest::newRow("empty pieces") << u",a,,b,"_s << u","_s
                                  << QStringList{u""_s, u"a"_s, u""_s, u"b"_s, u""_s};
    QTest::newRow("longer separator") << u"Stream #0:1: Audio: ac3"_s << u": "_s
                                      << QStringList{u"Stream #0:1"_s, u"Audio"_s, u"ac3"_s};
    QTest::newRow("overlapping") << u"aaa"_s << u"aa"_s << QStringList{u""_s, u"a"_s};
    QTest::newRow("case counts") << u"aXbxc"_s << u"x"_s << QStringList{u"aXb"_s, u"c"_s};
  }
  void splits() {
    QFETCH(QString, text);
    QFETCH(QString, separator);
    QFETCH(QStringList, expected);
    QCOMPARE(split(text, separator), expected);
    QCOMPARE(texts(splitViews(text, separator)), expected);
  }

  void replaces_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("with");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty text") << u""_s << u"a"_s << u"b"_s << u""_s;
    QTest::newRow("every one") << u"abab"_s << u"a"_s << u"xx"_s << u"xxbxxb"_s;
    QTest::newRow("absent") << u"ab"_s << u"c"_s << u"d"_s << u"ab"_s;
    QTest::newRow("nothing") << u"ab"_s << u""_s << u"d"_s << u"ab"_s;
    QTest::newRow("not again") << u"aa"_s << u"a"_s << u"aa"_s << u"aaaa"_s;
    QTest::newRow("no pattern") << u"a.b"_s << u"."_s << u"\\1"_s << u"a\\1b"_s;
    QTest::newRow("by nothing") << u"a-b-c"_s << u"-"_s << u""_s << u"abc"_s;
  }
  void replaces() {
    QFETCH(QString, text);
    QFETCH(QString, what);
    QFETCH(QString, with);
    QTEST(replaced(text, what, with), "expected");
    QCOMPARE(removed(text, what), replaced(text, what, u""_s));
  }

  void replacesSeveral() {
    using Pairs = QMap<QString, QString>;
    QCOMPARE(stringByReplacingMultipleStrings(u"ab"_s, Pairs{{u"a"_s, u"b"_s}, {u"b"_s, u"a"_s}}),
             u"ba"_s);
    QCOMPARE(stringByReplacingMultipleStrings(u"abc"_s, Pairs{{u"a"_s, u"1"_s}, {u"ab"_s, u"2"_s}}),
             u"2c"_s);
    QCOMPARE(stringByReplacingMultipleStrings(u"abc"_s, Pairs{{u""_s, u"1"_s}}), u"abc"_s);
    QCOMPARE(stringByReplacingMultipleStrings(u"abc"_s, Pairs{}), u"abc"_s);
    QCOMPARE(stringByReplacingMultipleStrings(u""_s, Pairs{{u"a"_s, u"1"_s}}), u""_s);
  }

  void trims_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ofAll");
    QTest::addColumn<QString>("ofBlanks");
    QTest::newRow("empty") << u""_s << u""_s << u""_s;
    QTest::newRow("nothing to do") << u"a b"_s << u"a b"_s << u"a b"_s;
    QTest::newRow("blanks") << u" \t\u00A0a b\u3000 "_s << u"a b"_s << u"a b"_s;
    QTest::newRow("breaks") << u" \n\r\u2028a\u0085\v "_s << u"a"_s << u"\n\r\u2028a\u0085\v"_s;
    QTest::newRow("only blanks") << u" \t "_s << u""_s << u""_s;
    QTest::newRow("not white") << u"\u200Ba\u200B"_s << u"\u200Ba\u200B"_s << u"\u200Ba\u200B"_s;
  }
  void trims() {
    QFETCH(QString, text);
    QTEST(trimmedOfWhitespaceAndNewlines(text), "ofAll");
    QCOMPARE(trimmedOfWhitespaceAndNewlines(QStringView(text)),
             trimmedOfWhitespaceAndNewlines(text));
    QTEST(trimmedOfWhitespace(text), "ofBlanks");
  }

  void trimsSets() {
    const CharacterSet set(u"-😀");
    QCOMPARE(stringByTrimmingLeadingCharactersInSet(u"-😀-a-😀"_s, set), u"a-😀"_s);
    QCOMPARE(stringByTrimmingTrailingCharactersInSet(u"-😀-a-😀"_s, set), u"-😀-a"_s);
    QCOMPARE(stringByTrimmingLeadingCharactersInSet(u"--"_s, set), u""_s);
    QCOMPARE(stringByTrimmingTrailingCharactersInSet(u"--"_s, set), u""_s);
    QCOMPARE(stringByTrimmingLeadingCharactersInSet(u""_s, set), u""_s);
    QCOMPARE(stringByTrimmingTrailingCharactersInSet(u""_s, set), u""_s);
    QCOMPARE(stringByTrimmingLeadingCharactersInSet(u"😁a"_s, set), u"😁a"_s);
    QCOMPARE(stringByTrimmingTrailingCharactersInSet(u"a-"_s, CharacterSet()), u"a-"_s);
  }

  void clamps_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("length");
    QTest::addColumn<QString>("expected");
    QTest::newRow("400 of 400") << QString(400, u'x') << qsizetype{400} << QString(400, u'x');
    QTest::newRow("401 of 400") << QString(QString(400, u'x') + u'y') << qsizetype{400}
                                << QString(400, u'x');
    QTest::newRow("empty") << u""_s << qsizetype{3} << u""_s;
    QTest::newRow("to nothing") << u"abc"_s << qsizetype{0} << u""_s;
    QTest::newRow("below nothing") << u"abc"_s << qsizetype{-1} << u""_s;
    QTest::newRow("no half pair") << u"a😀b"_s << qsizetype{2} << u"a"_s;
    QTest::newRow("whole pair") << u"a😀b"_s << qsizetype{3} << u"a😀"_s;
  }
  void clamps() {
    QFETCH(QString, text);
    QFETCH(qsizetype, length);
    QTEST(clamp(text, length), "expected");
  }

  void givesFirstAndLast_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("last");
    QTest::newRow("empty") << u""_s << u""_s << u""_s;
    QTest::newRow("one") << u"a"_s << u"a"_s << u"a"_s;
    QTest::newRow("several") << u"abc"_s << u"a"_s << u"c"_s;
    QTest::newRow("pairs") << u"😀b😁"_s << u"😀"_s << u"😁"_s;
    const QString half(QChar(0xD83D));
    QTest::newRow("half a pair") << half << half << half;
  }
  void givesFirstAndLast() {
    QFETCH(QString, text);
    QTEST(firstCharacter(text), "first");
    QTEST(lastCharacter(text), "last");
    QCOMPARE(fullRange(text), (TextRange{0, text.size()}));
  }

  void escapes_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const QString kept =
        u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789!$&'()*+,-./:;=?@_~"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("what a query allows") << kept << kept;
    QTest::newRow("the rest of ASCII")
        << u" \"#%<>[\\]^`{|}\n\u007F"_s << u"%20%22%23%25%3C%3E%5B%5C%5D%5E%60%7B%7C%7D%0A%7F"_s;
    QTest::newRow("UTF-8") << u"ä€😀"_s << u"%C3%A4%E2%82%AC%F0%9F%98%80"_s;
  }
  void escapes() {
    QFETCH(QString, text);
    QTEST(escaped(text), "expected");
    QCOMPARE(unescaped(escaped(text)), text);
  }

  void unescapes_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("either case") << u"%c3%A4"_s << u"ä"_s;
    QTest::newRow("plus stays") << u"a+b"_s << u"a+b"_s;
    QTest::newRow("once only") << u"%2541"_s << u"%41"_s;
    QTest::newRow("no digits") << u"100%zz"_s << u"100%zz"_s;
    QTest::newRow("one digit") << u"%4"_s << u"%4"_s;
    QTest::newRow("at the end") << u"5%"_s << u"5%"_s;
    QTest::newRow("last three") << u"x%41"_s << u"xA"_s;
    QTest::newRow("not UTF-8") << u"a%FFb"_s << u"a\uFFFDb"_s;
  }
  void unescapes() {
    QFETCH(QString, text);
    QTEST(unescaped(text), "expected");
  }

  void localizes() {
    QCOMPARE(localized(u"Queued"_s), u"Queued"_s);
    OneTranslation translation;
    QVERIFY(QCoreApplication::installTranslator(&translation));
    QCOMPARE(localized(u"Queued"_s), u"Wartend"_s);
    QCOMPARE(localized(u"Größe 100 % %n"_s), u"Größe 100 % %n"_s);
    QCOMPARE(localized(u""_s), u""_s);
    QVERIFY(QCoreApplication::removeTranslator(&translation));
  }

  void links() {
    QCOMPARE(hyperlinkWithURL(u"<a> & b"_s, QUrl(u"https://x.org/?a=1&b=\"2\""_s)),
             u"<a href=\"https://x.org/?a=1&amp;b=%222%22\">&lt;a&gt; &amp; b</a>"_s);
  }

  void expands() {
    const QString home = QDir::homePath();
    QCOMPARE(expanded(u"~"_s), home);
    QCOMPARE(expanded(u"~/a"_s), QString(home + u"/a"_s));
    QCOMPARE(expanded(u"~root/a"_s), u"/root/a"_s);
    QCOMPARE(expanded(u"~nobody-of-this-name/a"_s), u"~nobody-of-this-name/a"_s);
    QCOMPARE(expanded(u"/a/~"_s), u"/a/~"_s);
    QCOMPARE(expanded(u""_s), u""_s);
  }

  void givesBytes() {
    QCOMPARE(data(u"aä😀"), QByteArray("a\xC3\xA4\xF0\x9F\x98\x80"));
    QCOMPARE(data(u""), QByteArray());
  }
};

QTEST_GUILESS_MAIN(TestText)
#include "tst_text.moc"
