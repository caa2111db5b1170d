#include <QTest>
#include <QVariant>

#include "Defaults.h"
#include "LaunchFixups.h"
#include "ProgramTest.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;
using ostrak::defaultInt;
using ostrak::setDefaultInt;

class TestLaunchFixups final : public ProgramTest {
  Q_OBJECT

 private Q_SLOTS:
  void retiredValues_data();
  void retiredValues();
  void speedHint_data();
  void speedHint();
  void speedHintIsNotDueWithAFreshStore();
  void speedHintShownIsOnTheDisk();
  void speedHintCountsThisVersionOnly();
  void destinations_data();
  void destinations();
  void laterLaunchesLeaveTheDestinationAlone();

 private:
  // What a launch does, on a store that has been written and read again.
  void launch() {
    m_program->restart();
    registerSettings();
    repairRetiredValues();
    migrateDestinationIndex();
    repairDestinationIndex();
    m_program->restart();
    registerSettings();
  }
};

void TestLaunchFixups::retiredValues_data() {
  QTest::addColumn<QString>("key");
  QTest::addColumn<qint64>("stored");
  QTest::addColumn<qint64>("expected");
  const QString encoding = u"ExternalSubtitleEncoding"_s;
  const QString handling = u"CustomUnknownHandling"_s;
  QTest::newRow("retired encoding") << encoding << qint64(1) << qint64(0);
  QTest::newRow("no encoding") << encoding << qint64(0) << qint64(0);
  QTest::newRow("another encoding") << encoding << qint64(2) << qint64(2);
  QTest::newRow("impossible handling") << handling << qint64(2) << qint64(1);
  QTest::newRow("negative handling") << handling << qint64(-1) << qint64(1);
  QTest::newRow("handling 0") << handling << qint64(0) << qint64(0);
  QTest::newRow("handling 1") << handling << qint64(1) << qint64(1);
}

void TestLaunchFixups::retiredValues() {
  QFETCH(const QString, key);
  QFETCH(const qint64, stored);
  QFETCH(const qint64, expected);
  setDefaultInt(key, stored);
  launch();
  QCOMPARE(defaultInt(key), expected);
}

void TestLaunchFixups::speedHint_data() {
  QTest::addColumn<int>("shown");
  QTest::addColumn<int>("usages");
  QTest::addColumn<int>("preset");
  QTest::addColumn<bool>("due");
  QTest::newRow("due") << 0 << 4 << 0 << true;
  QTest::newRow("too early") << 0 << 3 << 0 << false;
  QTest::newRow("fast already") << 0 << 9 << 1 << false;
  QTest::newRow("custom") << 0 << 9 << 2 << false;
  QTest::newRow("shown before") << 1 << 9 << 0 << false;
}

void TestLaunchFixups::speedHint() {
  QFETCH(const int, shown);
  QFETCH(const int, usages);
  QFETCH(const int, preset);
  setDefaultInt(u"WelcomeShown"_s, shown);
  const QString counter = u"ostrak_"_s + m_program->library().appVersionString() + u"_usages"_s;
  setDefaultInt(counter, usages);
  setDefaultInt(u"ConversionPreset"_s, preset);
  launch();
  QTEST(speedHintIsDue(), "due");
}

void TestLaunchFixups::speedHintIsNotDueWithAFreshStore() {
  const QString counter = u"ostrak_"_s + m_program->library().appVersionString() + u"_usages"_s;
  setDefaultInt(counter, 100);
  launch();
  QVERIFY(!speedHintIsDue());
}

void TestLaunchFixups::speedHintShownIsOnTheDisk() {
  setDefaultInt(u"WelcomeShown"_s, 0);
  m_program->library().userDefaults().synchronize();
  speedHintShown();
  // Read by a second store while the first one has not been closed.
  const ostrak::UserDefaults other(m_program->library().prefsPath(),
                                   ostrak::UserDefaults::Persistence::InMemory);
  QCOMPARE(other.storedValue(u"WelcomeShown"_s).toInt(), 1);
}

void TestLaunchFixups::speedHintCountsThisVersionOnly() {
  setDefaultInt(u"WelcomeShown"_s, 0);
  setDefaultInt(u"ostrak_usages"_s, 100);
  setDefaultInt(u"ostrak_0.0.0_usages"_s, 100);
  launch();
  QVERIFY(!speedHintIsDue());
}

void TestLaunchFixups::destinations_data() {
  QTest::addColumn<bool>("upgraded");
  QTest::addColumn<int>("bookmarks");
  QTest::addColumn<qint64>("stored");
  QTest::addColumn<qint64>("expected");
  QTest::newRow("old store, bookmark") << false << 4 << qint64(3) << qint64(4);
  QTest::newRow("old store, ask") << false << 0 << qint64(0) << qint64(0);
  QTest::newRow("old store, next to source") << false << 0 << qint64(1) << qint64(0);
  QTest::newRow("beyond the last, none left") << true << 0 << qint64(5) << qint64(1);
  QTest::newRow("separator") << true << 0 << qint64(2) << qint64(0);
  QTest::newRow("beyond the last of one is the separator") << true << 1 << qint64(4) << qint64(0);
  QTest::newRow("beyond the last of two") << true << 2 << qint64(5) << qint64(3);
  QTest::newRow("the last of two") << true << 2 << qint64(4) << qint64(4);
  QTest::newRow("next to source") << true << 0 << qint64(1) << qint64(1);
}

void TestLaunchFixups::destinations() {
  QFETCH(const bool, upgraded);
  QFETCH(const int, bookmarks);
  QFETCH(const qint64, stored);
  QFETCH(const qint64, expected);
  if (upgraded) setDefaultInt(u"HasUpgradedFromPre13"_s, 1);
  ostrak::setDefaultArray(u"DestinationBookmarks"_s,
                          QVariantList(bookmarks, QVariant(QByteArray("bookmark"))));
  setDefaultInt(u"DefaultDestination"_s, stored);
  launch();
  QCOMPARE(defaultInt(u"DefaultDestination"_s), expected);
  QCOMPARE(defaultInt(u"HasUpgradedFromPre13"_s), 1);
}

void TestLaunchFixups::laterLaunchesLeaveTheDestinationAlone() {
  ostrak::setDefaultArray(u"DestinationBookmarks"_s,
                          QVariantList(4, QVariant(QByteArray("bookmark"))));
  setDefaultInt(u"DefaultDestination"_s, 3);
  for (int i = 0; i < 3; ++i) {
    launch();
    QCOMPARE(defaultInt(u"DefaultDestination"_s), 4);
  }
}

QTEST_GUILESS_MAIN(TestLaunchFixups)
#include "tst_launchfixups.moc"
