#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <QUrl>

#include "ControllerTest.h"
#include "Defaults.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What the user wanted of one job or of the queue outlasts what happens beside it, and not longer.
class TestQueueWishes final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void aPausedJobStaysPausedWhenAFileIsShown();
  void aPausedJobStaysPausedWhenAFileIsSkipped();
  void aPausedJobStaysPausedWhenAFileIsRefused();
  void quitIsForgottenWithANewJob();
  void namesAreFreeAgainAfterTheEnd_data();
  void namesAreFreeAgainAfterTheEnd();
  void sourcesAreFreeAgainAfterTheEnd();
  void anEndedJobReleasesOnce();
  void namesAreKeptWhileADisposalLooks_data();
  void namesAreKeptWhileADisposalLooks();

 private:
  // A job that was paused by itself; the queue goes on.
  const ConversionJob *pausedJob() {
    ConversionJob *const job = m_p->add(u"1slow.mkv"_s);
    m_p->add(u"2.mkv"_s);
    job->pause();
    return job;
  }
  void show(const QString &name) {
    m_p->intake().openFiles({m_p->movie(name)});
    QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  }
  // As after an agreement to replace what is there.
  bool addReplacing(const QString &source, const QString &destination) {
    auto job = m_p->job(m_p->movie(source), m_p->path(destination));
    job->setReplacesDestination(true);
    return m_p->controller->addJob(std::move(job)) == AppDelegate::Admission::added;
  }
  void settle() {
    QTRY_COMPARE(m_p->count(JobStateQueued) + m_p->count(JobStateConverting), 0);
    // What a job's end wants is seen when its handler is done.
    QCoreApplication::processEvents();
    QTRY_VERIFY(m_p->controller->disposal().isIdle());
  }
};

void TestQueueWishes::aPausedJobStaysPausedWhenAFileIsShown() {
  const ConversionJob *const job = pausedJob();
  show(u"3.mkv"_s);
  QCOMPARE(job->state(), JobStatePaused);
  QCOMPARE(m_p->count(JobStateConverting), 0);
}

void TestQueueWishes::aPausedJobStaysPausedWhenAFileIsSkipped() {
  const ConversionJob *const job = pausedJob();
  show(u"3.mkv"_s);
  m_p->intake().cancelAdd();
  QVERIFY(m_p->intake().isIdle());
  QCOMPARE(job->state(), JobStatePaused);
}

void TestQueueWishes::aPausedJobStaysPausedWhenAFileIsRefused() {
  const ConversionJob *const job = pausedJob();
  m_p->intake().openFiles({m_p->movie(u"bad.mkv"_s)});
  QTRY_VERIFY(m_p->intake().isIdle());
  QCoreApplication::processEvents();
  QCOMPARE(job->state(), JobStatePaused);
}

void TestQueueWishes::quitIsForgottenWithANewJob() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  show(u"2.mkv"_s);
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QTRY_COMPARE(m_p->notifier.posted.size(), 1);
  pauseClick();
  QVERIFY(m_p->controller->addToQueue());
  // Something else comes and goes.
  show(u"3.mkv"_s);
  m_p->intake().cancelAdd();
  QCoreApplication::processEvents();
  QCOMPARE(m_p->quits, 0);
  pauseClick();
  QTRY_COMPARE(m_p->quits, 1);
}

void TestQueueWishes::namesAreFreeAgainAfterTheEnd_data() {
  QTest::addColumn<QString>("first");
  QTest::addColumn<int>("autoRemove");
  QTest::newRow("success") << u"1.mkv"_s << 0;
  QTest::newRow("failure") << u"1fail.mkv"_s << 0;
  QTest::newRow("success, source to go") << u"1.mkv"_s << 1;
  QTest::newRow("failure, source to go") << u"1fail.mkv"_s << 1;
}

void TestQueueWishes::namesAreFreeAgainAfterTheEnd() {
  QFETCH(const QString, first);
  QFETCH(const int, autoRemove);
  ostrak::setDefaultInt(u"AutoRemove"_s, autoRemove);
  QVERIFY(addReplacing(first, u"out.m4v"_s));
  settle();
  QVERIFY(addReplacing(u"2.mkv"_s, u"out.m4v"_s));
  settle();
  QVERIFY(QFile::exists(m_p->path(u"out.m4v"_s)));
  QVERIFY(!QFile::exists(m_p->path(u"out-0.m4v"_s)));
}

void TestQueueWishes::sourcesAreFreeAgainAfterTheEnd() {
  QVERIFY(addReplacing(u"1.mkv"_s, u"1.m4v"_s));
  settle();
  QVERIFY(addReplacing(u"2.mkv"_s, u"1.mkv"_s));
}

// The name of an ended job can be another one's by the time it leaves the list.
void TestQueueWishes::anEndedJobReleasesOnce() {
  QVERIFY(addReplacing(u"1.mkv"_s, u"out.m4v"_s));
  settle();
  QVERIFY(addReplacing(u"2slow.mkv"_s, u"out.m4v"_s));
  m_p->controller->cleanClicked();
  QVERIFY(m_p->controller->claimedNames().isClaimed(m_p->path(u"out.m4v"_s)));
  m_p->letGo();
  settle();
}

void TestQueueWishes::namesAreKeptWhileADisposalLooks_data() {
  QTest::addColumn<int>("autoClean");
  QTest::newRow("job stays listed") << 0;
  QTest::newRow("job leaves the list") << 1;
}

// The output is the movie from then on, until it has been seen that the source may go.
void TestQueueWishes::namesAreKeptWhileADisposalLooks() {
  QFETCH(const int, autoClean);
  ostrak::setDefaultInt(u"AutoRemove"_s, 1);
  ostrak::setDefaultInt(u"AutoClean"_s, autoClean);
  Scenario slow(m_p->scenario.path());
  slow.probe().announce(u"asked"_s).wait(u"answer"_s).defaultReport();
  QVERIFY(slow.write());
  const QString output = m_p->path(u"1.m4v"_s);
  m_p->add(u"1.mkv"_s);
  QTRY_VERIFY(slow.announced(u"asked"_s));
  QCOMPARE(m_p->names().size(), 1 - autoClean);
  const ClaimedNames &claimed = m_p->controller->claimedNames();
  QVERIFY(claimed.isClaimed(output));
  QVERIFY(slow.release(u"answer"_s));
  QTRY_VERIFY(!claimed.isClaimed(output));
  QCOMPARE(m_p->trashCan.trashed, QStringList(m_p->path(u"1.mkv"_s)));
}

QTEST_GUILESS_MAIN(TestQueueWishes)
#include "tst_queuewishes.moc"
