#include <QSignalSpy>
#include <QTest>

#include "Defaults.h"
#include "ScratchProgram.h"
#include "VKApplicationDelegate.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestUsages final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void countsOverAllVersionsAndForThisOne();
  void isRateable_data();
  void isRateable();
  void tellsThatRateableMayHaveChanged();
  void asksForFeedback_data();
  void asksForFeedback();
  void opensTheLinkOfTheTag();
  void passesOnTheWishToEnd();
  void looksForNoUpdates();

 private:
  std::unique_ptr<ScratchProgram> m_program;
};

void TestUsages::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

void TestUsages::countsOverAllVersionsAndForThisOne() {
  VKApplicationDelegate delegate;
  delegate.increaseUsagesBy(0, 10, 20, u""_s, false, false);
  QCOMPARE(defaultInt(u"ostrak_usages"_s), 0);
  QCOMPARE(defaultInt(u"ostrak_1.2.3_usages"_s), 0);
  for (int run = 0; run < 3; ++run)
    delegate.increaseUsagesBy(1, 10, 20, u""_s, true, false);
  QCOMPARE(defaultInt(u"ostrak_usages"_s), 3);
  QCOMPARE(defaultInt(u"ostrak_1.2.3_usages"_s), 3);
  m_program->setInfo(u"CFBundleShortVersionString"_s, u"1/3"_s);
  m_program->restart();
  delegate.increaseUsagesBy(2, 10, 20, u""_s, true, false);
  m_program->restart();
  QCOMPARE(defaultInt(u"ostrak_usages"_s), 5);
  QCOMPARE(defaultInt(u"ostrak_1/3_usages"_s), 2);
  QCOMPARE(defaultInt(u"ostrak_1.2.3_usages"_s), 3);
}

void TestUsages::isRateable_data() {
  QTest::addColumn<int>("usages");
  QTest::addColumn<int>("threshold");
  QTest::addColumn<bool>("rateable");
  QTest::newRow("at the threshold") << 10 << 10 << false;
  QTest::newRow("above it") << 11 << 10 << true;
  QTest::newRow("smallest threshold") << 2 << 1 << true;
  QTest::newRow("threshold of zero") << 1000 << 0 << false;
  QTest::newRow("negative threshold") << 1000 << -1 << false;
}

void TestUsages::isRateable() {
  QFETCH(int, usages);
  QFETCH(int, threshold);
  QFETCH(bool, rateable);
  VKApplicationDelegate delegate;
  QVERIFY(!delegate.isRateable());
  QCOMPARE(delegate.minimumUsagesForRating(), 0);
  delegate.increaseUsagesBy(usages, threshold, 20, u""_s, false, false);
  QCOMPARE(delegate.minimumUsagesForRating(), threshold);
  QCOMPARE(delegate.isRateable(), rateable);
  QCOMPARE(delegate.property("isRateable").toBool(), rateable);
}

void TestUsages::tellsThatRateableMayHaveChanged() {
  VKApplicationDelegate delegate;
  QSignalSpy changed(&delegate, &VKApplicationDelegate::rateableChanged);
  delegate.setMinimumUsagesForRating(10);
  QCOMPARE(changed.size(), 1);
  bool seen = false;
  connect(&delegate, &VKApplicationDelegate::rateableChanged, this,
          [&] { seen = delegate.isRateable(); });
  delegate.increaseUsagesBy(11, 10, 20, u""_s, false, false);
  QCOMPARE(changed.size(), 2);
  QVERIFY(seen);
}

void TestUsages::asksForFeedback_data() {
  QTest::addColumn<bool>("allow");
  QTest::addColumn<bool>("force");
  QTest::addColumn<int>("asked");
  QTest::newRow("neither") << false << false << 0;
  QTest::newRow("only allowed") << true << false << 0;
  QTest::newRow("only forced") << false << true << 0;
  QTest::newRow("both") << true << true << 1;
}

void TestUsages::asksForFeedback() {
  QFETCH(bool, allow);
  QFETCH(bool, force);
  QFETCH(int, asked);
  setDefaultInt(u"ostrak_dontaskagain"_s, 1);
  VKApplicationDelegate delegate;
  QSignalSpy requested(&delegate, &VKApplicationDelegate::feedbackRequested);
  delegate.increaseUsagesBy(0, 10, 20, u"[APPNAME] [USAGES_ASKREVIEW] [APPNAME]"_s, allow, force);
  QCOMPARE(requested.size(), asked);
  if (asked) QCOMPARE(requested.first().first().toString(), u"Decant 20 Decant"_s);
}

void TestUsages::opensTheLinkOfTheTag() {
  m_program->setInfo(u"VendorProductPage"_s, u"https://decant.example/home"_s);
  m_program->setInfo(u"MacupdateProductPage"_s, u"https://decant.example/rate"_s);
  m_program->restart();
  VKApplicationDelegate delegate;
  QObject item;
  item.setProperty("tag", 3);
  delegate.openURL(item);
  item.setProperty("tag", u"6"_s);
  delegate.openURL(item);
  QCOMPARE(m_program->opener().opened, QList<QUrl>({QUrl(u"https://decant.example/home"_s),
                                                    QUrl(u"https://decant.example/rate"_s)}));
}

void TestUsages::passesOnTheWishToEnd() {
  VKApplicationDelegate delegate;
  QSignalSpy requested(&delegate, &VKApplicationDelegate::terminationRequested);
  delegate.terminate(*this);
  QCOMPARE(requested.size(), 1);
}

void TestUsages::looksForNoUpdates() {
  VKApplicationDelegate delegate;
  delegate.initUpdateCheck();
  delegate.checkForUpdatesAction(*this);
  QVERIFY(m_program->opener().opened.isEmpty());
  QVERIFY(m_program->presenter().presented.isEmpty());
}

QTEST_GUILESS_MAIN(TestUsages)
#include "tst_usages.moc"
