#include <QRegularExpression>
#include <QTest>

#include "Data.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestData final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void decodes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << QByteArray() << u""_s;
    QTest::newRow("ASCII") << QByteArray("abc") << u"abc"_s;
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA4\xF0\x9F\x98\x80") << u"ä😀"_s;
    QTest::newRow("Latin-1") << QByteArray("\xE4z") << u"äz"_s;
    QTest::newRow("cut UTF-8") << QByteArray("a\xC3") << u"aÃ"_s;
    QTest::newRow("marked UTF-8") << QByteArray("\xEF\xBB\xBF\xC3\xA4") << u"ä"_s;
    QTest::newRow("marked UTF-16, low first") << QByteArray("\xFF\xFE\xE4\x00", 4) << u"ä"_s;
    QTest::newRow("marked UTF-16, high first") << QByteArray("\xFE\xFF\x00\xE4", 4) << u"ä"_s;
    QTest::newRow("zero") << QByteArray("a\0b", 3) << QString::fromLatin1("a\0b", 3);
    QTest::newRow("every byte has a place") << QByteArray("\xFF\x80") << u"ÿ\u0080"_s;
  }
  void decodes() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const auto text = ostrak::string(bytes);
    QVERIFY(text);
    QCOMPARE(*text, expected);
    QVERIFY(!text->isNull());
  }

  void writesHex() {
    QCOMPARE(hexString(QByteArray("\x00\xff", 2)), u"00ff"_s);
    QCOMPARE(hexString(QByteArray("\x0a\xB5")), u"0ab5"_s);
    QCOMPARE(hexString(QByteArray()), u""_s);
  }

  // Figures from the standards' own examples.
  void digests() {
    QCOMPARE(SHA1(u"abc"_s), u"a9993e364706816aba3e25717850c26c9cd0d89d"_s);
    QCOMPARE(SHA1(QByteArray("abc")), u"a9993e364706816aba3e25717850c26c9cd0d89d"_s);
    QCOMPARE(SHA1(u""_s), u"da39a3ee5e6b4b0d3255bfef95601890afd80709"_s);
    QCOMPARE(SHA1(u"ä"_s), SHA1(QByteArray("\xC3\xA4")));
    QCOMPARE(MD5(QByteArray("abc")), u"900150983cd24fb0d6963f7d28e17f72"_s);
    QCOMPARE(MD5(QByteArray()), u"d41d8cd98f00b204e9800998ecf8427e"_s);
    QCOMPARE(SHA256(QByteArray("abc")),
             u"ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"_s);
    QCOMPARE(SHA256(QByteArray()),
             u"e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"_s);
  }
};

QTEST_GUILESS_MAIN(TestData)
#include "tst_data.moc"
