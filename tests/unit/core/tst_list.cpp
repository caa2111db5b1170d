#include <QRegularExpression>
#include <QTest>

#include "List.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

using Numbers = QList<int>;

class TestList final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void maps() {
    QCOMPARE(mapped(Numbers{3, 1, 2}, [](int n) { return QString::number(n); }),
             (QStringList{u"3"_s, u"1"_s, u"2"_s}));
    QCOMPARE(mapped(Numbers{}, [](int n) { return n; }), Numbers{});
    const auto onlyOdd = [](int n) { return n % 2 ? std::optional(n * 10) : std::nullopt; };
    QCOMPARE(mapped(Numbers{1, 2, 3}, onlyOdd), (Numbers{10, 30}));
    QCOMPARE(mapped(Numbers{1, 2}, [](int) { return std::optional<int>(); }), Numbers{});
    static const int one = 1;
    QCOMPARE(mapped(Numbers{1, 2}, [](int n) { return n == 1 ? &one : nullptr; }),
             QList<const int *>{&one});
    const QStringList texts{u"ab"_s, u""_s};
    QCOMPARE(mapped(texts, &QString::size), (QList<qsizetype>{2, 0}));
    QCOMPARE(mapped(texts, [](const QString &text) { return text; }), texts);
  }

  void filters() {
    const auto isOdd = [](int n) { return n % 2 != 0; };
    QCOMPARE(filtered(Numbers{3, 2, 1}, isOdd), (Numbers{3, 1}));
    QCOMPARE(filtered(Numbers{2}, isOdd), Numbers{});
    QCOMPARE(filtered(Numbers{}, isOdd), Numbers{});
  }

  void appliesInOrder() {
    Numbers seen;
    apply(Numbers{3, 1, 2}, [&](int n) { seen.append(n); });
    QCOMPARE(seen, (Numbers{3, 1, 2}));
  }

  void reduces() {
    QCOMPARE(reduce(Numbers{}, [](int n) { return n; }), qint64{0});
    QCOMPARE(reduce(Numbers{1, -2, 4}, [](int n) { return n; }), qint64{3});
    const auto largest = [](int) { return 0x7FFFFFFF; };
    QCOMPARE(reduce(Numbers{1, 2, 3}, largest), qint64{3} * 0x7FFFFFFF);
    const auto cutTo32Bits = [](int) { return 0x1'FFFF'FFFFLL; };
    QCOMPARE(reduce(Numbers{1, 2}, cutTo32Bits), qint64{-2});
  }

  void tellsEmpty() {
    QVERIFY(empty(Numbers{}));
    QVERIFY(!empty(Numbers{0}));
  }

  void makesSets() {
    QCOMPARE(set(Numbers{1, 2, 1}), (QSet<int>{2, 1}));
    QCOMPARE(orderedSet(Numbers{2, 1, 2, 3, 1}), (Numbers{2, 1, 3}));
    QCOMPARE(orderedSet(Numbers{}), Numbers{});
  }

  void sorts() {
    QCOMPARE(sorted(Numbers{3, 1, 2}), (Numbers{1, 2, 3}));
    QCOMPARE(sorted(Numbers{3, 1, 2}, std::greater<int>()), (Numbers{3, 2, 1}));
    QCOMPARE(sorted(Numbers{}), Numbers{});
    const auto byTens = [](int left, int right) { return left / 10 < right / 10; };
    QCOMPARE(sorted(Numbers{21, 15, 20, 11}, byTens), (Numbers{15, 11, 21, 20}));
  }

  void flattensAndReverses() {
    QCOMPARE(flattenedArray(QList<Numbers>{{1, 2}, {}, {3}}), (Numbers{1, 2, 3}));
    QCOMPARE(flattenedArray(QList<Numbers>{}), Numbers{});
    QCOMPARE(reverseArray(Numbers{1, 2, 3}), (Numbers{3, 2, 1}));
    QCOMPARE(reverseArray(Numbers{}), Numbers{});
  }

  void addsAndRemoves() {
    const Numbers list{1, 2, 1};
    QCOMPARE(arrayByAddingNewObject(list, 2), list);
    QCOMPARE(arrayByAddingNewObject(list, 3), (Numbers{1, 2, 1, 3}));
    QCOMPARE(arrayByRemovingObjectIdenticalTo(list, 1), Numbers{2});
    QCOMPARE(arrayByRemovingObjectIdenticalTo(list, 9), list);
    QCOMPARE(arrayByRemovingObjectsIdenticalTo(list, {2, 9}), (Numbers{1, 1}));
    QCOMPARE(arrayByRemovingObjectsIdenticalTo(list, {}), list);
    QCOMPARE(arrayByReplacingObject(list, 1, 5), (Numbers{5, 2, 5}));
    QCOMPARE(arrayByReplacingObject(list, 9, 5), list);
  }

  // Pointers are compared by what they are, not by what they point to.
  void removesByIdentity() {
    const int first = 1;
    const int second = 1;
    const QList<const int *> list{&first, &second};
    QCOMPARE(arrayByRemovingObjectIdenticalTo(list, &first), QList<const int *>{&second});
  }

  void removesAtIndexes_data() {
    QTest::addColumn<QSet<qsizetype>>("indexes");
    QTest::addColumn<Numbers>("expected");
    QTest::newRow("none") << QSet<qsizetype>{} << Numbers{1, 2, 3};
    QTest::newRow("some") << QSet<qsizetype>{0, 2} << Numbers{2};
    QTest::newRow("out of range") << QSet<qsizetype>{-1, 3} << Numbers{1, 2, 3};
    QTest::newRow("one") << QSet<qsizetype>{1} << Numbers{1, 3};
  }
  void removesAtIndexes() {
    QFETCH(QSet<qsizetype>, indexes);
    QFETCH(Numbers, expected);
    const Numbers list{1, 2, 3};
    QCOMPARE(arrayByRemovingObjectsAtIndexes(list, indexes), expected);
    if (indexes.size() == 1) {
      QCOMPARE(arrayByRemovingObjectAtIndex(list, *indexes.begin()), expected);
    }
  }

  void takesParts_data() {
    QTest::addColumn<qsizetype>("index");
    QTest::addColumn<Numbers>("from");
    QTest::addColumn<Numbers>("to");
    QTest::addColumn<int>("element");  // 0: nothing
    QTest::newRow("below") << qsizetype{-1} << Numbers{1, 2, 3} << Numbers{} << 0;
    QTest::newRow("first") << qsizetype{0} << Numbers{1, 2, 3} << Numbers{} << 1;
    QTest::newRow("last") << qsizetype{2} << Numbers{3} << Numbers{1, 2} << 3;
    QTest::newRow("end") << qsizetype{3} << Numbers{} << Numbers{1, 2, 3} << 0;
    QTest::newRow("beyond") << qsizetype{9} << Numbers{} << Numbers{1, 2, 3} << 0;
  }
  void takesParts() {
    QFETCH(qsizetype, index);
    const Numbers list{1, 2, 3};
    QTEST(subarrayFromIndex(list, index), "from");
    QTEST(subarrayToIndex(list, index), "to");
    QTEST(safeObjectAtIndex(list, index).value_or(0), "element");
  }

  void moves_data() {
    QTest::addColumn<qsizetype>("from");
    QTest::addColumn<qsizetype>("to");
    QTest::addColumn<Numbers>("expected");
    QTest::newRow("down") << qsizetype{0} << qsizetype{2} << Numbers{2, 3, 1};
    QTest::newRow("up") << qsizetype{2} << qsizetype{0} << Numbers{3, 1, 2};
    QTest::newRow("nowhere") << qsizetype{1} << qsizetype{1} << Numbers{1, 2, 3};
    QTest::newRow("from outside") << qsizetype{3} << qsizetype{0} << Numbers{1, 2, 3};
    QTest::newRow("to outside") << qsizetype{0} << qsizetype{3} << Numbers{1, 2, 3};
    QTest::newRow("below") << qsizetype{-1} << qsizetype{0} << Numbers{1, 2, 3};
  }
  void moves() {
    QFETCH(qsizetype, from);
    QFETCH(qsizetype, to);
    Numbers list{1, 2, 3};
    moveObjectAtIndex(list, from, to);
    QTEST(list, "expected");
  }

  void changesInPlace() {
    Numbers list{1, 2, 3, 4};
    removeObjectPassingTest(list, [](int n) { return n % 2 == 0; });
    QCOMPARE(list, (Numbers{1, 3, 4}));
    removeObjectPassingTest(list, [](int n) { return n > 9; });
    QCOMPARE(list, (Numbers{1, 3, 4}));
    addNewObject(list, 3);
    addNewObject(list, 5);
    QCOMPARE(list, (Numbers{1, 3, 4, 5}));
    addObjectSafely(list, std::nullopt);
    addObjectSafely(list, 3);
    QCOMPARE(list, (Numbers{1, 3, 4, 5, 3}));
    map(list, [](int n) { return n == 4 ? std::nullopt : std::optional(n * 2); });
    QCOMPARE(list, (Numbers{2, 6, 10, 6}));
    filter(list, [](int n) { return n != 6; });
    QCOMPARE(list, (Numbers{2, 10}));
    removeFirstObject(list);
    removeFirstObject(list);
    QCOMPARE(list, Numbers{});
    removeFirstObject(list);
    QCOMPARE(list, Numbers{});
  }

  void findsExtents() {
    QCOMPARE(calculateExtentsOfValues(Numbers{3, -1, 2}, [](int n) { return n * 2; }),
             (ValueExtents{-2, 6}));
    QVERIFY(!calculateExtentsOfValues(Numbers{}, [](int n) { return n; }));
    QCOMPARE(calculateExtentsOfValues(Numbers{1, 0}, [](int n) { return n ? 5.0 : qQNaN(); }),
             (ValueExtents{5, 5}));
    const QList<QPointF> points{{1, 5}, {-2, 7}, {0, 6}};
    QCOMPARE(calculateExtentsOfPoints(points, [](QPointF point) { return point; }),
             (PointExtents{{-2, 5}, {1, 7}}));
    QVERIFY(!calculateExtentsOfPoints(QList<QPointF>{}, [](QPointF point) { return point; }));
  }
};

QTEST_GUILESS_MAIN(TestList)
#include "tst_list.moc"
