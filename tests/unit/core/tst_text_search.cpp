#include <QRegularExpression>
#include <QTest>

#include "TextSearch.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestTextSearch final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void contains_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("part");
    QTest::addColumn<bool>("sensitive");
    QTest::addColumn<bool>("insensitive");
    QTest::newRow("empty in empty") << u""_s << u""_s << true << true;
    QTest::newRow("empty in some") << u"abc"_s << u""_s << true << true;
    QTest::newRow("some in empty") << u""_s << u"a"_s << false << false;
    QTest::newRow("whole") << u"abc"_s << u"abc"_s << true << true;
    QTest::newRow("at the end") << u"abc"_s << u"bc"_s << true << true;
    QTest::newRow("too long") << u"abc"_s << u"abcd"_s << false << false;
    QTest::newRow("other case") << u"Audio: AC3"_s << u"ac3"_s << false << true;
    QTest::newRow("other case beyond ASCII") << u"ÄRGER"_s << u"ärg"_s << false << true;
    QTest::newRow("pair") << u"a😀b"_s << u"😀"_s << true << true;
    QTest::newRow("no pattern") << u"abc"_s << u"a.c"_s << false << false;
  }
  void contains() {
    QFETCH(QString, text);
    QFETCH(QString, part);
    QTEST(ostrak::contains(text, part), "sensitive");
    QTEST(ostrak::contains(text, part, false), "sensitive");
    QTEST(ostrak::contains(text, part, true), "insensitive");
  }

  void containsLatin1() {
    QVERIFY(ostrak::contains(u"Stream #0", "#0"_L1));
    QVERIFY(!ostrak::contains(u"Stream #0", "stream"_L1));
  }

  void containsSeveral_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("parts");
    QTest::addColumn<bool>("any");
    QTest::addColumn<bool>("all");
    QTest::newRow("empty list") << u"abc"_s << QStringList{} << false << true;
    QTest::newRow("none") << u"abc"_s << QStringList{u"x"_s, u"y"_s} << false << false;
    QTest::newRow("last") << u"abc"_s << QStringList{u"x"_s, u"c"_s} << true << false;
    QTest::newRow("both") << u"abc"_s << QStringList{u"a"_s, u"bc"_s} << true << true;
    QTest::newRow("empty part") << u"abc"_s << QStringList{u""_s} << true << true;
    QTest::newRow("empty text") << u""_s << QStringList{u"a"_s} << false << false;
  }
  void containsSeveral() {
    QFETCH(QString, text);
    QFETCH(QStringList, parts);
    QTEST(containsAny(text, parts), "any");
    QTEST(containsAll(text, parts), "all");
  }

  void equals() {
    QVERIFY(equalsAny(u"mkv", {u"mp4"_s, u"mkv"_s}));
    QVERIFY(!equalsAny(u"mkv", {u"MKV"_s, u"mk"_s, u"mkvs"_s}));
    QVERIFY(!equalsAny(u"mkv", {}));
    QVERIFY(equalsAny(u"", {u""_s}));
  }

  void counts_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("part");
    QTest::addColumn<qsizetype>("expected");
    QTest::newRow("none") << u"abc"_s << u"x"_s << qsizetype{0};
    QTest::newRow("several") << u"a,b,c"_s << u","_s << qsizetype{2};
    QTest::newRow("not overlapping") << u"aaaaa"_s << u"aa"_s << qsizetype{2};
    QTest::newRow("empty part") << u"abc"_s << u""_s << qsizetype{0};
    QTest::newRow("empty text") << u""_s << u"a"_s << qsizetype{0};
    QTest::newRow("case counts") << u"aA"_s << u"a"_s << qsizetype{1};
  }
  void counts() {
    QFETCH(QString, text);
    QFETCH(QString, part);
    QTEST(countOccurencesOfString(text, part), "expected");
  }
};

QTEST_GUILESS_MAIN(TestTextSearch)
#include "tst_text_search.moc"
