#include <QTest>

#include "Defaults.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestDefaults final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void absentReadsAsNothing();
  void otherTypesReadAsNothing();
  void numbersReadAsEachOther();
  void writtenReadsAtOnceAndAfterARestart();
  void objectsKeepTheirType();
  void nothingRemoves();
  void overridesAndRegisteredDefaults();
  void withoutTheLibrary();

 private:
  std::unique_ptr<ScratchProgram> m_program;
};

void TestDefaults::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

void TestDefaults::absentReadsAsNothing() {
  QCOMPARE(defaultInt(u"never"_s), 0);
  QCOMPARE(defaultFloat(u"never"_s), 0.0F);
  QVERIFY(defaultString(u"never"_s).isNull());
  QVERIFY(defaultArray(u"never"_s).isEmpty());
  QVERIFY(defaultDict(u"never"_s).isEmpty());
  QVERIFY(!defaultObject(u"never"_s).isValid());
  QVERIFY(defaultURL(u"never"_s).isEmpty());
}

void TestDefaults::otherTypesReadAsNothing() {
  setDefaultString(u"text"_s, u"5"_s);
  QCOMPARE(defaultInt(u"text"_s), 0);
  QCOMPARE(defaultFloat(u"text"_s), 0.0F);
  QVERIFY(defaultArray(u"text"_s).isEmpty());
  QVERIFY(defaultDict(u"text"_s).isEmpty());
  setDefaultArray(u"list"_s, {u"5"_s});
  QCOMPARE(defaultInt(u"list"_s), 0);
  QVERIFY(defaultString(u"list"_s).isNull());
  QVERIFY(defaultDict(u"list"_s).isEmpty());
  QVERIFY(defaultURL(u"list"_s).isEmpty());
  setDefaultDict(u"map"_s, {{u"a"_s, 1}});
  QVERIFY(defaultArray(u"map"_s).isEmpty());
  setDefaultObject(u"bytes"_s, QByteArray("5"));
  QVERIFY(defaultString(u"bytes"_s).isNull());
  QCOMPARE(defaultInt(u"bytes"_s), 0);
}

void TestDefaults::numbersReadAsEachOther() {
  setDefaultFloat(u"float"_s, 2.75F);
  QCOMPARE(defaultInt(u"float"_s), 2);
  setDefaultObject(u"huge"_s, 1e300);
  QCOMPARE(defaultInt(u"huge"_s), 9200000000000000000);
  setDefaultObject(u"flag"_s, true);
  QCOMPARE(defaultInt(u"flag"_s), 1);
  setDefaultInt(u"int"_s, 3);
  QCOMPARE(defaultFloat(u"int"_s), 3.0F);
  QCOMPARE(defaultString(u"int"_s), u"3"_s);
}

void TestDefaults::writtenReadsAtOnceAndAfterARestart() {
  setDefaultInt(u"int"_s, 5);
  QCOMPARE(defaultInt(u"int"_s), 5);
  setDefaultInt(u"large"_s, std::numeric_limits<qint64>::max());
  setDefaultFloat(u"float"_s, 0.1F);
  setDefaultString(u"text"_s, u"5"_s);
  setDefaultArray(u"empty"_s, {});
  setDefaultArray(u"one"_s, {QByteArray("\0a", 2)});
  setDefaultDict(u"map"_s, {{u"a"_s, QVariantList{u"b"_s}}});
  setDefaultURL(u"url"_s, QUrl::fromLocalFile(u"/a b/ä%20.mkv"_s));
  for (int round = 0; round < 2; ++round) {
    QCOMPARE(defaultInt(u"int"_s), 5);
    QCOMPARE(defaultInt(u"large"_s), std::numeric_limits<qint64>::max());
    QCOMPARE(defaultFloat(u"float"_s), 0.1F);
    QCOMPARE(defaultString(u"text"_s), u"5"_s);
    QCOMPARE(defaultInt(u"text"_s), 0);
    QVERIFY(defaultArray(u"empty"_s).isEmpty());
    QCOMPARE(defaultObject(u"empty"_s), QVariant(QVariantList()));
    QCOMPARE(defaultArray(u"one"_s), QVariantList{QByteArray("\0a", 2)});
    QCOMPARE(defaultDict(u"map"_s), (QVariantMap{{u"a"_s, QVariantList{u"b"_s}}}));
    QCOMPARE(defaultURL(u"url"_s).toLocalFile(), u"/a b/ä%20.mkv"_s);
    m_program->restart();
  }
}

void TestDefaults::objectsKeepTheirType() {
  setDefaultObject(u"five"_s, 5);
  setDefaultObject(u"text"_s, u"5"_s);
  for (int round = 0; round < 2; ++round) {
    QCOMPARE(defaultObject(u"five"_s), QVariant(qint64{5}));
    QCOMPARE(defaultObject(u"five"_s).typeId(), int{QMetaType::LongLong});
    QCOMPARE(defaultObject(u"text"_s).typeId(), int{QMetaType::QString});
    m_program->restart();
  }
}

void TestDefaults::nothingRemoves() {
  setDefaultString(u"key"_s, u"text"_s);
  setDefaultString(u"key"_s, QString());
  QVERIFY(!defaultObject(u"key"_s).isValid());
  setDefaultString(u"key"_s, u""_s);
  QVERIFY(defaultObject(u"key"_s).isValid());
  setDefaultObject(u"key"_s, {});
  QVERIFY(!defaultObject(u"key"_s).isValid());
  setDefaultURL(u"key"_s, QUrl(u"https://decant.example/"_s));
  QVERIFY(defaultObject(u"key"_s).isValid());
  setDefaultURL(u"key"_s, {});
  QVERIFY(!defaultObject(u"key"_s).isValid());
}

void TestDefaults::overridesAndRegisteredDefaults() {
  m_program->library().userDefaults().registerDefaults({{u"key"_s, 1}});
  QCOMPARE(defaultInt(u"key"_s), 1);
  setDefaultInt(u"key"_s, 2);
  QCOMPARE(defaultInt(u"key"_s), 2);
  m_program->library().userDefaults().setOverride(u"key"_s, 3);
  QCOMPARE(defaultInt(u"key"_s), 3);
  m_program->restart();
  QCOMPARE(defaultInt(u"key"_s), 2);
}

void TestDefaults::withoutTheLibrary() {
  m_program.reset();
  setDefaultInt(u"key"_s, 2);
  QCOMPARE(defaultInt(u"key"_s), 0);
}

QTEST_GUILESS_MAIN(TestDefaults)
#include "tst_defaults.moc"
