#include <QRegularExpression>
#include <QTest>

#include "TextCase.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestTextCase final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void titlecases_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("small words") << u"lord OF the rings"_s << u"Lord of the Rings"_s;
    QTest::newRow("small word first") << u"the end"_s << u"the End"_s;
    QTest::newRow("rest untouched") << u"mcDonald iPhone"_s << u"McDonald IPhone"_s;
    QTest::newRow("blanks kept") << u"  a\tfilm \n here "_s << u"  a\tFilm \n Here "_s;
    QTest::newRow("brackets") << u"(of) \"quoted\""_s << u"(of) \"Quoted\""_s;
    QTest::newRow("abbreviations") << u"x vs. y i.e. Z E.G. w"_s << u"X vs. Y i.e. Z e.g. W"_s;
    QTest::newRow("digit first") << u"2nd film"_s << u"2nd Film"_s;
    QTest::newRow("beyond ASCII") << u"ärger über öl"_s << u"Ärger Über Öl"_s;
    QTest::newRow("pairs") << u"\U00010428x"_s << u"\U00010400x"_s;
    QTest::newRow("signs only") << u"- – !"_s << u"- – !"_s;
    QTest::newRow("longer words") << u"offer intone"_s << u"Offer Intone"_s;
  }
  void titlecases() {
    QFETCH(QString, text);
    QTEST(titlecaseString(text), "expected");
  }

  void staysLowerCase_data() {
    QTest::addColumn<QString>("word");
    for (const auto *word :
         {"a",    "an",   "the",  "and",  "but",  "for",  "nor",  "or",  "so",   "yet",
          "at",   "by",   "in",   "of",   "off",  "on",   "out",  "to",  "up",   "via",
          "c",    "ca",   "etc",  "e.g.", "i.e.", "vs.",  "vs",   "v",   "down", "from",
          "into", "like", "near", "onto", "over", "than", "with", "upon"}) {
      QTest::newRow(word) << QString::fromLatin1(word);
    }
  }
  void staysLowerCase() {
    QFETCH(QString, word);
    QCOMPARE(titlecaseString(u"x "_s + word + u" y"_s), QString(u"X "_s + word + u" Y"_s));
    QCOMPARE(titlecaseString(word.toUpper()), word);
  }

  void takesOwnLists() {
    const QString text = u"das dvd von der bbc"_s;
    QCOMPARE(titlecaseStringWithLowercaseWords(text, {u"von"_s, u"der"_s}, {u"dvd"_s, u"BBC"_s}),
             u"Das DVD von der BBC"_s);
    QCOMPARE(titlecaseStringWithLowercaseWords(text, {}, {}), u"Das Dvd Von Der Bbc"_s);
    QCOMPARE(titlecaseStringWithLowercaseWords(u"X"_s, {u"x"_s}, {u"x"_s}), u"x"_s);
  }

  void capitalizes() {
    QCOMPARE(capitalizedStringWithUppercaseWords(u"my DVD (from THE bbc)"_s, {u"bbc"_s}),
             u"My Dvd (From The BBC)"_s);
    QCOMPARE(capitalizedStringWithUppercaseWords(u""_s, {u"bbc"_s}), u""_s);
    QCOMPARE(capitalizedStringWithUppercaseWords(u"jean-luc"_s, {}), u"Jean-luc"_s);
  }

  void propercases() {
    QCOMPARE(propercaseString(u"jean-luc o'NEILL 2ND"_s), u"Jean-Luc O'Neill 2nd"_s);
    QCOMPARE(propercaseString(u""_s), u""_s);
    QCOMPARE(propercaseString(u"\U00010428\U00010400"_s), u"\U00010400\U00010428"_s);
  }
};

QTEST_GUILESS_MAIN(TestTextCase)
#include "tst_text_case.moc"
