#include <QFile>
#include <QHash>
#include <QList>
#include <QObject>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "BuildTree.h"
#include "ControllerTest.h"
#include "Defaults.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What is admitted to the queue, and what happens to jobs that cannot start.
class TestAdmission final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void unwritableDestinationIsRefused_data();
  void unwritableDestinationIsRefused();
  void refusalCancelsTheIntake();
  void twoJobsNeverShareADestination();
  void claimEndsWithTheJob();
  void takenDestinationIsMadeUniqueAtTheStart();
  void noRoomStaysQueuedAndTheNextIsTried();
  void noRoomIsTriedAgainLater();
  void eachIsTriedOnceARound();
  void listenerMayRemoveAJobWithoutRoom();
  void removedSourceIsPassedOver();
  void missingToolFailsEachJob();
  void manyFailingJobsAreOneRound();
  void jobsStayInPlaceThroughRandomChanges();
};

void TestAdmission::unwritableDestinationIsRefused_data() {
  QTest::addColumn<QString>("destination");
  QTest::newRow("no folder") << u"nowhere/out.m4v"_s;
  QTest::newRow("folder is a file") << u"film.mkv/out.m4v"_s;
  QTest::newRow("a folder") << u"home"_s;
  QTest::newRow("name too long") << QString(QString(300, u'x') + u".m4v"_s);
}

void TestAdmission::unwritableDestinationIsRefused() {
  QFETCH(const QString, destination);
  const QString source = m_p->movie(u"film.mkv"_s);
  QCOMPARE(admit(source, m_p->path(destination)), AppDelegate::Admission::notWritable);
  QVERIFY(m_p->names().isEmpty());
  QVERIFY(m_p->program.presenter().presented.isEmpty());
  QTRY_COMPARE(told(), QStringList(u"You don't seem to have write access to the selected "
                                   "destinatation or it is a read-only filesystem. Please choose "
                                   "another destination."_s));
  const ostrak::Alert &alert = m_p->program.presenter().presented.at(0);
  QCOMPARE(alert.title, u"Decant"_s);
  QCOMPARE(alert.buttons, QStringList(u"OK"_s));
  QCOMPARE(alert.subject, source);
  QVERIFY(m_p->scenario.calls().isEmpty());
}

void TestAdmission::refusalCancelsTheIntake() {
  m_p->intake().openFiles({m_p->movie(u"1.mkv"_s), m_p->movie(u"2.mkv"_s)});
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  auto job = m_p->controller->makeJob(QUrl::fromLocalFile(u"/nowhere/out.m4v"_s));
  QVERIFY(job);
  QCOMPARE(m_p->controller->addJob(std::move(job)), AppDelegate::Admission::notWritable);
  QTRY_COMPARE(m_p->intake().state(), Intake::State::Showing);
  QCOMPARE(m_p->intake().fileInfo()->fileName, u"2.mkv"_s);
}

void TestAdmission::twoJobsNeverShareADestination() {
  pauseClick();
  const QString out = m_p->path(u"out.m4v"_s);
  QCOMPARE(admit(m_p->movie(u"1.mkv"_s), out), AppDelegate::Admission::added);
  QCOMPARE(admit(m_p->movie(u"2.mkv"_s), out), AppDelegate::Admission::added);
  QStringList destinations;
  for (const ConversionJob *job : m_p->queue().taskArray())
    destinations.append(job->fileInfo().destinationURL.toLocalFile());
  QCOMPARE(destinations, QStringList({m_p->path(u"out-0.m4v"_s), out}));
}

void TestAdmission::claimEndsWithTheJob() {
  pauseClick();
  ConversionJob *job = m_p->add(u"1.mkv"_s);
  const QString out = m_p->path(u"1.m4v"_s);
  QVERIFY(m_p->controller->claimedNames().isClaimed(out));
  QVERIFY(m_p->controller->isSource(m_p->path(u"1.mkv"_s)));
  job->remove();
  QVERIFY(!m_p->controller->claimedNames().isClaimed(out));
  QVERIFY(!m_p->controller->isSource(m_p->path(u"1.mkv"_s)));
}

void TestAdmission::takenDestinationIsMadeUniqueAtTheStart() {
  pauseClick();
  ConversionJob *job = m_p->add(u"1slow.mkv"_s);
  QVERIFY(wholefile::write(m_p->path(u"1slow.m4v"_s), "somebody else's"));
  pauseClick();
  const ClaimedNames &claimed = m_p->controller->claimedNames();
  QVERIFY(claimed.isClaimed(m_p->path(u"1slow-0.m4v"_s)));
  QVERIFY(!claimed.isClaimed(m_p->path(u"1slow.m4v"_s)));
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
  QCOMPARE(job->fileInfo().destinationURL.toLocalFile(), m_p->path(u"1slow-0.m4v"_s));
  QCOMPARE(wholefile::read(m_p->path(u"1slow.m4v"_s)), "somebody else's");
  QVERIFY(!claimed.isClaimed(m_p->path(u"1slow-0.m4v"_s)));
}

void TestAdmission::noRoomStaysQueuedAndTheNextIsTried() {
  pauseClick();
  const ConversionJob *small = m_p->add(u"smallslow.mkv"_s);
  QFile large(m_p->movie(u"large.mkv"_s));
  QVERIFY(large.resize(1000));
  QCOMPARE(admit(large.fileName(), m_p->path(u"large.m4v"_s)), AppDelegate::Admission::added);
  m_p->volumes.free = 500;
  QSignalSpy noRoom(&m_p->queue(), &JobQueue::jobHadNoRoom);
  pauseClick();
  QCOMPARE(small->state(), JobStateConverting);
  QCOMPARE(noRoom.size(), 1);
  QCOMPARE(m_p->count(JobStateQueued), 1);
  QTRY_COMPARE(told(), QStringList(u"There is not enough free space on your target disk for "
                                   "conversion."_s));
  QCOMPARE(m_p->names(), QStringList({u"large.mkv"_s, u"smallslow.mkv"_s}));
}

void TestAdmission::noRoomIsTriedAgainLater() {
  m_p->volumes.free = 0;
  const ConversionJob *job = m_p->add(u"1.mkv"_s);
  QCOMPARE(job->state(), JobStateQueued);
  m_p->volumes.free = 1000;
  m_p->add(u"2slow.mkv"_s);
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
}

void TestAdmission::eachIsTriedOnceARound() {
  m_p->volumes.free = 0;
  QHash<const ConversionJob *, int> tries;
  const QObject context;
  connect(&m_p->queue(), &JobQueue::jobHadNoRoom, &context, [&](ConversionJob *job) {
    ++tries[job];
    // As a job's own end would: the round under way must not begin a second one below it.
    m_p->controller->startNextJobInQueue();
  });
  for (int i = 0; i < 5; ++i) {
    tries.clear();
    m_p->add(QString::number(i) + u".mkv"_s);
    QCOMPARE(tries.values(), QList<int>(i + 1, 1));
  }
  // Through intake, too: the job is admitted and intake runs dry in one event.
  ostrak::setDefaultInt(u"AutoAdd"_s, 1);
  tries.clear();
  m_p->intake().openFiles({m_p->movie(u"last.mkv"_s)});
  QTRY_COMPARE(m_p->count(JobStateQueued), 6);
  QCOMPARE(tries.values(), QList<int>(6, 1));
}

void TestAdmission::listenerMayRemoveAJobWithoutRoom() {
  pauseClick();
  for (const QString &name : {u"1.mkv"_s, u"2.mkv"_s, u"3.mkv"_s})
    m_p->add(name);
  m_p->volumes.free = 0;
  const QObject context;
  connect(&m_p->queue(), &JobQueue::jobHadNoRoom, &context, [&](ConversionJob *job) {
    if (job->fileInfo().fileName == u"2.mkv"_s) m_p->volumes.free = 1000;
    job->remove();
  });
  pauseClick();
  QCOMPARE(m_p->names(), QStringList(u"1.mkv"_s));
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
}

void TestAdmission::removedSourceIsPassedOver() {
  m_p->add(u"1slow.mkv"_s);
  m_p->add(u"2.mkv"_s);
  const ConversionJob *gone = m_p->add(u"3.mkv"_s);
  QVERIFY(QFile::remove(m_p->path(u"3.mkv"_s)));
  m_p->letGo();
  QTRY_COMPARE(m_p->count(JobStateFinished), 2);
  QCOMPARE(gone->state(), JobStateFailed);
  QCOMPARE(told(),
           QStringList(u"It seems you've removed the file 3.mkv or unmounted it's volume so "
                       "conversion can't proceed."_s));
  QCOMPARE(m_p->names().size(), 3);
}

void TestAdmission::missingToolFailsEachJob() {
  pauseClick();
  m_p->add(u"1.mkv"_s);
  m_p->add(u"2.mkv"_s);
  m_p->program.setTool({});
  pauseClick();
  QCOMPARE(m_p->count(JobStateFailed), 2);
  m_p->program.setTool(buildtree::scriptedTool());
  m_p->add(u"3.mkv"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), 1);
}

void TestAdmission::manyFailingJobsAreOneRound() {
  pauseClick();
  constexpr int many = 100'000;
  const QString gone = m_p->path(u"gone.mkv"_s);
  for (int i = 0; i < many; ++i) {
    const QString destination = m_p->path(QString::number(i) + u".m4v"_s);
    QCOMPARE(admit(gone, destination), AppDelegate::Admission::added);
  }
  QCOMPARE(m_p->count(JobStateQueued), many);
  pauseClick();
  QCOMPARE(m_p->count(JobStateFailed), many);
  QCOMPARE(m_p->count(JobStateQueued), 0);
}

void TestAdmission::jobsStayInPlaceThroughRandomChanges() {
  pauseClick();
  const quint32 seed = QRandomGenerator::global()->generate();
  qInfo("seed %u", seed);
  QRandomGenerator random(seed);
  QList<ConversionJob *> expected;
  for (int step = 0; step < 400; ++step) {
    if (!expected.isEmpty() && random.bounded(3) == 0) {
      expected.takeAt(random.bounded(expected.size()))->remove();
    } else {
      const bool atBottom = random.bounded(2) == 1;
      ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, atBottom ? 1 : 0);
      ConversionJob *job = m_p->add(QString::number(step) + u".mkv"_s);
      expected.insert(atBottom ? expected.size() : 0, job);
    }
    QCOMPARE(m_p->queue().taskArray(), expected);
    for (qsizetype i = 0; i < expected.size(); ++i)
      QCOMPARE(m_p->queue().indexOf(*expected.at(i)), i);
  }
  const auto stranger = m_p->job(m_p->movie(u"stranger.mkv"_s));
  QCOMPARE(m_p->queue().indexOf(*stranger), -1);
}

QTEST_GUILESS_MAIN(TestAdmission)
#include "tst_admission.moc"
