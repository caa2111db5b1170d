#include <QBuffer>
#include <QRegularExpression>
#include <QTest>

#include "Conversions.h"
#include "Dictionary.h"
#include "FileHandle.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

// Gives one byte at a time, as a slow pipe does.
class DrippingBuffer final : public QBuffer {
 protected:
  qint64 readData(char *data, qint64 maxSize) override {
    return QBuffer::readData(data, qMin<qint64>(1, maxSize));
  }
};

}  // namespace

// Dictionaries, file handles and the forms of single values.
class TestDataValues final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void readsIntegers_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<quint32>("first");
    QTest::addColumn<quint32>("second");
    QTest::newRow("two") << QByteArray("\x01\x02\x03\x84\xFF\xFF\xFF\xFF") << 0x84030201U
                         << 0xFFFFFFFFU;
    QTest::newRow("some missing") << QByteArray("\x01\x00\x00\x00\x07", 5) << 1U << 7U;
    QTest::newRow("none") << QByteArray() << 0U << 0U;
  }
  void readsIntegers() {
    QFETCH(QByteArray, bytes);
    QBuffer whole;
    DrippingBuffer dripping;
    for (QBuffer *device : {&whole, static_cast<QBuffer *>(&dripping)}) {
      device->setData(bytes);
      QVERIFY(device->open(QIODevice::ReadOnly | QIODevice::Unbuffered));
      QTEST(readInt(*device), "first");
      QTEST(readInt(*device), "second");
    }
  }

  void changesDictionaries() {
    const QVariantMap dictionary{{u"a"_s, 1}, {u"b"_s, 2}};
    QCOMPARE(dictionaryByAddingValue(dictionary, 3, u"c"_s),
             (QVariantMap{{u"a"_s, 1}, {u"b"_s, 2}, {u"c"_s, 3}}));
    QCOMPARE(dictionaryByAddingValue(dictionary, 3, u"a"_s),
             (QVariantMap{{u"a"_s, 3}, {u"b"_s, 2}}));
    QCOMPARE(dictionaryByRemovingKey(dictionary, u"a"_s), (QVariantMap{{u"b"_s, 2}}));
    QCOMPARE(dictionaryByRemovingKey(dictionary, u"x"_s), dictionary);
    QCOMPARE(dictionaryByRemovingKeys(dictionary, {u"a"_s, u"b"_s, u"x"_s}), QVariantMap{});
    QCOMPARE(dictionaryByRemovingKeys(dictionary, {}), dictionary);
    QCOMPARE(dictionary, (QVariantMap{{u"a"_s, 1}, {u"b"_s, 2}}));
    QCOMPARE(literalString(QVariantMap{{u"b"_s, 1}, {u"a"_s, u"x"_s}}), u"{\"a\":\"x\",\"b\":1}"_s);
    QCOMPARE(literalString(QVariantMap{}), u"{}"_s);
  }

  void representsNumbers() {
    QCOMPARE(stringRepresentation(0), u"0"_s);
    QCOMPARE(stringRepresentation(-5), u"-5"_s);
    QCOMPARE(stringRepresentation(std::numeric_limits<qint64>::min()), u"-9223372036854775808"_s);
    QCOMPARE(stringRepresentation(std::numeric_limits<quint64>::max()), u"18446744073709551615"_s);
    QCOMPARE(stringRepresentation(0.1), u"0.1"_s);
    QCOMPARE(stringRepresentation(1e300), u"1e+300"_s);
  }

  void representsSets() {
    QCOMPARE(stringRepresentation(QSet<QString>{u"b"_s, u"a"_s}), u"a, b"_s);
    QCOMPARE(stringRepresentation(QSet<QString>{}), u""_s);
  }

  void copies() {
    QStringList original{u"a"_s};
    QStringList changed = mutableObject(original);
    const auto kept = immutableObject(original);
    changed.append(u"b"_s);
    QCOMPARE(original, QStringList{u"a"_s});
    original.append(u"c"_s);
    QCOMPARE(*kept, QStringList{u"a"_s});
    static_assert(std::is_const_v<std::remove_reference_t<decltype(*kept)>>);
  }
};

QTEST_GUILESS_MAIN(TestDataValues)
#include "tst_data_values.moc"
