#include <QRegularExpression>
#include <QTest>

#include "CharacterSet.h"
#include "TextParsing.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

using Rows = QList<QStringList>;

class TestTextParsing final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void knowsNumbers_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("beginsInteger");
    QTest::addColumn<bool>("integer");
    QTest::addColumn<bool>("floating");
    QTest::newRow("empty") << u""_s << false << false << false;
    QTest::newRow("digits") << u"0123"_s << true << true << false;
    QTest::newRow("signs") << u"-5"_s << true << true << false;
    QTest::newRow("plus") << u"+5"_s << true << true << false;
    QTest::newRow("sign only") << u"-"_s << false << false << false;
    QTest::newRow("two signs") << u"--5"_s << false << false << false;
    QTest::newRow("more behind") << u"12 files"_s << true << false << false;
    QTest::newRow("blank before") << u" 12"_s << true << false << false;
    QTest::newRow("blank behind") << u"12 "_s << true << false << false;
    QTest::newRow("largest") << u"9223372036854775807"_s << true << true << false;
    QTest::newRow("smallest") << u"-9223372036854775808"_s << true << true << false;
    QTest::newRow("too large") << u"9223372036854775808"_s << false << false << false;
    QTest::newRow("fraction") << u"23.98"_s << true << false << true;
    QTest::newRow("point first") << u"-.5"_s << false << false << true;
    QTest::newRow("point last") << u"5."_s << true << false << true;
    QTest::newRow("point only") << u"."_s << false << false << false;
    QTest::newRow("exponent") << u"2e3"_s << true << false << true;
    QTest::newRow("signed exponent") << u"2.5E-3"_s << true << false << true;
    QTest::newRow("no exponent") << u"2e"_s << true << false << false;
    QTest::newRow("exponent only") << u"e3"_s << false << false << false;
    QTest::newRow("comma") << u"1,5"_s << true << false << false;
    QTest::newRow("two points") << u"1.2.3"_s << true << false << false;
    QTest::newRow("hexadecimal") << u"0x10"_s << true << false << false;
    QTest::newRow("infinite") << u"inf"_s << false << false << false;
    QTest::newRow("no number") << u"nan"_s << false << false << false;
    QTest::newRow("other digits") << u"١٢"_s << false << false << false;
  }
  void knowsNumbers() {
    QFETCH(QString, text);
    QFETCH(bool, integer);
    QFETCH(bool, floating);
    QTEST(isIntegerNumber(text), "beginsInteger");
    QCOMPARE(isIntegerNumberOnly(text), integer);
    QCOMPARE(isFloatNumber(text), floating);
    QCOMPARE(isNumber(text), integer || floating);
  }

  void knowsEmail_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::newRow("plain") << u"a@b.org"_s << true;
    QTest::newRow("marks") << u"first.last+tag_x@sub-1.example.co.uk"_s << true;
    QTest::newRow("encoded top level") << u"a@b.xn--p1ai"_s << true;
    QTest::newRow("empty") << u""_s << false;
    QTest::newRow("no at") << u"b.org"_s << false;
    QTest::newRow("no name") << u"@b.org"_s << false;
    QTest::newRow("no host") << u"a@"_s << false;
    QTest::newRow("no domain") << u"a@localhost"_s << false;
    QTest::newRow("two ats") << u"a@b@c.org"_s << false;
    QTest::newRow("blank") << u"a b@c.org"_s << false;
    QTest::newRow("around") << u" a@b.org"_s << false;
    QTest::newRow("dots") << u"a..b@c.org"_s << false;
    QTest::newRow("dot first") << u".a@c.org"_s << false;
    QTest::newRow("empty label") << u"a@b..org"_s << false;
    QTest::newRow("dash first") << u"a@-b.org"_s << false;
    QTest::newRow("short top level") << u"a@b.c"_s << false;
    QTest::newRow("number") << u"a@127.0.0.10"_s << false;
    QTest::newRow("list") << u"a@b.org,c@d.org"_s << false;
    QTest::newRow("line break") << u"a@b.org\n"_s << false;
    QTest::newRow("long name") << QString(QString(65, u'a') + u"@b.org"_s) << false;
  }
  void knowsEmail() {
    QFETCH(QString, text);
    QTEST(isValidEmail(text), "expected");
  }

  void knowsEmails() {
    QVERIFY(isValidEmails(u"a@b.org"));
    QVERIFY(isValidEmails(u"a@b.org, c@d.org ,e@f.org"));
    QVERIFY(!isValidEmails(u"a@b.org,"));
    QVERIFY(!isValidEmails(u"a@b.org, c"));
    QVERIFY(!isValidEmails(u""));
  }

  void parsesDsv_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("delimiter");
    QTest::addColumn<Rows>("expected");
    QTest::newRow("empty") << u""_s << u","_s << Rows{};
    QTest::newRow("one field") << u"a"_s << u","_s << Rows{{u"a"_s}};
    QTest::newRow("rows") << u"a,b\nc,d\n"_s << u","_s << Rows{{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}};
    QTest::newRow("every row end")
        << u"a\rb\r\nc"_s << u","_s << Rows{{u"a"_s}, {u"b"_s}, {u"c"_s}};
    QTest::newRow("empty fields") << u",\n\n,"_s << u","_s
                                  << Rows{{u""_s, u""_s}, {u""_s}, {u""_s, u""_s}};
    QTest::newRow("quoted") << u"\"a,\"\"b\"\"\nc\",d"_s << u","_s
                            << Rows{{u"a,\"b\"\nc"_s, u"d"_s}};
    QTest::newRow("empty quoted") << u"\"\",a"_s << u","_s << Rows{{u""_s, u"a"_s}};
    QTest::newRow("behind the quote") << u"\"a\"b,c"_s << u","_s << Rows{{u"ab"_s, u"c"_s}};
    QTest::newRow("quote inside") << u"a\"b\",c"_s << u","_s << Rows{{u"a\"b\""_s, u"c"_s}};
    QTest::newRow("never closed") << u"\"a,b\nc"_s << u","_s << Rows{{u"a,b\nc"_s}};
    QTest::newRow("tabulator") << u"a\tb,c"_s << u"\t"_s << Rows{{u"a"_s, u"b,c"_s}};
    QTest::newRow("longer delimiter") << u"a::b:c"_s << u"::"_s << Rows{{u"a"_s, u"b:c"_s}};
    QTest::newRow("no delimiter") << u"a,b"_s << u""_s << Rows{};
    QTest::newRow("quote as delimiter") << u"a\"b"_s << u"\""_s << Rows{};
    QTest::newRow("break as delimiter") << u"a\nb"_s << u"\n"_s << Rows{};
  }
  void parsesDsv() {
    QFETCH(QString, text);
    QFETCH(QString, delimiter);
    QTEST(parsedDSVWithDelimiter(text, delimiter), "expected");
  }

  void readsHex() {
    QCOMPARE(dataFromHexString(u"00fFa1"), QByteArray("\x00\xff\xa1", 3));
    QCOMPARE(dataFromHexString(u""), QByteArray());
    for (const auto *wrong : {u"0", u"0g", u"00 11", u"0x", u"ää", u"\u0130\u0131"}) {
      QVERIFY2(!dataFromHexString(wrong), qPrintable(QStringView(wrong).toString()));
    }
  }

  void holdsCharacters() {
    const CharacterSet set(u"cab😀b");
    QVERIFY(set.contains(U'a'));
    QVERIFY(set.contains(U'😀'));
    QVERIFY(!set.contains(U'd'));
    QVERIFY(!set.contains(0xD83D));
    QCOMPARE(stringRepresentation(set), u"abc😀"_s);
    QVERIFY(CharacterSet().isEmpty());
    QCOMPARE(stringRepresentation(CharacterSet()), QString());
    QCOMPARE(CharacterSet(u"ab").united(CharacterSet(u"bc")), CharacterSet(u"abc"));
    QCOMPARE(stringRepresentation(CharacterSet::decimalDigits()), u"0123456789"_s);
  }

  // The quick tests of one unit and the sets say the same of every unit.
  void agreesWithSets() {
    for (char32_t unit = 0; unit <= 0xFFFF; ++unit) {
      const auto narrow = static_cast<char16_t>(unit);
      QCOMPARE(isWhitespace(narrow), CharacterSet::whitespace().contains(unit));
      QCOMPARE(isNewline(narrow), CharacterSet::newlines().contains(unit));
      QCOMPARE(isWhitespace(narrow) || isNewline(narrow), QChar(narrow).isSpace());
    }
  }
};

QTEST_GUILESS_MAIN(TestTextParsing)
#include "tst_text_parsing.moc"
