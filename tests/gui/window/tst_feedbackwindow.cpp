#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QWidget>
#include <QWidgetList>

#include "Defaults.h"
#include "Ostrak.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// When the feedback window comes: when somebody forces it, and never by itself.
class TestFeedbackWindow final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void launchAndRunsOnlyCount();
  void allowingIsNotEnough();
  void forcedOne();
  void forcedAgainWhileItIsOpen();
  void freshOneAfterClosing();
  void closesInTheMiddleOfAnAction();
  void goesWithTheProgram();
  void missingFormIsTold();
  void wishToEndAsksTheProgram();

 private:
  // As a caller that insists does it.
  void force(const QString &text) { m_b->app().increaseUsagesBy(0, 10, 20, text, true, true); }
  [[nodiscard]] static QWidgetList openOnes() {
    QWidgetList found;
    for (QWidget *each : QApplication::topLevelWidgets())
      if (each->objectName() == u"ratingWindow"_s && each->isVisible()) found.append(each);
    return found;
  }
  [[nodiscard]] static QString introText() {
    return openOnes().first()->findChild<QLabel *>(u"introTextField"_s)->text();
  }
  static void click(const QString &name) {
    QTest::mouseClick(openOnes().first()->findChild<QWidget *>(name), Qt::LeftButton);
  }
  [[nodiscard]] static qint64 usages() { return ostrak::defaultInt(u"ostrak_usages"_s); }
};

void TestFeedbackWindow::launchAndRunsOnlyCount() {
  ostrak::setDefaultInt(u"ostrak_usages"_s, 10);
  ostrak::setDefaultInt(u"ostrak_1.2.3_usages"_s, 30);
  QVERIFY(m_b->open());
  QCOMPARE(usages(), 10);
  QVERIFY(!m_b->app().isRateable());
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"fail.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  QTRY_COMPARE(m_b->count(JobStateFailed), 1);
  QCOMPARE(usages(), 13);
  QCOMPARE(ostrak::defaultInt(u"ostrak_1.2.3_usages"_s), 33);
  QVERIFY(m_b->app().isRateable());
  QVERIFY(openOnes().isEmpty());
  QCOMPARE(m_b->desktop().ratingWindowController(), nullptr);
}

void TestFeedbackWindow::allowingIsNotEnough() {
  QVERIFY(m_b->open());
  m_b->app().increaseUsagesBy(100, 10, 20, u"text"_s, true, false);
  m_b->app().increaseUsagesBy(100, 10, 20, u"text"_s, false, true);
  QVERIFY(openOnes().isEmpty());
}

void TestFeedbackWindow::forcedOne() {
  ostrak::setDefaultInt(u"ostrak_dontaskagain"_s, 1);
  QVERIFY(m_b->open());
  force(u"[APPNAME] was used [USAGES_ASKREVIEW] times."_s);
  QCOMPARE(openOnes().size(), 1);
  QCOMPARE(openOnes().first(), m_b->desktop().ratingWindowController()->window());
  QCOMPARE(introText(), u"Decant was used 20 times."_s);
  QVERIFY(QTest::qWaitForWindowActive(openOnes().first()));
}

void TestFeedbackWindow::forcedAgainWhileItIsOpen() {
  QVERIFY(m_b->open());
  force(u"first"_s);
  const QWidget *before = openOnes().first();
  click(u"problemButton"_s);
  force(u"second"_s);
  QCOMPARE(openOnes(), QWidgetList{openOnes().first()});
  QCOMPARE(openOnes().first(), before);
  QCOMPARE(introText(), u"second"_s);
  QVERIFY(openOnes().first()->findChild<QWidget *>(u"angryView"_s)->isVisible());
}

void TestFeedbackWindow::freshOneAfterClosing() {
  QVERIFY(m_b->open());
  force(u"first"_s);
  const QPointer<QWidget> before(openOnes().first());
  click(u"problemButton"_s);
  openOnes().first()->close();
  QCOMPARE(m_b->desktop().ratingWindowController(), nullptr);
  force(u"second"_s);
  QCOMPARE(openOnes().size(), 1);
  QVERIFY(openOnes().first() != before);
  QVERIFY(openOnes().first()->findChild<QWidget *>(u"initialView"_s)->isVisible());
  QTRY_VERIFY(!before);
  // The closed one does not take the reference to its successor along.
  QVERIFY(m_b->desktop().ratingWindowController());
  QCOMPARE(openOnes().size(), 1);
}

void TestFeedbackWindow::closesInTheMiddleOfAnAction() {
  QVERIFY(m_b->open());
  force(u"text"_s);
  m_b->program.presenter().answer(ostrak::secondButton);
  click(u"dontshowButton"_s);
  QCOMPARE(m_b->desktop().ratingWindowController(), nullptr);
  QTRY_COMPARE(m_b->presented().size(), 1);
  QCOMPARE(m_b->presented().first().title, u"Confirmation"_s);
  QTRY_COMPARE(ostrak::defaultInt(u"ostrak_dontaskagain"_s), 1);
  // It keeps nobody from showing the window who insists.
  force(u"again"_s);
  QCOMPARE(openOnes().size(), 1);
}

void TestFeedbackWindow::goesWithTheProgram() {
  QVERIFY(m_b->open());
  force(u"text"_s);
  QVERIFY(m_b->desktop().quit());
  QVERIFY(openOnes().isEmpty());
  QCOMPARE(m_b->quits, 1);
}

void TestFeedbackWindow::missingFormIsTold() {
  QVERIFY(m_b->open());
  QVERIFY(QFile::remove(m_b->program.library().resDir() + u"/ui"_s));
  force(u"text"_s);
  QCOMPARE(m_b->desktop().ratingWindowController(), nullptr);
  QTRY_COMPARE(m_b->told(), QStringList{u"VKRatingWindow.ui is missing from the program's folder; "
                                        "install Decant again."_s});
}

void TestFeedbackWindow::wishToEndAsksTheProgram() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
  m_b->program.presenter().answer(ostrak::secondButton);
  ostrak::VKApplicationDelegate &delegate = m_b->app();
  delegate.terminate(*this);
  QCOMPARE(m_b->presented().size(), 1);
  QCOMPARE(m_b->quits, 0);
  delegate.terminate(*this);
  QCOMPARE(m_b->quits, 1);
}

int main(int argc, char **argv) {
  return runWindowTest<TestFeedbackWindow>(argc, argv);
}
#include "tst_feedbackwindow.moc"
