#include <QDir>
#include <QFile>
#include <QList>
#include <QStringList>
#include <QTest>
#include <csignal>

#include "JobListModel.h"
#include "JobRows.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What goes wrong around a running conversion, seen in the window: the row says so, and the queue
// goes on.
class TestWindowTrouble final : public WindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void diskUnpluggedWhileRunning();
  void toolKilledFromOutside_data();
  void toolKilledFromOutside();
  void sourceGoneWhileQueued();
  void pauseWhileOneEnds();
  void cleanWhileProbing();
  void quitWhilePaused();

 private:
  // The first one converts, the others wait behind it.
  [[nodiscard]] bool firstRuns(const QString &first, const QStringList &others) {
    return m_b->queueUp({first}) && m_b->queueUp(others) &&
           QTest::qWaitFor([this] { return m_b->scenario.announced(u"running"_s); }) &&
           m_b->count(JobStateConverting) == 1 && m_b->count(JobStateQueued) == others.size();
  }
  [[nodiscard]] QString status(int row) {
    return JobRows(*m_b).index(row).data(JobListModel::StatusRole).toString();
  }
  [[nodiscard]] QList<int> states() {
    QList<int> found;
    for (const ConversionJob *job : m_b->queue().taskArray())
      found.append(job->state());
    return found;
  }
  [[nodiscard]] bool failedInWords(int row) {
    return status(row).startsWith(u"Status: Failed   Click the arrow"_s);
  }
};

// Source and output lie on the disk.
void TestWindowTrouble::diskUnpluggedWhileRunning() {
  QVERIFY(m_b->open());
  QVERIFY(firstRuns(u"disk/1-slow.mkv"_s, {u"2.mkv"_s}));
  QVERIFY(QDir(m_b->path(u"disk"_s)).removeRecursively());
  m_b->letGo();
  QTRY_COMPARE(states(), QList<int>({JobStateFailed, JobStateFinished}));
  QVERIFY2(failedInWords(0), qPrintable(status(0)));
  // The arrow explains it.
  const qsizetype before = m_b->presented().size();
  JobRows(*m_b).clickArrow(0);
  QTRY_VERIFY(m_b->presented().size() > before);
  QVERIFY(!m_b->told().last().isEmpty());
}

void TestWindowTrouble::toolKilledFromOutside_data() {
  QTest::addColumn<int>("signal");
  QTest::newRow("killed") << SIGKILL;
  QTest::newRow("asked to end") << SIGTERM;
  QTest::newRow("crashed") << SIGSEGV;
}

void TestWindowTrouble::toolKilledFromOutside() {
  QFETCH(const int, signal);
  QVERIFY(m_b->open());
  QVERIFY(firstRuns(u"1-slow.mkv"_s, {u"2.mkv"_s}));
  const int tool = m_b->scenario.calls().last().value(u"pid"_s).toInt();
  QVERIFY(tool > 1);
  QCOMPARE(::kill(tool, signal), 0);
  QTRY_COMPARE(states(), QList<int>({JobStateFailed, JobStateFinished}));
  QVERIFY2(failedInWords(0), qPrintable(status(0)));
  QVERIFY(QFile::exists(m_b->path(u"1-slow.mkv"_s)));
}

void TestWindowTrouble::sourceGoneWhileQueued() {
  QVERIFY(m_b->open());
  QVERIFY(firstRuns(u"1-slow.mkv"_s, {u"2.mkv"_s, u"3.mkv"_s}));
  QVERIFY(QFile::remove(m_b->path(u"2.mkv"_s)));
  m_b->letGo();
  QTRY_COMPARE(states(), QList<int>({JobStateFinished, JobStateFailed, JobStateFinished}));
  QVERIFY2(failedInWords(1), qPrintable(status(1)));
}

void TestWindowTrouble::pauseWhileOneEnds() {
  QVERIFY(m_b->open());
  QVERIFY(firstRuns(u"1-slow.mkv"_s, {u"2.mkv"_s}));
  // The tool ends, and its end has not been heard of when the queue is paused.
  m_b->letGo();
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QVERIFY(m_b->queue().paused());
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QTRY_COMPARE(states(), QList<int>({JobStateFinished, JobStateFinished}));
}

void TestWindowTrouble::cleanWhileProbing() {
  QVERIFY(m_b->open());
  QVERIFY(m_b->queueUp({u"1.mkv"_s, u"2.mkv"_s}));
  QTRY_COMPARE(m_b->count(JobStateFinished), 2);
  m_b->prober.hold();
  m_b->intake().openFiles({m_b->movie(u"3.mkv"_s)});
  QTRY_COMPARE(m_b->prober.running(), 1);
  QVERIFY(m_b->trigger(u"cleanAction"_s));
  QVERIFY(m_b->names().isEmpty());
  QVERIFY(m_b->intake().isScanning());
  m_b->prober.finishOne();
  QTRY_COMPARE(m_b->intake().state(), Intake::State::Showing);
}

void TestWindowTrouble::quitWhilePaused() {
  QVERIFY(m_b->open());
  QVERIFY(firstRuns(u"1-slow.mkv"_s, {u"2.mkv"_s}));
  QVERIFY(m_b->trigger(u"pauseContinueToolbarItem"_s));
  QCOMPARE(states(), QList<int>({JobStatePaused, JobStateQueued}));
  const QString output = m_b->queue().taskArray().first()->fileInfo().destinationURL.toLocalFile();
  m_b->window().close();
  QTRY_COMPARE(m_b->quits, 1);
  m_b->close();
  QVERIFY(!QFile::exists(output));
  QVERIFY(QFile::exists(m_b->path(u"1-slow.mkv"_s)));
}

int main(int argc, char **argv) {
  return runWindowTest<TestWindowTrouble>(argc, argv);
}
#include "tst_windowtrouble.moc"
