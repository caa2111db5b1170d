#include <QTest>

#include "Format.h"

using namespace Qt::StringLiterals;
using ostrak::FormatArgument;
using ostrak::makeString;

class TestFormat final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void numbers_data();
  void numbers();
  void texts();
  void fileLocations();
  void missingAndLeftOverValues();
  void placeholdersInValuesStay();
  void unknownPlaceholdersStay_data();
  void unknownPlaceholdersStay();
};

void TestFormat::numbers_data() {
  QTest::addColumn<QString>("format");
  QTest::addColumn<QVariant>("value");
  QTest::addColumn<QString>("expected");
  const auto row = [](const char *format, const QVariant &value, const char *expected) {
    QTest::newRow(format) << QString::fromLatin1(format) << value << QString::fromLatin1(expected);
  };
  constexpr qint64 largest = std::numeric_limits<qint64>::max();
  constexpr quint64 largestUnsigned = std::numeric_limits<quint64>::max();
  row("%i", qint64{-5}, "-5");
  row("%d", qint64{7}, "7");
  row("%u", quint64{7}, "7");
  row("%li", largest, "9223372036854775807");
  row("%lli", largest, "9223372036854775807");
  row("%lu", largestUnsigned, "18446744073709551615");
  row("%llu", largestUnsigned, "18446744073709551615");
  row("%i ", largestUnsigned, "18446744073709551615 ");
  row("%x", qint64{255}, "ff");
  row("%X", qint64{255}, "FF");
  row("%02lx", quint64{10}, "0a");
  row("%02x", qint64{-1}, "ffffffff");
  row("%hhx", qint64{-1}, "ff");
  row("%hx", qint64{-1}, "ffff");
  row("%lx", qint64{-1}, "ffffffffffffffff");
  row("%05i", qint64{42}, "00042");
  row("%-5i|", qint64{42}, "42   |");
  row("%+i", qint64{42}, "+42");
  row("%f", 1.5, "1.500000");
  row("%.2f", 3.14159, "3.14");
  row("%6.1f", 3.14159, "   3.1");
  row("%.2f ", qint64{3}, "3.00 ");
  row("%i of a fraction", 2.9, "2 of a fraction");
  row("%i of infinity", std::numeric_limits<double>::infinity(), "9200000000000000000 of infinity");
  row("%i of no number", std::numeric_limits<double>::quiet_NaN(), "0 of no number");
  row("%@", qint64{-5}, "-5");
  row("%@ large", largestUnsigned, "18446744073709551615 large");
  row("%@ fraction", 0.1, "0.1 fraction");
  row("%s", qint64{9}, "9");
  row("100%% of %i", qint64{9}, "100% of 9");
}

void TestFormat::numbers() {
  QFETCH(QString, format);
  QFETCH(QVariant, value);
  QFETCH(QString, expected);
  switch (value.typeId()) {
    case QMetaType::LongLong:
      QCOMPARE(makeString(format, value.toLongLong()), expected);
      break;
    case QMetaType::ULongLong:
      QCOMPARE(makeString(format, value.toULongLong()), expected);
      break;
    default:
      QCOMPARE(makeString(format, value.toDouble()), expected);
  }
}

void TestFormat::texts() {
  QCOMPARE(makeString(u"%@ v%@ (%i)"_s, u"Decant"_s, u"1.2"_s, 3), u"Decant v1.2 (3)"_s);
  QCOMPARE(makeString(u"<%5@|%-5@|%.2s>"_s, u"ab"_s, u"cd"_s, u"efg"_s), u"<   ab|cd   |ef>"_s);
  QCOMPARE(makeString(u"%@"_s, QString()), u"(null)"_s);
  QCOMPARE(makeString(u"%i"_s, QString()), u"(null)"_s);
  QCOMPARE(makeString(u"%@"_s, u""_s), u""_s);
  QCOMPARE(makeString(u"%i"_s, u"no number"_s), u"no number"_s);
  QCOMPARE(makeString(u"%@"_s, u"ä\u2028🎬"_s), u"ä\u2028🎬"_s);
}

void TestFormat::fileLocations() {
  QCOMPARE(makeString(u"%@"_s, QUrl::fromLocalFile(u"/a b/c%d.mkv"_s)), u"/a b/c%d.mkv"_s);
  QCOMPARE(makeString(u"%@"_s, QUrl(u"https://decant.example/"_s)), u"https://decant.example/"_s);
}

void TestFormat::missingAndLeftOverValues() {
  QCOMPARE(makeString(u"%@ and %i"_s, u"one"_s), u"one and (null)"_s);
  QCOMPARE(makeString(u"%@"_s, u"one"_s, u"two"_s), u"one"_s);
  QCOMPARE(makeString(u"plain"_s, u"left over"_s), u"plain"_s);
  QCOMPARE(makeString(u""_s), u""_s);
}

void TestFormat::placeholdersInValuesStay() {
  QCOMPARE(makeString(u"%@ %@"_s, u"50%@ %n %i"_s, u"b"_s), u"50%@ %n %i b"_s);
}

void TestFormat::unknownPlaceholdersStay_data() {
  QTest::addColumn<QString>("format");
  for (const char *format : {"%", "100%", "%n", "% z", "%5", "%.", "%l", "%*d"}) {
    QTest::newRow(format) << QString::fromLatin1(format);
  }
}

void TestFormat::unknownPlaceholdersStay() {
  QFETCH(QString, format);
  QCOMPARE(makeString(format, u"value"_s), format);
}

QTEST_GUILESS_MAIN(TestFormat)
#include "tst_format.moc"
