#include <QSignalSpy>
#include <QTest>

#include "ControllerTest.h"
#include "Defaults.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Pausing and resuming the queue and single jobs.
class TestQueuePause final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void pausedQueueStartsNothing();
  void resumingByClickStartsExactlyOne();
  void pausedJobAheadIsResumedFirst();
  void pausingByClickPausesTheConvertingJob();
  void nothingIsStartedWhilePaused();
  void jobsOwnCallOnlyRefreshesTheTitle();
  void individuallyResumedJobLiftsThePausedMark();
  void startingASecondJobPausesTheFirst();
  void pausingOneJobStartsNoOther();
  void heldQueueStartsNothingAfterAResume();
  void heldQueueResumesWhatWasStarted();
  void heldQueueStartsNoNewJob();
  void heldQueueTellsWhoWantsIt();
  void releasedQueueGoesOn();
};

void TestQueuePause::pausedQueueStartsNothing() {
  pauseClick();
  m_p->add(u"1.mkv"_s);
  m_p->add(u"2.mkv"_s);
  m_p->controller->startNextJobInQueue();
  QCOMPARE(m_p->count(JobStateQueued), 2);
  QVERIFY(m_p->scenario.calls().isEmpty());
}

void TestQueuePause::resumingByClickStartsExactlyOne() {
  pauseClick();
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2slow.mkv"_s);
  pauseClick();
  QVERIFY(!m_p->queue().paused());
  QCOMPARE(m_p->count(JobStateConverting), 1);
  QCOMPARE(m_p->count(JobStateQueued), 1);
}

void TestQueuePause::pausedJobAheadIsResumedFirst() {
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  const ConversionJob *ahead = m_p->add(u"1slow.mkv"_s);
  const ConversionJob *behind = m_p->add(u"2slow.mkv"_s);
  pauseClick();
  QCOMPARE(ahead->state(), JobStatePaused);
  pauseClick();
  QCOMPARE(ahead->state(), JobStateConverting);
  QCOMPARE(behind->state(), JobStateQueued);
}

void TestQueuePause::pausingByClickPausesTheConvertingJob() {
  QSignalSpy texts(m_p->controller.get(), &AppDelegate::pauseTextsChanged);
  const ConversionJob *job = m_p->add(u"1slow.mkv"_s);
  QCOMPARE(m_p->controller->addButtonTitle(), u"Start Conversion"_s);
  pauseClick();
  QCOMPARE(job->state(), JobStatePaused);
  QVERIFY(m_p->queue().paused());
  QCOMPARE(m_p->controller->addButtonTitle(), u"Add to Queue"_s);
  QCOMPARE(texts.size(), 1);
  pauseClick();
  QCOMPARE(job->state(), JobStateConverting);
  QCOMPARE(m_p->controller->addButtonTitle(), u"Start Conversion"_s);
  QCOMPARE(texts.size(), 2);
}

void TestQueuePause::nothingIsStartedWhilePaused() {
  ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2.mkv"_s);
  pauseClick();
  first->remove();
  QCOMPARE(m_p->count(JobStateQueued), 1);
  QCOMPARE(m_p->count(JobStateConverting), 0);
}

void TestQueuePause::jobsOwnCallOnlyRefreshesTheTitle() {
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2.mkv"_s);
  QSignalSpy title(m_p->controller.get(), &AppDelegate::windowTitleChanged);
  QSignalSpy texts(m_p->controller.get(), &AppDelegate::pauseTextsChanged);
  m_p->controller->pauseContinueClicked(false);
  QCOMPARE(title.size(), 1);
  QVERIFY(texts.isEmpty());
  QCOMPARE(m_p->count(JobStateConverting), 1);
}

void TestQueuePause::individuallyResumedJobLiftsThePausedMark() {
  ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  const ConversionJob *second = m_p->add(u"2slow.mkv"_s);
  pauseClick();
  first->continue_();
  QVERIFY(!m_p->queue().paused());
  QCOMPARE(m_p->controller->addButtonTitle(), u"Start Conversion"_s);
  QCOMPARE(first->state(), JobStateConverting);
  QCOMPARE(second->state(), JobStateQueued);
}

void TestQueuePause::startingASecondJobPausesTheFirst() {
  const ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  ConversionJob *second = m_p->add(u"2slow.mkv"_s);
  QCOMPARE(second->start(), StartOutcome::launched);
  QCOMPARE(first->state(), JobStatePaused);
  QCOMPARE(second->state(), JobStateConverting);
  QCOMPARE(m_p->count(JobStateConverting), 1);
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
}

void TestQueuePause::pausingOneJobStartsNoOther() {
  ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2.mkv"_s);
  first->pause();
  QCOMPARE(m_p->count(JobStateConverting), 0);
  QVERIFY(!m_p->queue().paused());
  first->continue_();
  QCOMPARE(first->state(), JobStateConverting);
}

void TestQueuePause::heldQueueStartsNothingAfterAResume() {
  ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  const ConversionJob *second = m_p->add(u"2.mkv"_s);
  m_p->queue().hold();
  QVERIFY(m_p->queue().paused());
  QCOMPARE(first->state(), JobStateConverting);
  first->pause();
  first->continue_();
  QCOMPARE(first->state(), JobStateConverting);
  m_p->letGo();
  QTRY_COMPARE(first->state(), JobStateFinished);
  QTRY_VERIFY(m_p->queue().paused());
  pauseClick();
  QCOMPARE(second->state(), JobStateQueued);
  QVERIFY(m_p->queue().paused());
}

void TestQueuePause::heldQueueResumesWhatWasStarted() {
  const ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  const ConversionJob *second = m_p->add(u"2.mkv"_s);
  pauseClick();
  m_p->queue().hold();
  pauseClick();
  QCOMPARE(first->state(), JobStateConverting);
  QCOMPARE(second->state(), JobStateQueued);
}

void TestQueuePause::heldQueueStartsNoNewJob() {
  ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  m_p->queue().hold();
  first->pause();
  first->continue_();
  first->pause();
  QVERIFY(!m_p->queue().paused());
  const ConversionJob *second = m_p->add(u"2.mkv"_s);
  QCOMPARE(second->state(), JobStateQueued);
}

void TestQueuePause::heldQueueTellsWhoWantsIt() {
  m_p->add(u"1slow.mkv"_s);
  ConversionJob *second = m_p->add(u"2.mkv"_s);
  const QSignalSpy wanted(m_p->controller.get(), &AppDelegate::heldQueueWanted);
  m_p->queue().hold();
  QCOMPARE(wanted.size(), 0);
  second->continue_();
  QCOMPARE(second->state(), JobStateQueued);
  QCOMPARE(wanted.size(), 1);
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(wanted.size(), 1);
  pauseClick();
  QCOMPARE(wanted.size(), 2);
  QVERIFY(m_p->queue().paused());
  QCOMPARE(second->state(), JobStateQueued);
}

void TestQueuePause::releasedQueueGoesOn() {
  pauseClick();
  const ConversionJob *job = m_p->add(u"1.mkv"_s);
  m_p->queue().hold();
  connect(m_p->controller.get(), &AppDelegate::heldQueueWanted, m_p->controller.get(),
          [this] { m_p->queue().release(); });
  pauseClick();
  QVERIFY(!m_p->queue().paused());
  QTRY_COMPARE(job->state(), JobStateFinished);
}

QTEST_GUILESS_MAIN(TestQueuePause)
#include "tst_queuepause.moc"
