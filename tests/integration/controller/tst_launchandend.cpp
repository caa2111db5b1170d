#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include "ControllerTest.h"
#include "Defaults.h"
#include "Settings.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What the program does when it starts, and how it ends.
class TestLaunchAndEnd final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void quittingAsksOnlyWhileAJobConverts();
  void endRemovesEverythingAndLeavesNoOrphan();
  void endStartsNothing();
  void endWithoutCallingItLeavesNoOrphan();
  void endFlushesTheSettings();
  void quitComesWhenTheQueueIsDone();
  void quitWaitsForIntake();
  void quitDoesNotComeAfterAFailure();
  void quitDoesNotComeWhileANewJobRuns();
  void launchRepairsAndTells();
  void launchTellsAboutTheSpeedHint();
};

void TestLaunchAndEnd::quittingAsksOnlyWhileAJobConverts() {
  QVERIFY(m_p->controller->applicationShouldTerminate());
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2.mkv"_s);
  m_p->program.presenter().answer(ostrak::secondButton);
  QVERIFY(!m_p->controller->applicationShouldTerminate());
  m_p->program.presenter().answer(ostrak::firstButton);
  QVERIFY(m_p->controller->applicationShouldTerminate());
  QCOMPARE(m_p->program.presenter().presented.size(), 2);
  const ostrak::Alert &question = m_p->program.presenter().presented.at(0);
  QCOMPARE(question.title, u"Decant"_s);
  QCOMPARE(question.message, u"Conversion is in progresss. Are you sure you want to quit?"_s);
  QCOMPARE(question.buttons, QStringList({u"Quit"_s, u"Cancel"_s}));
  pauseClick();
  QVERIFY(m_p->controller->applicationShouldTerminate());
  QCOMPARE(m_p->program.presenter().presented.size(), 2);
}

void TestLaunchAndEnd::endRemovesEverythingAndLeavesNoOrphan() {
  m_p->add(u"1.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  m_p->add(u"2slow.mkv"_s);
  m_p->add(u"3.mkv"_s);
  QTRY_VERIFY(QFileInfo(m_p->path(u"2slow.m4v"_s)).size() > 0);
  const auto pid = m_p->scenario.calls().constLast().value(u"pid"_s).toInt();
  QCOMPARE(::kill(pid, 0), 0);
  m_p->controller->applicationWillTerminate();
  QVERIFY(m_p->names().isEmpty());
  QVERIFY(::kill(pid, 0) != 0);
  QVERIFY(!QFile::exists(m_p->path(u"2slow.m4v"_s)));
  QVERIFY(QFile::exists(m_p->path(u"1.m4v"_s)));
  for (const QString &name : {u"1.mkv"_s, u"2slow.mkv"_s, u"3.mkv"_s})
    QVERIFY(QFile::exists(m_p->path(name)));
  QCOMPARE(m_p->sleepInhibitor.held(), 0);
}

void TestLaunchAndEnd::endStartsNothing() {
  // The running job goes first, with all others behind it.
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  for (int i = 2; i < 20; ++i)
    m_p->add(QString::number(i) + u".mkv"_s);
  QTRY_COMPARE(m_p->scenario.calls().size(), 1);
  m_p->controller->applicationWillTerminate();
  QCOMPARE(m_p->converted(), QStringList(u"1slow.mkv"_s));
}

void TestLaunchAndEnd::endWithoutCallingItLeavesNoOrphan() {
  m_p->add(u"1slow.mkv"_s);
  QTRY_VERIFY(QFileInfo(m_p->path(u"1slow.m4v"_s)).size() > 0);
  const auto pid = m_p->scenario.calls().constLast().value(u"pid"_s).toInt();
  m_p->controller.reset();
  QVERIFY(::kill(pid, 0) != 0);
  QVERIFY(!QFile::exists(m_p->path(u"1slow.m4v"_s)));
}

void TestLaunchAndEnd::endFlushesTheSettings() {
  ostrak::setDefaultInt(u"AACBitrate"_s, 3);
  m_p->controller->applicationWillTerminate();
  const ostrak::UserDefaults other(ostrak::tk->prefsPath(),
                                   ostrak::UserDefaults::Persistence::InMemory);
  QCOMPARE(other.storedValue(u"AACBitrate"_s).toInt(), 3);
}

void TestLaunchAndEnd::quitComesWhenTheQueueIsDone() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2slow.mkv"_s);
  QCOMPARE(m_p->quits, 0);
  m_p->letGo();
  QTRY_COMPARE(m_p->quits, 1);
  QCOMPARE(m_p->count(JobStateFinished), 2);
}

void TestLaunchAndEnd::quitWaitsForIntake() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->intake().openFiles({m_p->movie(u"shown.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  m_p->letGo();
  QTRY_COMPARE(m_p->notifier.posted.size(), 1);
  QCoreApplication::processEvents();
  QCOMPARE(m_p->quits, 0);
  m_p->intake().cancelAdd();
  QCOMPARE(m_p->quits, 1);
}

void TestLaunchAndEnd::quitDoesNotComeAfterAFailure() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1fail.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFailed), 1);
  m_p->add(u"2.mkv"_s);
  QTRY_COMPARE(m_p->notifier.posted.size(), 2);
  QCoreApplication::processEvents();
  QCOMPARE(m_p->quits, 0);
}

void TestLaunchAndEnd::quitDoesNotComeWhileANewJobRuns() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->intake().openFiles({m_p->movie(u"hang.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  m_p->letGo();
  QTRY_COMPARE(m_p->notifier.posted.size(), 1);
  // The wish to quit is waiting; what was shown becomes a job and runs instead.
  QVERIFY(m_p->controller->addToQueue());
  QCoreApplication::processEvents();
  QCOMPARE(m_p->count(JobStateConverting), 1);
  QCOMPARE(m_p->quits, 0);
}

void TestLaunchAndEnd::launchRepairsAndTells() {
  ostrak::setDefaultInt(u"ExternalSubtitleEncoding"_s, 1);
  ostrak::setDefaultInt(u"CustomUnknownHandling"_s, 2);
  ostrak::setDefaultInt(u"DefaultDestination"_s, 5);
  ostrak::setDefaultInt(u"AC3SurroundBitrate"_s, 9);
  m_p->controller->applicationWillFinishLaunching();
  QCOMPARE(settingInt("ExternalSubtitleEncoding"), 0);
  QCOMPARE(settingInt("CustomUnknownHandling"), 1);
  QCOMPARE(settingInt("DefaultDestination"), 1);
  QCOMPARE(settingInt("HasUpgradedFromPre13"), 1);
  QVERIFY(m_p->program.presenter().presented.isEmpty());
  QTRY_COMPARE(m_p->program.presenter().presented.size(), 1);
  QCOMPARE(
      m_p->program.presenter().presented.at(0).message,
      u"The stored value \"9\" of \"AC3SurroundBitrate\" is out of range (allowed: 0 to 3); 1 is "
      "used."_s);
}

void TestLaunchAndEnd::launchTellsAboutTheSpeedHint() {
  QSignalSpy hint(m_p->controller.get(), &AppDelegate::speedHintDue);
  m_p->controller->applicationWillFinishLaunching();
  QVERIFY(hint.isEmpty());
  ostrak::setDefaultInt(u"WelcomeShown"_s, 0);
  ostrak::setDefaultInt(u"ostrak_"_s + ostrak::tk->appVersionString() + u"_usages"_s, 4);
  m_p->controller->applicationWillFinishLaunching();
  QCOMPARE(hint.size(), 1);
}

QTEST_GUILESS_MAIN(TestLaunchAndEnd)
#include "tst_launchandend.moc"
