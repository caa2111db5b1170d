#include <QRegularExpression>
#include <QTest>

#include "List.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Lists of texts and lists of dictionaries.
class TestListKinds final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void joins() {
    QCOMPARE(joined({u"a"_s, u"b"_s}, u", "_s), u"a, b"_s);
    QCOMPARE(joined({u"a"_s, u""_s}, u","_s), u"a,"_s);
    QCOMPARE(joined({}, u", "_s), u""_s);
    QCOMPARE(ostrak::string({u"a"_s, u"b"_s}), u"ab"_s);
    QCOMPARE(ostrak::string(QStringList{}), u""_s);
  }

  void joinsPaths_data() {
    QTest::addColumn<QStringList>("components");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty list") << QStringList{} << u""_s;
    QTest::newRow("relative") << QStringList{u"a"_s, u"b.mkv"_s} << u"a/b.mkv"_s;
    QTest::newRow("absolute") << QStringList{u"/"_s, u"a"_s, u"b"_s} << u"/a/b"_s;
    QTest::newRow("root") << QStringList{u"/"_s} << u"/"_s;
    QTest::newRow("slash in the first") << QStringList{u"/a"_s, u"b"_s} << u"/a/b"_s;
    QTest::newRow("slashes around") << QStringList{u"a/"_s, u"/b/"_s, u"c"_s} << u"a/b/c"_s;
    QTest::newRow("empty elements") << QStringList{u""_s, u"a"_s, u""_s, u"b"_s} << u"a/b"_s;
    QTest::newRow("nothing is resolved") << QStringList{u".."_s, u"."_s, u"a"_s} << u".././a"_s;
  }
  void joinsPaths() {
    QFETCH(QStringList, components);
    QTEST(path(components), "expected");
  }

  void filtersByPredicate() {
    ScratchProgram program;
    const QStringList texts{u"a.mkv"_s, u"b.mp4"_s, u"c.MKV"_s};
    QCOMPARE(filteredUsingPredicateString(texts, u"\\.mkv$"_s), QStringList{u"a.mkv"_s});
    QCOMPARE(filteredUsingPredicateString(texts, u"(?i)mkv"_s),
             (QStringList{u"a.mkv"_s, u"c.MKV"_s}));
    QCOMPARE(filteredUsingPredicateString({}, u"a"_s), QStringList{});
    QStringList changed = texts;
    filterUsingPredicateString(changed, u"^b"_s);
    QCOMPARE(changed, QStringList{u"b.mp4"_s});
    QCOMPARE(program.logged(), QStringList{});
    QCOMPARE(filteredUsingPredicateString(texts, u"("_s), QStringList{});
    QCOMPARE(program.loggedWithLevel().size(), 1);
    QCOMPARE(program.loggedWithLevel().first().level, 3);
    QVERIFY(program.logged().first().startsWith(u"Error: no predicate: ( "_s));
  }

  void sortsByKey() {
    const QVariantMap a{{u"n"_s, 2}, {u"id"_s, u"a"_s}};
    const QVariantMap b{{u"n"_s, 10}, {u"id"_s, u"b"_s}};
    const QVariantMap c{{u"n"_s, 2}, {u"id"_s, u"c"_s}};
    const QVariantMap none{{u"id"_s, u"none"_s}};
    QCOMPARE(sortedArrayByKey({b, a, none, c}, u"n"_s), (Records{none, a, c, b}));
    QCOMPARE(sortedArrayByKey({b, c, none, a}, u"n"_s, false), (Records{b, c, a, none}));
    QCOMPARE(sortedArrayByKey({c, b, a}, u"id"_s), (Records{a, b, c}));
    QCOMPARE(sortedArrayByKey({c, b, a}, u"unknown"_s), (Records{c, b, a}));
    QCOMPARE(sortedArrayByKey({}, u"n"_s), Records{});
  }

  // Values that have no order among each other are still sorted the same way from every start.
  void sortsMixedValues() {
    const QVariantMap number{{u"v"_s, 5}};
    const QVariantMap text{{u"v"_s, u"five"_s}};
    const QVariantMap list{{u"v"_s, QVariantList{1}}};
    const QVariantMap none{};
    Records records{none, number, text, list};
    const Records expected = sortedArrayByKey(records, u"v"_s);
    QCOMPARE(expected.first(), none);
    std::sort(records.begin(), records.end(),
              [](const QVariantMap &left, const QVariantMap &right) {
                return literalString(QVariantList{left}) < literalString(QVariantList{right});
              });
    do {
      QCOMPARE(sortedArrayByKey(records, u"v"_s), expected);
    } while (std::next_permutation(
        records.begin(), records.end(), [](const QVariantMap &left, const QVariantMap &right) {
          return literalString(QVariantList{left}) < literalString(QVariantList{right});
        }));
  }

  void findsRecords() {
    const Records records{{{u"a"_s, 1}}, {{u"a"_s, 2}, {u"b"_s, QVariant()}}};
    QVERIFY(containsDictionaryWithKey(records, u"a"_s, 2));
    QVERIFY(!containsDictionaryWithKey(records, u"a"_s, 3));
    QVERIFY(!containsDictionaryWithKey(records, u"c"_s, QVariant()));
    QVERIFY(containsDictionaryWithKey(records, u"b"_s, QVariant()));
    QVERIFY(!containsDictionaryWithKey({}, u"a"_s, 1));
  }

  void flattensDeeply() {
    const QVariantList inner{2, QVariantList{3, QVariantList{}}};
    QCOMPARE(flattenedArray(QVariantList{1, inner, u"x"_s}), (QVariantList{1, 2, 3, u"x"_s}));
    QCOMPARE(flattenedArray(QVariantList{}), QVariantList{});
  }

  void writesLiterals() {
    QCOMPARE(literalString(QVariantList{1, u"a\"b"_s, true, QVariantList{}}),
             u"[1,\"a\\\"b\",true,[]]"_s);
    QCOMPARE(literalString(QVariantList{}), u"[]"_s);
  }
};

QTEST_GUILESS_MAIN(TestListKinds)
#include "tst_list_kinds.moc"
