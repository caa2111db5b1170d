#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTest>

#include "ControllerTest.h"
#include "Defaults.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What becomes of sources when "AutoRemove" is set. The scripted tool says of every output that it
// plays 100 seconds, as long as the sources, but for a "…short.m4v".
class TestDisposal final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    ControllerTest::init();
    m_p->scenario.probe(u"short.m4v"_s)
        .reportText("  Duration: 00:00:50.00, start: 0.000000, bitrate: 10 kb/s\n");
    QVERIFY(m_p->scenario.write());
    ostrak::setDefaultInt(u"AutoRemove"_s, 1);
  }

  void withoutTheSettingTheSourceStays();
  void successMovesTheSourceToTheTrash();
  void successDeletesTheSource();
  void jobLeavesTheQueueFirst();
  void failureKeepsTheSource();
  void removalKeepsTheSource();
  void shortOutputKeepsTheSource();
  void sourceThatIsCutOffStays();
  void anotherJobOnTheSourceIsWaitedFor_data();
  void anotherJobOnTheSourceIsWaitedFor();
  void removalOfTheLastLetsTheSourceGo();
  void oneFailureKeepsTheSource_data();
  void oneFailureKeepsTheSource();
  void successAfterALaterAdditionLetsTheSourceGo();
  void sourceThatIsAddedAgainStays_data();
  void sourceThatIsAddedAgainStays();
  void everyOutputIsLookedAt();
  void replacedSourceIsKept();
  void quitWaitsForTheDisposal();

 private:
  void settle() {
    QTRY_COMPARE(m_p->count(JobStateQueued) + m_p->count(JobStateConverting), 0);
    // What a job's end wants is seen when its handler is done.
    QCoreApplication::processEvents();
    QTRY_VERIFY(m_p->controller->disposal().isIdle());
  }
  ConversionJob *add(const QString &source, const QString &destination) {
    auto job = m_p->job(source, m_p->path(destination));
    ConversionJob *const added = job.get();
    return m_p->controller->addJob(std::move(job)) == AppDelegate::Admission::added ? added
                                                                                    : nullptr;
  }
};

void TestDisposal::withoutTheSettingTheSourceStays() {
  ostrak::setDefaultInt(u"AutoRemove"_s, 0);
  m_p->add(u"1.mkv"_s);
  settle();
  QVERIFY(m_p->trashCan.trashed.isEmpty());
}

void TestDisposal::successMovesTheSourceToTheTrash() {
  m_p->add(u"1.mkv"_s);
  settle();
  QCOMPARE(m_p->trashCan.trashed, QStringList(m_p->path(u"1.mkv"_s)));
}

void TestDisposal::successDeletesTheSource() {
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  m_p->add(u"1.mkv"_s);
  settle();
  QVERIFY(!QFile::exists(m_p->path(u"1.mkv"_s)));
  QVERIFY(QFile::exists(m_p->path(u"1.m4v"_s)));
  QVERIFY(m_p->trashCan.trashed.isEmpty());
}

void TestDisposal::jobLeavesTheQueueFirst() {
  ostrak::setDefaultInt(u"AutoClean"_s, 1);
  m_p->add(u"1.mkv"_s);
  QTRY_COMPARE(m_p->trashCan.trashed, QStringList(m_p->path(u"1.mkv"_s)));
  QVERIFY(m_p->names().isEmpty());
}

void TestDisposal::failureKeepsTheSource() {
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  m_p->add(u"1fail.mkv"_s);
  settle();
  QVERIFY(QFile::exists(m_p->path(u"1fail.mkv"_s)));
}

void TestDisposal::removalKeepsTheSource() {
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  ConversionJob *job = m_p->add(u"1slow.mkv"_s);
  QTRY_VERIFY(QFileInfo(m_p->path(u"1slow.m4v"_s)).size() > 0);
  job->remove();
  QTRY_VERIFY(!QFile::exists(m_p->path(u"1slow.m4v"_s)));
  settle();
  QVERIFY(QFile::exists(m_p->path(u"1slow.mkv"_s)));
}

void TestDisposal::shortOutputKeepsTheSource() {
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  m_p->add(u"short.mkv"_s);
  settle();
  QVERIFY(QFile::exists(m_p->path(u"short.mkv"_s)));
  QVERIFY(m_p->program.logged().join(u'\n').contains(u"stays: "_s));
}

// Its output is as long as the source says it is, within what the check allows.
void TestDisposal::sourceThatIsCutOffStays() {
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  m_p->scenario.conversion(u"cut.mkv"_s)
      .printError("[matroska,webm @ 0x1] File ended prematurely\n")
      .exit(0);
  QVERIFY(m_p->scenario.write());
  const ConversionJob *job = m_p->add(u"cut.mkv"_s);
  settle();
  QCOMPARE(job->state(), JobStateFinished);
  QVERIFY(QFile::exists(m_p->path(u"cut.mkv"_s)));
  QVERIFY(m_p->program.logged().join(u'\n').contains(u"cut.mkv ends before its movie, and stays"));
}

void TestDisposal::anotherJobOnTheSourceIsWaitedFor_data() {
  QTest::addColumn<QString>("other");
  QTest::newRow("by the same path") << u"film.mkv"_s;
  QTest::newRow("by a symbolic link") << u"symbolic.mkv"_s;
  QTest::newRow("by a hard link") << u"hard.mkv"_s;
}

void TestDisposal::anotherJobOnTheSourceIsWaitedFor() {
  QFETCH(const QString, other);
  const QString source = m_p->movie(u"film.mkv"_s);
  QVERIFY(QFile::link(source, m_p->path(u"symbolic.mkv"_s)));
  QCOMPARE(::link(QFile::encodeName(source).constData(),
                  QFile::encodeName(m_p->path(u"hard.mkv"_s)).constData()),
           0);
  const ConversionJob *first = add(source, u"first.m4v"_s);
  add(m_p->path(other), u"second.m4v"_s);
  // The second one has to wait for room.
  m_p->volumes.free = 0;
  QTRY_COMPARE(first->state(), JobStateFinished);
  QCOMPARE(m_p->count(JobStateQueued), 1);
  QCoreApplication::processEvents();
  QVERIFY(m_p->controller->disposal().isIdle());
  QVERIFY(m_p->trashCan.trashed.isEmpty());
  m_p->volumes.free.reset();
  m_p->controller->startNextJobInQueue();
  settle();
  QCOMPARE(m_p->trashCan.trashed, QStringList(m_p->path(other)));
}

void TestDisposal::removalOfTheLastLetsTheSourceGo() {
  const QString source = m_p->movie(u"1.mkv"_s);
  m_p->volumes.free = 0;
  ConversionJob *waiting = add(source, u"waiting.m4v"_s);
  QCOMPARE(waiting->state(), JobStateQueued);
  m_p->volumes.free.reset();
  pauseClick();
  ConversionJob *first = add(source, u"first.m4v"_s);
  first->continue_();
  m_p->volumes.free = 0;
  QTRY_COMPARE(first->state(), JobStateFinished);
  QCoreApplication::processEvents();
  QVERIFY(m_p->trashCan.trashed.isEmpty());
  QVERIFY(m_p->controller->disposal().isIdle());
  waiting->remove();
  QTRY_COMPARE(m_p->trashCan.trashed, QStringList(source));
}

void TestDisposal::oneFailureKeepsTheSource_data() {
  QTest::addColumn<QStringList>("ends");
  const QStringList ends{u"good"_s, u"fail"_s};
  for (const QString &first : ends) {
    for (const QString &second : ends) {
      const QStringList two{first, second};
      QTest::addRow("%s", qPrintable(two.join(u", "_s))) << two;
      for (const QString &third : ends) {
        const QStringList three{first, second, third};
        QTest::addRow("%s", qPrintable(three.join(u", "_s))) << three;
      }
    }
  }
}

void TestDisposal::oneFailureKeepsTheSource() {
  QFETCH(const QStringList, ends);
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  const QString source = m_p->movie(u"film.mkv"_s);
  pauseClick();
  QString last;
  for (const QString &end : ends) {
    const QString number = QString::number(m_p->names().size());
    last = m_p->path(number + end + u".mkv"_s);
    QVERIFY(QFile::link(source, last));
    QVERIFY(add(last, number + u".m4v"_s) != nullptr);
  }
  pauseClick();
  settle();
  const bool failed = ends.contains(u"fail"_s);
  QCOMPARE(m_p->count(JobStateFailed), static_cast<int>(ends.count(u"fail"_s)));
  QCOMPARE(m_p->trashCan.trashed, failed ? QStringList() : QStringList(last));
  QCOMPARE(m_p->program.logged().join(u'\n').contains(u"another conversion of it failed"_s),
           failed && ends.contains(u"good"_s));
}

void TestDisposal::successAfterALaterAdditionLetsTheSourceGo() {
  const QString source = m_p->movie(u"good.mkv"_s);
  QVERIFY(QFile::link(source, m_p->path(u"fail.mkv"_s)));
  add(m_p->path(u"fail.mkv"_s), u"first.m4v"_s);
  settle();
  QCOMPARE(m_p->count(JobStateFailed), 1);
  add(source, u"second.m4v"_s);
  settle();
  QCOMPARE(m_p->trashCan.trashed, QStringList(source));
}

void TestDisposal::sourceThatIsAddedAgainStays_data() {
  QTest::addColumn<bool>("waits");
  QTest::newRow("while it is looked at") << false;
  QTest::newRow("while it waits") << true;
}

// The checks of a success can take long; meanwhile the user queues the movie once more.
void TestDisposal::sourceThatIsAddedAgainStays() {
  QFETCH(bool, waits);
  Scenario slow(m_p->scenario.path());
  slow.conversion(u"slow.mkv"_s).announce(u"running"_s).wait(u"go"_s);
  slow.probe().announce(u"asked"_s).wait(u"answer"_s).defaultReport();
  QVERIFY(slow.write());
  if (waits) {
    m_p->add(u"other.mkv"_s);
    QTRY_VERIFY(slow.announced(u"asked"_s));
  }
  const QString source = m_p->movie(u"1.mkv"_s);
  add(source, u"first.m4v"_s);
  QTRY_COMPARE(m_p->count(JobStateFinished), waits ? 2 : 1);
  QCoreApplication::processEvents();
  QTRY_VERIFY(slow.announced(u"asked"_s));
  ConversionJob *const again = m_p->add(u"2slow.mkv"_s);
  QVERIFY(again);
  QVERIFY(add(source, u"second.m4v"_s));
  QVERIFY(slow.release(u"answer"_s));
  QTRY_VERIFY(m_p->controller->disposal().isIdle());
  QVERIFY(!m_p->trashCan.trashed.contains(source));
  m_p->letGo();
  settle();
  // The second success lets it go.
  QVERIFY(m_p->trashCan.trashed.contains(source));
}

void TestDisposal::everyOutputIsLookedAt() {
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  const QString source = m_p->movie(u"1.mkv"_s);
  pauseClick();
  add(source, u"short.m4v"_s);
  add(source, u"whole.m4v"_s);
  pauseClick();
  settle();
  QCOMPARE(m_p->count(JobStateFinished), 2);
  QVERIFY(QFile::exists(source));
}

// The user has put another file in the source's place while it was converted.
void TestDisposal::replacedSourceIsKept() {
  ostrak::setDefaultInt(u"AutoRemoveType"_s, 1);
  m_p->add(u"1slow.mkv"_s);
  QTRY_VERIFY(QFileInfo(m_p->path(u"1slow.m4v"_s)).size() > 0);
  QVERIFY(QFile::rename(m_p->path(u"1slow.mkv"_s), m_p->path(u"moved.mkv"_s)));
  QVERIFY(!m_p->movie(u"1slow.mkv"_s).isEmpty());
  m_p->letGo();
  settle();
  QVERIFY(QFile::exists(m_p->path(u"1slow.mkv"_s)));
  QVERIFY(QFile::exists(m_p->path(u"moved.mkv"_s)));
}

void TestDisposal::quitWaitsForTheDisposal() {
  ostrak::setDefaultInt(u"QuitAfterConversion"_s, 1);
  Scenario slow(m_p->scenario.path());
  slow.probe().announce(u"asked"_s).wait(u"answer"_s).defaultReport();
  QVERIFY(slow.write());
  m_p->add(u"1.mkv"_s);
  QTRY_VERIFY(slow.announced(u"asked"_s));
  QTRY_COMPARE(m_p->notifier.posted.size(), 1);
  QCoreApplication::processEvents();
  QCOMPARE(m_p->quits, 0);
  QVERIFY(slow.release(u"answer"_s));
  QTRY_COMPARE(m_p->quits, 1);
  QCOMPARE(m_p->trashCan.trashed, QStringList(m_p->path(u"1.mkv"_s)));
}

QTEST_GUILESS_MAIN(TestDisposal)
#include "tst_disposal.moc"
