#include <QFile>
#include <QObject>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include "ControllerTest.h"
#include "Defaults.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Order, pausing, titles: what runs and what waits while everything goes well.
class TestQueue final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void firstJobStartsBeforeItIsInTheList();
  void jobsAreInsertedAtTheTop();
  void jobsAreInsertedAtTheBottomWhenAsked();
  void anotherConvertsSoItWaits();
  void theMostRecentJobRunsFirst();
  void queuedJobAheadIsStartedFirst();
  void endOfAJobStartsTheNext();
  void removalOfTheRunningJobStartsTheNext();
  void cleaningRemovesFinishedJobsOnly();
  void cleaningWithNothingRunningStartsTheNextOnce();
  void autoCleanTakesFinishedJobsOut();
  void membershipIsBracketed();
  void titles();
  void titleIsToldWhenItChanges();
  void usagesAreCounted();
};

void TestQueue::firstJobStartsBeforeItIsInTheList() {
  auto job = m_p->job(m_p->movie(u"slow.mkv"_s));
  const ConversionJob &started = *job;
  const QObject context;
  JobState before = JobStateQueued;
  connect(&m_p->queue(), &JobQueue::aboutToInsert, &context, [&] { before = started.state(); });
  QCOMPARE(m_p->controller->addJob(std::move(job)), AppDelegate::Admission::added);
  QCOMPARE(before, JobStateConverting);
  QCOMPARE(m_p->count(JobStateConverting), 1);
}

void TestQueue::jobsAreInsertedAtTheTop() {
  for (const QString &name : {u"1slow.mkv"_s, u"2.mkv"_s, u"3.mkv"_s})
    m_p->add(name);
  QCOMPARE(m_p->names(), QStringList({u"3.mkv"_s, u"2.mkv"_s, u"1slow.mkv"_s}));
}

void TestQueue::jobsAreInsertedAtTheBottomWhenAsked() {
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  for (const QString &name : {u"1slow.mkv"_s, u"2.mkv"_s, u"3.mkv"_s})
    m_p->add(name);
  QCOMPARE(m_p->names(), QStringList({u"1slow.mkv"_s, u"2.mkv"_s, u"3.mkv"_s}));
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 3);
  QCOMPARE(m_p->converted(), QStringList({u"1slow.mkv"_s, u"2.mkv"_s, u"3.mkv"_s}));
}

void TestQueue::anotherConvertsSoItWaits() {
  m_p->add(u"1slow.mkv"_s);
  const ConversionJob *second = m_p->add(u"2.mkv"_s);
  QCOMPARE(second->state(), JobStateQueued);
  QCOMPARE(m_p->count(JobStateConverting), 1);
}

void TestQueue::theMostRecentJobRunsFirst() {
  pauseClick();
  for (const QString &name : {u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s})
    m_p->add(name);
  pauseClick();
  QTRY_COMPARE(m_p->count(JobStateFinished), 3);
  QCOMPARE(m_p->converted(), QStringList({u"3.mkv"_s, u"2.mkv"_s, u"1.mkv"_s}));
}

void TestQueue::queuedJobAheadIsStartedFirst() {
  const ConversionJob *behind = m_p->add(u"1slow.mkv"_s);
  const ConversionJob *ahead = m_p->add(u"2slow.mkv"_s);
  pauseClick();
  pauseClick();
  QCOMPARE(ahead->state(), JobStateConverting);
  QCOMPARE(behind->state(), JobStatePaused);
  // At its end the paused one is the next.
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
}

void TestQueue::endOfAJobStartsTheNext() {
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2fail.mkv"_s);
  m_p->add(u"3.mkv"_s);
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  QTRY_COMPARE(m_p->count(JobStateFailed), 1);
  QCOMPARE(m_p->converted(), QStringList({u"1slow.mkv"_s, u"3.mkv"_s, u"2fail.mkv"_s}));
}

void TestQueue::removalOfTheRunningJobStartsTheNext() {
  ConversionJob *first = m_p->add(u"1slow.mkv"_s);
  const ConversionJob *second = m_p->add(u"2slow.mkv"_s);
  first->remove();
  QCOMPARE(m_p->names(), QStringList(u"2slow.mkv"_s));
  QCOMPARE(second->state(), JobStateConverting);
}

void TestQueue::cleaningRemovesFinishedJobsOnly() {
  m_p->add(u"1.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  m_p->add(u"2fail.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFailed), 1);
  m_p->add(u"3.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  m_p->add(u"4slow.mkv"_s);
  m_p->add(u"5.mkv"_s);
  m_p->controller->cleanClicked();
  QCOMPARE(m_p->names(), QStringList({u"5.mkv"_s, u"4slow.mkv"_s, u"2fail.mkv"_s}));
  QVERIFY(QFile::exists(m_p->path(u"1.m4v"_s)));
  QCOMPARE(m_p->count(JobStateConverting), 1);
}

void TestQueue::cleaningWithNothingRunningStartsTheNextOnce() {
  m_p->add(u"1.mkv"_s);
  m_p->add(u"2.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  m_p->volumes.free = 0;
  m_p->add(u"3.mkv"_s);
  QSignalSpy noRoom(&m_p->queue(), &JobQueue::jobHadNoRoom);
  m_p->controller->cleanClicked();
  QCOMPARE(m_p->names(), QStringList(u"3.mkv"_s));
  QCOMPARE(noRoom.size(), 1);
}

void TestQueue::autoCleanTakesFinishedJobsOut() {
  ostrak::setDefaultInt(u"AutoClean"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2fail.mkv"_s);
  m_p->letGo();
  QTRY_COMPARE(m_p->names(), QStringList(u"2fail.mkv"_s));
  QTRY_COMPARE(m_p->count(JobStateFailed), 1);
  QVERIFY(QFile::exists(m_p->path(u"1slow.m4v"_s)));
}

void TestQueue::membershipIsBracketed() {
  const QObject context;
  QStringList told;
  const auto size = [this] { return QString::number(m_p->queue().taskArray().size()); };
  connect(&m_p->queue(), &JobQueue::aboutToInsert, &context,
          [&](qsizetype i) { told.append(u"+"_s + QString::number(i) + u" at "_s + size()); });
  connect(&m_p->queue(), &JobQueue::inserted, &context, [&](qsizetype i) {
    told.append(u"inserted "_s + QString::number(i) + u" at "_s + size());
  });
  connect(&m_p->queue(), &JobQueue::aboutToRemove, &context,
          [&](qsizetype i) { told.append(u"-"_s + QString::number(i) + u" at "_s + size()); });
  connect(&m_p->queue(), &JobQueue::removed, &context, [&](qsizetype i) {
    told.append(u"removed "_s + QString::number(i) + u" at "_s + size());
  });
  pauseClick();
  ConversionJob *first = m_p->add(u"1.mkv"_s);
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  m_p->add(u"2.mkv"_s);
  first->remove();
  QCOMPARE(told, QStringList({u"+0 at 0"_s, u"inserted 0 at 1"_s, u"+1 at 1"_s,
                              u"inserted 1 at 2"_s, u"-0 at 2"_s, u"removed 0 at 1"_s}));
}

void TestQueue::titles() {
  QCOMPARE(m_p->controller->windowTitle(), u"Decant "_s);
  pauseClick();
  QCOMPARE(m_p->controller->windowTitle(), u"Decant (Paused)"_s);
  m_p->add(u"1slow.mkv"_s);
  QCOMPARE(m_p->controller->windowTitle(), u"Decant (Paused) [1 Job(s), 1 Queued]"_s);
  pauseClick();
  QCOMPARE(m_p->controller->windowTitle(), u"Decant  [1 Job(s), 0 Queued]"_s);
  m_p->add(u"2.mkv"_s);
  QCOMPARE(m_p->controller->windowTitle(), u"Decant  [2 Job(s), 1 Queued]"_s);
}

void TestQueue::titleIsToldWhenItChanges() {
  QString last;
  const QObject context;
  connect(m_p->controller.get(), &AppDelegate::windowTitleChanged, &context,
          [&last](const QString &title) { last = title; });
  m_p->add(u"1slow.mkv"_s);
  QCOMPARE(last, m_p->controller->windowTitle());
  m_p->add(u"2slow.mkv"_s);
  QCOMPARE(last, u"Decant  [2 Job(s), 1 Queued]"_s);
  pauseClick();
  QCOMPARE(last, u"Decant (Paused) [2 Job(s), 1 Queued]"_s);
  pauseClick();
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  QCOMPARE(last, u"Decant  [2 Job(s), 0 Queued]"_s);
  m_p->controller->cleanClicked();
  QCOMPARE(last, u"Decant "_s);
}

void TestQueue::usagesAreCounted() {
  const QString version = u"ostrak_"_s + ostrak::tk->appVersionString() + u"_usages"_s;
  QSignalSpy feedback(m_p->controller.get(), &AppDelegate::feedbackRequested);
  m_p->controller->applicationWillFinishLaunching();
  QCOMPARE(ostrak::defaultInt(u"ostrak_usages"_s), 0);
  QCOMPARE(m_p->controller->minimumUsagesForRating(), 10);
  ostrak::setDefaultInt(u"ostrak_usages"_s, 9);
  m_p->add(u"1.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(ostrak::defaultInt(u"ostrak_usages"_s), 10);
  QVERIFY(!m_p->controller->isRateable());
  m_p->add(u"2fail.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFailed), 1);
  QCOMPARE(ostrak::defaultInt(u"ostrak_usages"_s), 11);
  QCOMPARE(ostrak::defaultInt(version), 2);
  QVERIFY(m_p->controller->isRateable());
  QVERIFY(feedback.isEmpty());
}

QTEST_GUILESS_MAIN(TestQueue)
#include "tst_queue.moc"
