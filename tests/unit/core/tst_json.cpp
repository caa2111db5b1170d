#include <QDateTime>
#include <QPointF>
#include <QRegularExpression>
#include <QTest>
#include <QTimeZone>
#include <limits>

#include "Json.h"
#include "PropertyList.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestJson final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_program = std::make_unique<ScratchProgram>();
  }
  void cleanup() { m_program.reset(); }

  void writes() {
    QCOMPARE(JSONData(QVariantList{1, 2.5, u"ä\"\n"_s, true, QVariant()}),
             QByteArray("[1,2.5,\"\xC3\xA4\\\"\\n\",true,null]"));
    QCOMPARE(JSONData(QVariantMap{{u"b"_s, QVariantList{}}, {u"a"_s, QVariantMap{}}}),
             QByteArray("{\"a\":{},\"b\":[]}"));
    QCOMPARE(JSONData(QVariantList{QStringList{u"x"_s}}), QByteArray("[[\"x\"]]"));
    QCOMPARE(JSONData(QJsonArray{1, u"a"_s}), QByteArray("[1,\"a\"]"));
    QCOMPARE(JSONData(QJsonObject{{u"a"_s, QJsonValue::Null}}), QByteArray("{\"a\":null}"));
    QCOMPARE(JSONData(QVariantList{}), QByteArray("[]"));
    QCOMPARE(m_program->logged(), QStringList{});
  }

  void refusesToWrite_data() {
    QTest::addColumn<QVariant>("value");
    QTest::newRow("infinite") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("no number") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("point") << QVariant(QPointF(1, 2));
    QTest::newRow("bytes") << QVariant(QByteArray("a"));
    QTest::newRow("in a list") << QVariant(QVariantList{QPointF(1, 2)});
    QTest::newRow("in a dictionary") << QVariant(QVariantMap{{u"x"_s, QPointF(1, 2)}});
  }
  void refusesToWrite() {
    QFETCH(QVariant, value);
    QVERIFY(!JSONData(QVariantList{value}));
    expectLogged(u"Error: JSON write fails! input ["_s);
    QVERIFY(!JSONData(QVariantMap{{u"key"_s, value}}));
    QVERIFY(m_program->logged().last().startsWith(u"Error: JSON write fails! input {\"key\""_s));
    QVERIFY(m_program->logged().last().contains(u" data (null) err "_s));
  }

  void refusesInfiniteJson() {
    QVERIFY(!JSONData(QJsonArray{std::numeric_limits<double>::infinity()}));
    QVERIFY(!JSONData(QJsonObject{{u"a"_s, std::numeric_limits<double>::quiet_NaN()}}));
    QCOMPARE(m_program->logged().size(), 2);
  }

  void reads() {
    QCOMPARE(JSONArray(" [1, \"\xC3\xA4\"] "), (QJsonArray{1, u"ä"_s}));
    QCOMPARE(JSONDictionary("{\"a\": [null]}"), (QJsonObject{{u"a"_s, QJsonArray{QJsonValue()}}}));
    QCOMPARE(JSONObject("[true]"), QJsonValue(QJsonArray{true}));
    QCOMPARE(JSONObject("{}"), QJsonValue(QJsonObject()));
    QCOMPARE(m_program->logged(), QStringList{});
  }

  void refusesToRead_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << QByteArray("{\"a\":");
    QTest::newRow("no list") << QByteArray("5");
    QTest::newRow("more behind") << QByteArray("[1] x");
    QTest::newRow("single quotes") << QByteArray("{'a':1}");
    QTest::newRow("not UTF-8") << QByteArray("[\"\xFF\"]");
  }
  void refusesToRead() {
    QFETCH(QByteArray, bytes);
    QVERIFY(!JSONObject(bytes));
    QVERIFY(!JSONArray(bytes));
    QVERIFY(!JSONDictionary(bytes));
    QCOMPARE(m_program->logged().size(), 3);
    for (const QString &message : m_program->logged()) {
      QVERIFY2(message.startsWith(u"Error: JSON read fails! input "_s), qPrintable(message));
      QVERIFY2(message.contains(u" dict (null) err "_s), qPrintable(message));
    }
  }

  void refusesTheOtherKind() {
    QVERIFY(!JSONArray("{}"));
    expectLogged(u"Error: JSON read fails! input is class dictionary instead of array"_s);
    QVERIFY(!JSONDictionary("[]"));
    QCOMPARE(m_program->logged().last(),
             u"Error: JSON read fails! input is class array instead of dictionary"_s);
  }

  void writesXml() {
    const QDateTime date(QDate(2024, 5, 7), QTime(8, 9, 10), QTimeZone::utc());
    const QVariantMap inner{{u"b<"_s, true}, {u"d"_s, date}, {u"x"_s, QByteArray("\x00\xff", 2)}};
    const auto bytes = XMLData(
        QVariantMap{{u"list"_s, QVariantList{1, 2.5, u"ä & \"b\""_s, inner, QStringList{u"s"_s}}}});
    QVERIFY(bytes);
    QString text = QString::fromUtf8(*bytes);
    QVERIFY(text.startsWith(u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"_s));
    QVERIFY(text.contains(u"<!DOCTYPE plist PUBLIC "_s));
    text.remove(QRegularExpression(u"\\n\\s*"_s));
    QVERIFY2(
        text.endsWith(u"<plist version=\"1.0\"><dict><key>list</key><array><integer>1</integer>"
                      u"<real>2.5</real><string>ä &amp; &quot;b&quot;</string><dict>"
                      u"<key>b&lt;</key><true/><key>d</key><date>2024-05-07T08:09:10Z</date>"
                      u"<key>x</key><data>AP8=</data></dict>"
                      u"<array><string>s</string></array></array></dict></plist>"_s),
        qPrintable(text));
    QVERIFY(XMLData(QVariantList{false})->contains("<false/>"));
    QCOMPARE(m_program->logged(), QStringList{});
  }

  void refusesToWriteXml_data() {
    QTest::addColumn<QVariant>("value");
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("point") << QVariant(QPointF(1, 2));
    QTest::newRow("control character") << QVariant(u"a\u0001b"_s);
    QTest::newRow("deep") << QVariant(QVariantList{QVariantMap{{u"a"_s, QPointF()}}});
  }
  void refusesToWriteXml() {
    QFETCH(QVariant, value);
    QVERIFY(!XMLData(QVariantList{1, value, 2}));
    expectLogged(u"Error: XML write fails! input [1,"_s);
    QVERIFY(m_program->logged().last().contains(u" data (null) err te"_s) ||
            m_program->logged().last().contains(u" data (null) err ty"_s));
    QVERIFY(!XMLData(QVariantMap{{u"key"_s, value}}));
    QCOMPARE(m_program->logged().size(), 2);
  }

 private:
  // One message so far, an error that begins so.
  void expectLogged(const QString &beginning) {
    const auto logged = m_program->loggedWithLevel();
    QCOMPARE(logged.size(), 1);
    QCOMPARE(logged.first().level, 3);
    QVERIFY2(logged.first().message.startsWith(beginning), qPrintable(logged.first().message));
  }

  std::unique_ptr<ScratchProgram> m_program;
};

QTEST_GUILESS_MAIN(TestJson)
#include "tst_json.moc"
