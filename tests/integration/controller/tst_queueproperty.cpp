#include <signal.h>

#include <QCoreApplication>
#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QRandomGenerator>
#include <QSet>
#include <QStringList>
#include <QTest>

#include "BuildTree.h"
#include "ControllerTest.h"
#include "Defaults.h"

using namespace Qt::StringLiterals;
using namespace decant;

// Drives random events through the whole controller and holds after each of them that at most one
// job runs, that something runs or nothing can, that nothing is lost from the list and that the
// counts are right. Each run prints its seed; DECANT_SEED repeats one.
class TestQueueProperty final : public ControllerTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    ControllerTest::init();
    m_known.clear();
    m_next = 0;
    m_pausedAlone = nullptr;
  }
  void cleanup() {
    m_p->controller->applicationWillTerminate();
    ControllerTest::cleanup();
  }

  void randomEvents_data();
  void randomEvents();

 private:
  using Event = void (TestQueueProperty::*)();
  void drop();
  void dropThree();
  void addShown();
  void addOneAndSkipTheLast();
  void skip();
  void addDirectly();
  void letFinish();
  void fillDisk() { m_p->volumes.free = 0; }
  // Nobody tells the queue that there is room again; the next end of a job makes it look.
  void emptyDisk() {
    m_p->volumes.free.reset();
    m_p->controller->startNextJobInQueue();
  }
  void pauseQueue() { pauseClick(); }
  void pauseOne();
  void resumeOne();
  void removeOne();
  void clean();
  void loseSource();
  void loseTool();
  void toggleAutoAdd();
  void quitAndThinkBetter();
  void handleEvents() { QCoreApplication::processEvents(); }

  [[nodiscard]] QString newName();
  [[nodiscard]] ConversionJob *anyJob();
  [[nodiscard]] bool canStart(const ConversionJob &job) const;
  [[nodiscard]] QString whatIsWrong();
  void watch(ConversionJob *job);

  QRandomGenerator m_random;
  int m_next = 0;
  QSet<ConversionJob *> m_known;          // jobs that should be in the list
  QPointer<ConversionJob> m_pausedAlone;  // the user has stopped this one, and the queue with it
};

void TestQueueProperty::randomEvents_data() {
  QTest::addColumn<quint32>("seed");
  const QByteArray given = qgetenv("DECANT_SEED");
  if (!given.isEmpty()) {
    QTest::newRow("given") << given.toUInt();
    return;
  }
  for (int i = 0; i < 6; ++i)
    QTest::addRow("%d", i) << QRandomGenerator::global()->generate();
}

void TestQueueProperty::randomEvents() {
  QFETCH(const quint32, seed);
  qInfo("seed %u", seed);
  m_random.seed(seed);
  static constexpr std::array events{&TestQueueProperty::drop,
                                     &TestQueueProperty::dropThree,
                                     &TestQueueProperty::addShown,
                                     &TestQueueProperty::addShown,
                                     &TestQueueProperty::skip,
                                     &TestQueueProperty::addOneAndSkipTheLast,
                                     &TestQueueProperty::addDirectly,
                                     &TestQueueProperty::letFinish,
                                     &TestQueueProperty::letFinish,
                                     &TestQueueProperty::letFinish,
                                     &TestQueueProperty::fillDisk,
                                     &TestQueueProperty::emptyDisk,
                                     &TestQueueProperty::emptyDisk,
                                     &TestQueueProperty::pauseQueue,
                                     &TestQueueProperty::pauseQueue,
                                     &TestQueueProperty::pauseOne,
                                     &TestQueueProperty::resumeOne,
                                     &TestQueueProperty::removeOne,
                                     &TestQueueProperty::clean,
                                     &TestQueueProperty::loseSource,
                                     &TestQueueProperty::loseTool,
                                     &TestQueueProperty::toggleAutoAdd,
                                     &TestQueueProperty::handleEvents,
                                     &TestQueueProperty::handleEvents,
                                     &TestQueueProperty::quitAndThinkBetter};
  const QObject context;
  connect(&m_p->queue(), &JobQueue::inserted, &context,
          [this](qsizetype index) { watch(m_p->queue().taskArray().at(index)); });
  constexpr int steps = 400;
  for (int step = 0; step < steps; ++step) {
    const auto chosen = static_cast<size_t>(m_random.bounded(static_cast<int>(events.size())));
    (this->*events.at(chosen))();
    // A job whose tool has ended hears of it from the event loop, and until then cannot be paused.
    if (m_p->count(JobStateConverting) > 1) handleEvents();
    QString wrong = whatIsWrong();
    if (!wrong.isNull()) {
      // An end that has happened and is not told yet looks the same from outside as a stuck queue.
      handleEvents();
      wrong = whatIsWrong();
    }
    QVERIFY2(wrong.isNull(), qPrintable(wrong + u" after event "_s + QString::number(chosen) +
                                        u" in step "_s + QString::number(step)));
  }
  // Left to itself, with nothing in its way, all that was admitted comes to an end.
  emptyDisk();
  QTRY_VERIFY(m_p->intake().state() != Intake::State::Probing);
  while (!m_p->intake().isIdle()) {
    m_p->intake().cancelAdd();
    QTRY_VERIFY(m_p->intake().state() != Intake::State::Probing);
  }
  if (m_p->queue().paused()) pauseQueue();
  m_p->controller->startNextJobInQueue();
  m_p->letGo();
  QTRY_COMPARE_WITH_TIMEOUT(m_p->count(JobStateFinished) + m_p->count(JobStateFailed),
                            static_cast<int>(m_known.size()), 60'000);
  QCOMPARE(whatIsWrong(), QString());
  QVERIFY(m_p->sleepInhibitor.held() == 0);
  m_p->controller->applicationWillTerminate();
  for (const QJsonObject &call : m_p->scenario.calls())
    QVERIFY(::kill(call.value(u"pid"_s).toInt(), 0) != 0);
}

// A third of the movies waits for a go-ahead, some fail, some are refused by the probe.
QString TestQueueProperty::newName() {
  static const QStringList kinds{u"slow.mkv"_s, u"slow.mkv"_s, u"fail.mkv"_s,
                                 u"bad.mkv"_s,  u"fine.mkv"_s, u"fine.mkv"_s};
  return QString::number(m_next++) + kinds.at(m_random.bounded(kinds.size()));
}

void TestQueueProperty::watch(ConversionJob *job) {
  m_known.insert(job);
  connect(&m_p->queue(), &JobQueue::aboutToRemove, job, [this, job](qsizetype index) {
    if (m_p->queue().taskArray().at(index) != job) return;
    m_known.remove(job);
  });
}

ConversionJob *TestQueueProperty::anyJob() {
  const QList<ConversionJob *> &jobs = m_p->queue().taskArray();
  return jobs.isEmpty() ? nullptr : jobs.at(m_random.bounded(jobs.size()));
}

void TestQueueProperty::drop() {
  m_p->intake().openFiles({m_p->movie(newName())});
}

void TestQueueProperty::dropThree() {
  m_p->intake().openFiles(
      {m_p->movie(newName()), m_p->movie(newName()), m_p->movie(newName()), m_p->path(u"x.txt"_s)});
}

void TestQueueProperty::addShown() {
  if (m_p->intake().state() == Intake::State::Showing) (void)m_p->controller->addToQueue();
}

// The job waits for intake, and the last file of intake comes to nothing.
void TestQueueProperty::addOneAndSkipTheLast() {
  const auto shown = [this] { return m_p->intake().state() == Intake::State::Showing; };
  m_p->intake().openFiles({m_p->movie(newName()), m_p->movie(newName())});
  while (!m_p->intake().isIdle()) {
    if (!QTest::qWaitFor([&] { return shown() || m_p->intake().isIdle(); })) return;
    if (m_p->intake().importFiles().isEmpty()) {
      skip();
    } else {
      addShown();
    }
  }
}

void TestQueueProperty::skip() {
  m_p->intake().cancelAdd();
}

void TestQueueProperty::addDirectly() {
  m_p->add(newName());
}

// Whatever runs now gets its go-ahead and is waited for.
void TestQueueProperty::letFinish() {
  m_p->letGo();
  const int ended = m_p->count(JobStateFinished) + m_p->count(JobStateFailed);
  if (m_p->count(JobStateConverting) == 1)
    (void)QTest::qWaitFor(
        [&] { return m_p->count(JobStateFinished) + m_p->count(JobStateFailed) > ended; });
  m_p->scenario.withdraw(u"go"_s);
}

void TestQueueProperty::pauseOne() {
  for (ConversionJob *job : m_p->queue().taskArray()) {
    if (job->state() != JobStateConverting) continue;
    job->pause();
    if (job->state() == JobStatePaused) m_pausedAlone = job;
  }
}

void TestQueueProperty::resumeOne() {
  ConversionJob *job = anyJob();
  if (job != nullptr) job->continue_();
}

void TestQueueProperty::removeOne() {
  ConversionJob *job = anyJob();
  if (job != nullptr) job->remove();
}

void TestQueueProperty::clean() {
  const auto failed = m_p->count(JobStateFailed);
  const auto queued = m_p->count(JobStateQueued);
  m_p->controller->cleanClicked();
  QCOMPARE(m_p->count(JobStateFinished), 0);
  QVERIFY(m_p->count(JobStateFailed) >= failed);
  QVERIFY(m_p->count(JobStateQueued) + m_p->count(JobStateConverting) +
              m_p->count(JobStateFailed) >=
          queued);
}

void TestQueueProperty::loseSource() {
  const ConversionJob *job = anyJob();
  if (job != nullptr) QFile::remove(job->fileInfo().fileURL.toLocalFile());
}

// While the tool is away, whatever should start fails.
void TestQueueProperty::loseTool() {
  m_p->program.setTool({});
  m_p->add(newName());
  m_p->program.setTool(buildtree::scriptedTool());
}

void TestQueueProperty::toggleAutoAdd() {
  ostrak::setDefaultInt(u"AutoAdd"_s, m_random.bounded(2));
}

// Asked only while a job runs, and then all goes on as it was.
void TestQueueProperty::quitAndThinkBetter() {
  RecordingPresenter &presenter = m_p->program.presenter();
  const bool runs = m_p->count(JobStateConverting) > 0;
  const qsizetype expected = presenter.presented.size() + (runs ? 1 : 0);
  if (runs) presenter.answer(ostrak::secondButton);
  QCOMPARE(m_p->controller->applicationShouldTerminate(), !runs);
  QCOMPARE(presenter.presented.size(), expected);
}

bool TestQueueProperty::canStart(const ConversionJob &job) const {
  if (job.state() == JobStatePaused) return true;
  return job.state() == JobStateQueued && !m_p->volumes.free;
}

QString TestQueueProperty::whatIsWrong() {
  std::array<int, jobStateCount> counts{};
  bool something = false;
  for (const ConversionJob *job : m_p->queue().taskArray()) {
    ++counts.at(static_cast<size_t>(job->state()));
    something = something || canStart(*job);
  }
  for (int state = 0; state < jobStateCount; ++state) {
    if (counts.at(static_cast<size_t>(state)) != m_p->count(static_cast<JobState>(state)))
      return u"the count is wrong for state "_s + QString::number(state);
  }
  if (QSet<ConversionJob *>(m_p->queue().taskArray().begin(), m_p->queue().taskArray().end()) !=
      m_known)
    return u"the list does not hold what was admitted and not removed"_s;
  const int converting = counts.at(JobStateConverting);
  if (converting > 1) return u"more than one runs"_s;
  if (converting == 0 && m_p->queue().paused()) return {};
  if (m_pausedAlone && m_pausedAlone->state() != JobStatePaused) m_pausedAlone = nullptr;
  // Nothing runs because the user wants it so, or because files are still on their way in.
  const bool onTheirWay =
      m_p->intake().state() == Intake::State::Probing || !m_p->intake().importFiles().isEmpty();
  if (converting == 0 && (m_pausedAlone || onTheirWay)) return {};
  if (converting == 0 && something) return u"nothing runs, though something can"_s;
  return {};
}

QTEST_GUILESS_MAIN(TestQueueProperty)
#include "tst_queueproperty.moc"
