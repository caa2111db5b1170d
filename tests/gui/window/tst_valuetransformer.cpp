#include <QMetaType>
#include <QObject>
#include <QStringList>
#include <QTest>
#include <QVariant>
#include <QVariantMap>

#include "JobState.h"
#include "ValueTransformer.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestValueTransformer final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void states_data();
  void states();
  void collections_data();
  void collections();
};

void TestValueTransformer::states_data() {
  QTest::addColumn<QVariant>("state");
  QTest::addColumn<int>("running");
  QTest::addColumn<int>("queued");
  QTest::addColumn<int>("notRunning");
  QTest::addColumn<int>("notQueuedAndPaused");
  QTest::addColumn<int>("notFinished");
  QTest::newRow("queued") << QVariant(0) << 0 << 1 << 1 << 0 << 1;
  QTest::newRow("converting") << QVariant(1) << 1 << 0 << 0 << 1 << 1;
  QTest::newRow("paused") << QVariant(2) << 0 << 0 << 1 << 0 << 1;
  QTest::newRow("finished") << QVariant(3) << 0 << 0 << 1 << 1 << 0;
  QTest::newRow("failed") << QVariant(4) << 0 << 0 << 1 << 1 << 0;
  QTest::newRow("missing") << QVariant() << 0 << 1 << 1 << 0 << 1;
}

void TestValueTransformer::states() {
  QFETCH(QVariant, state);
  QTEST(StatusIsRunningValueTransformer().transformedValue(state), "running");
  QTEST(StatusIsQueuedValueTransformer().transformedValue(state), "queued");
  QTEST(StatusNotRunningValueTransformer().transformedValue(state), "notRunning");
  QTEST(StatusNotQueuedAndPausedValueTransformer().transformedValue(state), "notQueuedAndPaused");
  QTEST(StatusNotFinishedValueTransformer().transformedValue(state), "notFinished");
}

void TestValueTransformer::collections_data() {
  QTest::addColumn<QVariant>("value");
  QTest::addColumn<int>("filled");
  QTest::newRow("nothing") << QVariant() << 0;
  QTest::newRow("empty list") << QVariant(QVariantList()) << 0;
  QTest::newRow("list") << QVariant(QVariantList{1}) << 1;
  QTest::newRow("texts") << QVariant(QStringList(u"a"_s)) << 1;
  QTest::newRow("empty map") << QVariant(QVariantMap()) << 0;
  QTest::newRow("map") << QVariant(QVariantMap{{u"a"_s, 1}}) << 1;
  QTest::newRow("text") << QVariant(u"abc"_s) << 0;
  QTest::newRow("number") << QVariant(7) << 0;
}

void TestValueTransformer::collections() {
  QFETCH(QVariant, value);
  QTEST(NonEmptyCollectionValueTransformer().transformedValue(value), "filled");
}

QTEST_APPLESS_MAIN(TestValueTransformer)
#include "tst_valuetransformer.moc"
