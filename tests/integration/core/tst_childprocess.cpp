#include <QTest>
#include <csignal>

#include "WatchedChild.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using ostrak::ChildProcess;
using ostrak::ChildResult;
using ostrak::ChildSetup;
using End = ostrak::ChildResult::End;

Q_DECLARE_METATYPE(ostrak::ChildResult::End)

class TestChildProcess final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();

  void everyWayToEnd_data();
  void everyWayToEnd();
  void everyWayToEndWithoutEventLoop_data() { everyWayToEnd_data(); }
  void everyWayToEndWithoutEventLoop();
  void failedStart_data();
  void failedStart();
  void failedStartWithoutEventLoop_data() { failedStart_data(); }
  void failedStartWithoutEventLoop();
  void waitsOnlyAsLong();
  void startsOnlyOnce();

 private:
  std::unique_ptr<StandIn> m_tool;
};

void TestChildProcess::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_tool = std::make_unique<StandIn>();
}

void TestChildProcess::cleanup() {
  m_tool.reset();
}

void TestChildProcess::everyWayToEnd_data() {
  QTest::addColumn<QByteArray>("steps");
  QTest::addColumn<End>("end");
  QTest::addColumn<int>("status");
  QTest::addColumn<int>("signal");
  QTest::addColumn<QByteArray>("output");
  QTest::newRow("success") << QByteArray("stderr one\nexit 0\n") << End::Exited << 0 << 0
                           << QByteArray("one");
  QTest::newRow("failure") << QByteArray("stderr no\nexit 187\n") << End::Exited << 187 << 0
                           << QByteArray("no");
  QTest::newRow("both outputs, in order") << QByteArray("stdout a\nstderr b\nstdout c\nexit 0\n")
                                          << End::Exited << 0 << 0 << QByteArray("abc");
  QTest::newRow("crash") << QByteArray("stderr dying\ndie 11\n") << End::Signalled << -1 << SIGSEGV
                         << QByteArray("dying");
  QTest::newRow("killed by someone")
      << QByteArray("die 9\n") << End::Signalled << -1 << SIGKILL << QByteArray();
  QTest::newRow("ended by someone's SIGTERM")
      << QByteArray("die 15\n") << End::Signalled << -1 << SIGTERM << QByteArray();
  QTest::newRow("output closed early")
      << QByteArray("stderr x\nclose-output\nexit 3\n") << End::Exited << 3 << 0 << QByteArray("x");
  QTest::newRow("grandchild holds the pipe") << QByteArray("stderr x\ngrandchild never\nexit 4\n")
                                             << End::Exited << 4 << 0 << QByteArray("x");
  QTest::newRow("invalid bytes") << QByteArray("stderr \\xff\\xfe\\x00z\nexit 0\n") << End::Exited
                                 << 0 << 0 << QByteArray("\xff\xfe\0z", 4);
}

void TestChildProcess::everyWayToEnd() {
  QFETCH(QByteArray, steps);
  QVERIFY(wholefile::write(m_tool->scenario.path(), "any\n" + steps));

  Watched watched;
  watched.child.start(m_tool->setup());
  QVERIFY(watched.child.isRunning());
  QTRY_COMPARE(watched.ends, 1);
  QVERIFY(!watched.child.isRunning());
  QTEST(watched.result.end, "end");
  QTEST(watched.result.exitStatus, "status");
  QTEST(watched.result.signal, "signal");
  QTEST(watched.output, "output");
  QVERIFY(!watched.afterEnd);
  QVERIFY(!watched.result.processRefused);
  QVERIFY(watched.child.waitForDone());
  QCoreApplication::processEvents();
  QCOMPARE(watched.ends, 1);
}

void TestChildProcess::everyWayToEndWithoutEventLoop() {
  QFETCH(QByteArray, steps);
  QVERIFY(wholefile::write(m_tool->scenario.path(), "any\n" + steps));

  QByteArray output;
  const ChildResult result = ostrak::runChild(m_tool->setup(), output);
  QTEST(result.end, "end");
  QTEST(result.exitStatus, "status");
  QTEST(result.signal, "signal");
  QTEST(output, "output");
}

void TestChildProcess::failedStart_data() {
  QTest::addColumn<QString>("executable");
  QTest::newRow("missing") << u"nothing-here"_s;
  QTest::newRow("a folder") << u"."_s;
  QTest::newRow("not executable") << u"plain"_s;
  QTest::newRow("0 bytes") << u"empty"_s;
  QTest::newRow("no program") << u"text"_s;
  QTest::newRow("no path") << QString();
}

void TestChildProcess::failedStart() {
  QFETCH(QString, executable);
  const auto write = [this](const QString &name, const QByteArray &bytes, bool runnable) {
    QVERIFY(wholefile::write(m_tool->path(name), bytes));
    QFile file(m_tool->path(name));
    if (runnable) file.setPermissions(file.permissions() | QFile::ExeOwner);
  };
  write(u"plain"_s, "#!/bin/true\n", false);
  write(u"empty"_s, "", true);
  write(u"text"_s, "just words\n", true);

  Watched watched;
  watched.child.start({executable.isEmpty() ? QString() : m_tool->path(executable), {}, {}, false});
  QCOMPARE(watched.ends, 0);
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::FailedToStart);
  QVERIFY(!watched.result.error.isEmpty());
  QVERIFY(!watched.result.processRefused);
  QVERIFY(!watched.child.isRunning());
  QCoreApplication::processEvents();
  QCOMPARE(watched.ends, 1);
}

void TestChildProcess::failedStartWithoutEventLoop() {
  QFETCH(QString, executable);
  Watched watched;
  watched.child.start({executable.isEmpty() ? QString() : m_tool->path(executable), {}, {}, false});
  QVERIFY(watched.child.waitForDone());
  QCOMPARE(watched.ends, 1);
  QCOMPARE(watched.result.end, End::FailedToStart);
  QCoreApplication::processEvents();
  QCOMPARE(watched.ends, 1);
}

void TestChildProcess::waitsOnlyAsLong() {
  QVERIFY(m_tool->scenario.wait(u"go"_s).exit(0).write());
  Watched watched;
  QVERIFY(!watched.child.waitForDone());
  watched.child.start(m_tool->setup());
  QVERIFY(!watched.child.waitForDone(1ms));
  QCOMPARE(watched.ends, 0);
  QVERIFY(m_tool->scenario.release(u"go"_s));
  QVERIFY(watched.child.waitForDone());
  QCOMPARE(watched.ends, 1);
}

void TestChildProcess::startsOnlyOnce() {
  QVERIFY(m_tool->scenario.exit(0).write());
  Watched watched;
  watched.child.start(m_tool->setup());
  watched.child.start(m_tool->setup());
  QTRY_COMPARE(watched.ends, 1);
  watched.child.start(m_tool->setup());
  QCoreApplication::processEvents();
  QCOMPARE(watched.ends, 1);
  QCOMPARE(m_tool->scenario.calls().size(), 1);
}

QTEST_GUILESS_MAIN(TestChildProcess)
#include "tst_childprocess.moc"
