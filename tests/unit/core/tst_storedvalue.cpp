#include <QTest>

#include "StoredValue.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestStoredValue final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void encodes_data();
  void encodes();
  void readsByHand_data();
  void readsByHand();
  void normalizes();
  void keys_data();
  void keys();
};

void TestStoredValue::encodes_data() {
  QTest::addColumn<QVariant>("value");
  QTest::addColumn<QString>("stored");
  const auto row = [](const char *name, const QVariant &value, const QString &stored) {
    QTest::newRow(name) << value << stored;
  };
  row("integer", qint64{2}, u"2"_s);
  row("largest integer", std::numeric_limits<qint64>::max(), u"9223372036854775807"_s);
  row("smallest integer", std::numeric_limits<qint64>::min(), u"-9223372036854775808"_s);
  row("fraction", 0.1, u"0.1"_s);
  row("true", true, u"true"_s);
  row("false", false, u"false"_s);
  row("text", u"a, b; c=\"d\""_s, u"a, b; c=\"d\""_s);
  row("path", u"/home/ä/[x]/50%.mkv"_s, u"/home/ä/[x]/50%.mkv"_s);
  row("empty text", u""_s, u""_s);
  row("text of a number", u"2"_s, u"\"2\""_s);
  row("text of a padded number", u" 2 "_s, u"\" 2 \""_s);
  row("text true", u"true"_s, u"\"true\""_s);
  row("text null", u"null"_s, u"\"null\""_s);
  row("text of a list", u"[]"_s, u"\"[]\""_s);
  row("quoted text", u"\"a\""_s, u"\"\\\"a\\\"\""_s);
  row("text that is no JSON", u"1,2"_s, u"1,2"_s);
  row("text that closes brackets", u"1],[2"_s, u"1],[2"_s);
  row("bytes", QByteArray("\0\xff", 2), u"{\"@data\":\"AP8=\"}"_s);
  row("empty bytes", QByteArray(""), u"{\"@data\":\"\"}"_s);
  row("empty list", QVariantList(), u"[]"_s);
  row("list of one text", QVariantList{u"a"_s}, u"[\"a\"]"_s);
  row("list of bytes", QVariantList{QByteArray("a"), QByteArray("b")},
      u"[{\"@data\":\"YQ==\"},{\"@data\":\"Yg==\"}]"_s);
  row("nested lists", QVariantList{QVariantList{}, QVariantList{QVariantList{qint64{1}}}},
      u"[[],[[1]]]"_s);
  row("empty map", QVariantMap(), u"{}"_s);
  row("map", QVariantMap{{u"a"_s, qint64{1}}, {u"b"_s, u"1"_s}}, u"{\"a\":1,\"b\":\"1\"}"_s);
  row("map that looks like bytes", QVariantMap{{u"@data"_s, u"YQ=="_s}},
      u"{\"@map\":{\"@data\":\"YQ==\"}}"_s);
  row("map that looks wrapped", QVariantMap{{u"@map"_s, QVariantMap{{u"a"_s, true}}}},
      u"{\"@map\":{\"@map\":{\"a\":true}}}"_s);
  row("map of two with such a key", QVariantMap{{u"@data"_s, u"x"_s}, {u"b"_s, false}},
      u"{\"@data\":\"x\",\"b\":false}"_s);
}

void TestStoredValue::encodes() {
  QFETCH(QVariant, value);
  QFETCH(QString, stored);
  QCOMPARE(encodedForStore(value), stored);
  const QVariant back = decodedFromStore(stored);
  QCOMPARE(back.typeId(), value.typeId());
  QCOMPARE(back, value);
}

void TestStoredValue::readsByHand_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QVariant>("value");
  QTest::newRow("integer") << u"2"_s << QVariant(qint64{2});
  QTest::newRow("negative") << u"-1"_s << QVariant(qint64{-1});
  QTest::newRow("with blanks") << u" 2 "_s << QVariant(qint64{2});
  QTest::newRow("whole fraction") << u"1.5"_s << QVariant(1.5);
  QTest::newRow("exponent") << u"1e300"_s << QVariant(1e300);
  QTest::newRow("leading zero is text") << u"007"_s << QVariant(u"007"_s);
  QTest::newRow("unfinished list is text") << u"[1,2"_s << QVariant(u"[1,2"_s);
  QTest::newRow("null is nothing") << u"null"_s << QVariant();
}

void TestStoredValue::readsByHand() {
  QFETCH(QString, text);
  QFETCH(QVariant, value);
  const QVariant read = decodedFromStore(text);
  QCOMPARE(read.typeId(), value.typeId());
  QCOMPARE(read, value);
}

void TestStoredValue::normalizes() {
  QCOMPARE(normalizedForStore(5).typeId(), int{QMetaType::LongLong});
  QCOMPARE(normalizedForStore(5U), QVariant(qint64{5}));
  QCOMPARE(normalizedForStore(std::numeric_limits<quint64>::max()),
           QVariant(18446744073709551615.0));
  QCOMPARE(normalizedForStore(0.1F), QVariant(0.1));
  QCOMPARE(normalizedForStore(QStringList{u"a"_s}), QVariant(QVariantList{u"a"_s}));
  QCOMPARE(normalizedForStore(QVariantList{1, QStringList{u"b"_s}}),
           QVariant(QVariantList{qint64{1}, QVariantList{u"b"_s}}));
  QCOMPARE(normalizedForStore(QVariantHash{{u"a"_s, 1}}),
           QVariant(QVariantMap{{u"a"_s, qint64{1}}}));
  QCOMPARE(normalizedForStore(QUrl(u"file:///a%20b"_s)), QVariant(u"file:///a%20b"_s));
  QVERIFY(!normalizedForStore({}).isValid());
}

void TestStoredValue::keys_data() {
  QTest::addColumn<QString>("key");
  QTest::addColumn<QString>("stored");
  QTest::newRow("usual") << u"AACBitrate"_s << u"AACBitrate"_s;
  QTest::newRow("with slash") << u"ostrak_1/2_usages"_s << u"ostrak_1%2F2_usages"_s;
  QTest::newRow("with backslash") << u"a\\b"_s << u"a%5Cb"_s;
  QTest::newRow("looks escaped") << u"a%2Fb"_s << u"a%252Fb"_s;
}

void TestStoredValue::keys() {
  QFETCH(QString, key);
  QFETCH(QString, stored);
  QCOMPARE(storeKey(key), stored);
  QCOMPARE(keyFromStore(stored), key);
}

QTEST_GUILESS_MAIN(TestStoredValue)
#include "tst_storedvalue.moc"
