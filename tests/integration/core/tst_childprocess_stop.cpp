#include <QTest>
#include <csignal>

#include "ProcessState.h"
#include "WatchedChild.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using ostrak::ChildProcess;
using ostrak::ChildResult;
using ostrak::ChildSetup;
using End = ostrak::ChildResult::End;

class TestChildProcessStop final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();

  void stopAsksFirst();
  void stopReachesAStoppedChild();
  void stopKillsAStubbornChild_data();
  void stopKillsAStubbornChild();
  void stopWithoutEventLoop();
  void stopDirectlyAfterStart();
  void stopAfterTheEndChangesNothing();
  void suspendAndResume();
  void destructionKills();
  void deadlineOfRunChild();

 private:
  std::unique_ptr<StandIn> m_tool;
};

void TestChildProcessStop::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_tool = std::make_unique<StandIn>();
}

void TestChildProcessStop::cleanup() {
  m_tool.reset();
}

void TestChildProcessStop::stopAsksFirst() {
  QVERIFY(m_tool->scenario.exitOnTerm(255).announce(u"up"_s).hang().write());
  Watched watched;
  watched.child.start(m_tool->setup());
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  watched.child.stop();
  watched.child.stop();
  QCOMPARE(watched.ends, 0);
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::Stopped);
  QCOMPARE(watched.result.exitStatus, 255);
}

void TestChildProcessStop::stopReachesAStoppedChild() {
  QVERIFY(m_tool->scenario.exitOnTerm(255).announce(u"up"_s).hang().write());
  Watched watched;
  watched.child.start(m_tool->setup());
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  watched.child.suspend();
  watched.child.stop();
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::Stopped);
  QCOMPARE(watched.result.exitStatus, 255);
}

void TestChildProcessStop::stopKillsAStubbornChild_data() {
  QTest::addColumn<bool>("stopped");
  QTest::newRow("running") << false;
  QTest::newRow("stopped") << true;
}

void TestChildProcessStop::stopKillsAStubbornChild() {
  QFETCH(bool, stopped);
  QVERIFY(m_tool->scenario.ignoreTerm().announce(u"up"_s).hang().write());
  Watched watched(1ms);
  watched.child.start(m_tool->setup());
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  if (stopped) watched.child.suspend();
  watched.child.stop();
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::Stopped);
  QCOMPARE(watched.result.signal, SIGKILL);
}

void TestChildProcessStop::stopWithoutEventLoop() {
  QVERIFY(m_tool->scenario.ignoreTerm().announce(u"up"_s).hang().write());
  Watched watched(1ms);
  watched.child.start(m_tool->setup());
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  watched.child.suspend();
  watched.child.stop();
  QVERIFY(watched.child.waitForDone(1h));
  QCOMPARE(watched.ends, 1);
  QCOMPARE(watched.result.signal, SIGKILL);
}

void TestChildProcessStop::stopDirectlyAfterStart() {
  QVERIFY(m_tool->scenario.hang().write());
  Watched watched;
  watched.child.start(m_tool->setup());
  watched.child.stop();
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::Stopped);
}

void TestChildProcessStop::stopAfterTheEndChangesNothing() {
  QVERIFY(m_tool->scenario.exit(0).write());
  Watched watched;
  watched.child.start(m_tool->setup());
  QTRY_COMPARE(watched.ends, 1);
  watched.child.stop();
  watched.child.suspend();
  watched.child.resume();
  QCoreApplication::processEvents();
  QCOMPARE(watched.ends, 1);
  QVERIFY(watched.result.succeeded());
}

void TestChildProcessStop::suspendAndResume() {
  QVERIFY(m_tool->scenario.announce(u"up"_s).wait(u"go"_s).exit(7).write());
  Watched watched;
  watched.child.start(m_tool->setup());
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  watched.child.suspend();
  QTRY_COMPARE(processState(watched.child.processId()), 'T');
  QVERIFY(m_tool->scenario.release(u"go"_s));
  QVERIFY(!watched.child.waitForDone(0ms));
  QVERIFY(watched.child.isRunning());
  watched.child.resume();
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::Exited);
  QCOMPARE(watched.result.exitStatus, 7);
}

void TestChildProcessStop::destructionKills() {
  QVERIFY(m_tool->scenario.ignoreTerm().announce(u"up"_s).hang().write());
  qint64 pid = 0;
  int ends = 0;
  {
    Watched watched;
    connect(&watched.child, &ChildProcess::done, this, [&ends] { ++ends; });
    watched.child.start(m_tool->setup());
    QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
    pid = watched.child.processId();
    watched.child.suspend();
  }
  QCOMPARE(ends, 0);
  QVERIFY(!QFile::exists(u"/proc/%1"_s.arg(pid)));
}

void TestChildProcessStop::deadlineOfRunChild() {
  QVERIFY(m_tool->scenario.printError("hello").ignoreTerm().hang().write());
  QByteArray output;
  const ChildResult result = ostrak::runChild(m_tool->setup(), output, 1ms, {1ms});
  QCOMPARE(result.end, End::Stopped);
}

QTEST_GUILESS_MAIN(TestChildProcessStop)
#include "tst_childprocess_stop.moc"
