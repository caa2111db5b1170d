#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <thread>

#include "ProcessState.h"
#include "WatchedChild.h"

using namespace Qt::StringLiterals;
using ostrak::ChildProcess;
using ostrak::ChildResult;
using ostrak::ChildSetup;
using End = ostrak::ChildResult::End;

namespace {

int openDescriptors() {
  return static_cast<int>(QDir(u"/proc/self/fd"_s)
                              .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                              .size());
}

// Run in this executable's second life, as the program that somebody kills.
int parentToBeKilled(const QString &tool, const QString &input) {
  ChildProcess child;
  child.start({tool, {u"-i"_s, input}, {}, false});
  child.waitForDone();
  return 0;
}

bool isAlive(qint64 pid) {
  const char state = processState(pid);
  return state != ' ' && state != 'Z';
}

}  // namespace

// What a child must not leave behind and must not inherit.
class TestChildProcessHygiene final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_tool = std::make_unique<StandIn>();
  }
  void cleanup() { m_tool.reset(); }

  void floodIsReadWhole();
  void parentLeaksNoDescriptor();
  void childInheritsNoDescriptor();
  void childHearsBlockedSignals();
  void inputIsEmpty();
  void variablesAreRemoved();
  void anyTextIsAnArgument_data();
  void anyTextIsAnArgument();
  void noOrphanAfterSigkill_data();
  void noOrphanAfterSigkill();
  void refusedProcessIsTold();
  void startWithoutDescriptorsFails();
  void grandchildOutlivesTheEnd();
  void worksOnAPlainThread();

 private:
  std::unique_ptr<StandIn> m_tool;
};

void TestChildProcessHygiene::floodIsReadWhole() {
  QVERIFY(m_tool->scenario.printError("begin").flood(50).printOutput("end").exit(0).write());
  Watched watched;
  watched.child.start(m_tool->setup());
  QTRY_COMPARE_WITH_TIMEOUT(watched.ends, 1, 60'000);
  QCOMPARE(watched.output.size(), 50 * 1024 * 1024 + 8);
  QVERIFY(watched.output.startsWith("begin["));
  QVERIFY(watched.output.endsWith("end"));

  QByteArray output;
  QVERIFY(ostrak::runChild(m_tool->setup(), output).succeeded());
  QCOMPARE(output, watched.output);
}

void TestChildProcessHygiene::parentLeaksNoDescriptor() {
  QVERIFY(m_tool->scenario.grandchild(u"never"_s).closeOutput().exit(0).write());
  const auto runAll = [this] {
    for (int i = 0; i < 5; ++i) {
      QByteArray output;
      std::ignore = ostrak::runChild(m_tool->setup(), output);
      std::ignore = ostrak::runChild({m_tool->path(u"missing"_s), {}, {}, false}, output);
      Watched watched;
      watched.child.start(m_tool->setup());
      QTRY_COMPARE(watched.ends, 1);
    }
  };
  runAll();  // Qt keeps some descriptors of its own from the first child on
  const int before = openDescriptors();
  runAll();
  QCOMPARE(openDescriptors(), before);
}

void TestChildProcessHygiene::childInheritsNoDescriptor() {
  QVERIFY(m_tool->scenario.exit(0).write());
  const int careless = ::dup(STDERR_FILENO);  // opened by someone without O_CLOEXEC
  QByteArray output;
  QVERIFY(ostrak::runChild(m_tool->setup(), output).succeeded());
  ::close(careless);
  const QJsonArray open = m_tool->scenario.calls().value(0)["descriptors"_L1].toArray();
  QList<int> numbers;
  for (const QJsonValue &number : open)
    numbers.append(number.toInt());
  std::sort(numbers.begin(), numbers.end());
  QCOMPARE(numbers, (QList<int>{0, 1, 2}));
}

void TestChildProcessHygiene::childHearsBlockedSignals() {
  QVERIFY(m_tool->scenario.announce(u"up"_s).hang().write());
  sigset_t blocked;
  sigset_t before;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &blocked, &before);
  Watched watched;
  watched.child.start(m_tool->setup());
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  watched.child.stop();
  QTRY_COMPARE(watched.ends, 1);
  QCOMPARE(watched.result.signal, SIGTERM);
}

void TestChildProcessHygiene::inputIsEmpty() {
  QByteArray output;
  const ChildResult result = ostrak::runChild({u"/bin/cat"_s, {}, {}, false}, output);
  QVERIFY(result.succeeded());
  QVERIFY(output.isEmpty());
}

void TestChildProcessHygiene::variablesAreRemoved() {
  QVERIFY(m_tool->scenario.exit(0).write());
  qputenv("FFREPORT", "file=x");
  qputenv("AV_LOG_FORCE_COLOR", "1");
  ChildSetup setup = m_tool->setup();
  QByteArray output;
  QVERIFY(ostrak::runChild(setup, output).succeeded());
  setup.removedEnvironment = {u"FFREPORT"_s, u"AV_LOG_FORCE_COLOR"_s, u"NOT_SET"_s};
  QVERIFY(ostrak::runChild(setup, output).succeeded());
  qunsetenv("FFREPORT");
  qunsetenv("AV_LOG_FORCE_COLOR");
  const QList<QJsonObject> calls = m_tool->scenario.calls();
  QCOMPARE(calls.size(), 2);
  QCOMPARE(calls[0]["variables"_L1].toArray().size(), 2);
  QCOMPARE(calls[1]["variables"_L1].toArray().size(), 0);
}

void TestChildProcessHygiene::anyTextIsAnArgument_data() {
  QTest::addColumn<QString>("argument");
  QTest::newRow("empty") << u""_s;
  QTest::newRow("blanks") << u"  a b\t"_s;
  QTest::newRow("quotes") << u"it's \"quoted\" \\ $HOME `x`"_s;
  QTest::newRow("line break") << u"a\nb\r\nc"_s;
  QTest::newRow("format") << u"%n%s%@%1"_s;
  QTest::newRow("dash") << u"-i"_s;
  QTest::newRow("glob") << u"*?[a]~"_s;
  QTest::newRow("foreign") << u"Ünïcödé 日本 🎬"_s;
  QTest::newRow("long") << QString(100'000, u'x');
}

void TestChildProcessHygiene::anyTextIsAnArgument() {
  QFETCH(QString, argument);
  QVERIFY(m_tool->scenario.exit(0).write());
  ChildSetup setup = m_tool->setup();
  setup.arguments = {u"first"_s, argument, u"last"_s};
  QByteArray output;
  QVERIFY(ostrak::runChild(setup, output).succeeded());
  QCOMPARE(m_tool->scenario.arguments(u"other"_s), QList<QStringList>{setup.arguments});
}

void TestChildProcessHygiene::noOrphanAfterSigkill_data() {
  QTest::addColumn<bool>("stopped");
  QTest::newRow("running") << false;
  QTest::newRow("stopped") << true;
}

void TestChildProcessHygiene::noOrphanAfterSigkill() {
  QFETCH(bool, stopped);
  QVERIFY(m_tool->scenario.ignoreTerm().announce(u"up"_s).hang().write());
  // The orphan would be handed to the next reaper above, which is this process.
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  QProcess parent;
  parent.start(
      QCoreApplication::applicationFilePath(),
      {u"parent-to-be-killed"_s, m_tool->setup().executable, m_tool->path(u"movie.mkv"_s)});
  QTRY_VERIFY(m_tool->scenario.announced(u"up"_s));
  const qint64 child = m_tool->scenario.calls().value(0)["pid"_L1].toInteger();
  QVERIFY(isAlive(child));
  if (stopped) QCOMPARE(::kill(static_cast<pid_t>(child), SIGSTOP), 0);
  parent.kill();
  QVERIFY(parent.waitForFinished());
  QTRY_VERIFY(!isAlive(child));
}

void TestChildProcessHygiene::refusedProcessIsTold() {
  QVERIFY(m_tool->scenario.exit(0).write());
  // The limit on processes does not bind root, so the refusal is made in a child without its
  // rights.
  QProcess limited;
  limited.start(QCoreApplication::applicationFilePath(),
                {u"without-processes"_s, m_tool->setup().executable});
  QVERIFY(limited.waitForFinished());
  QCOMPARE(limited.readAllStandardOutput(), QByteArray("refused"));
}

void TestChildProcessHygiene::startWithoutDescriptorsFails() {
  QVERIFY(m_tool->scenario.exit(0).write());
  rlimit before;
  QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
  for (int spare = 0; spare < 16; ++spare) {
    Watched watched;
    rlimit scarce = before;
    const int probe = ::dup(STDERR_FILENO);
    ::close(probe);
    scarce.rlim_cur = static_cast<rlim_t>(probe + spare);
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &scarce), 0);
    watched.child.start(m_tool->setup());
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    QTRY_COMPARE(watched.ends, 1);
    QVERIFY(watched.result.end == End::FailedToStart || watched.result.succeeded());
    if (spare == 0) QCOMPARE(watched.result.end, End::FailedToStart);
    // That is no fault of the tool's.
    if (watched.result.end == End::FailedToStart)
      QVERIFY2(watched.result.processRefused, qPrintable(watched.result.error));
  }
}

void TestChildProcessHygiene::grandchildOutlivesTheEnd() {
  QVERIFY(m_tool->scenario.printError("x").grandchild(u"over"_s).exit(0).write());
  Watched watched;
  watched.child.start(m_tool->setup());
  QVERIFY(watched.child.waitForDone());
  QCOMPARE(watched.ends, 1);
  QCOMPARE(watched.output, QByteArray("x"));
  QVERIFY(m_tool->scenario.release(u"over"_s));
}

void TestChildProcessHygiene::worksOnAPlainThread() {
  QVERIFY(m_tool->scenario.printError("x").ignoreTerm().announce(u"up"_s).hang().write());
  QByteArray output;
  ChildResult result;
  std::thread thread([&] {
    ChildProcess child({std::chrono::milliseconds(1)});
    QObject::connect(&child, &ChildProcess::output, &child,
                     [&output](const QByteArray &bytes) { output += bytes; });
    QObject::connect(&child, &ChildProcess::done, &child,
                     [&result](const ChildResult &end) { result = end; });
    child.start(m_tool->setup());
    while (!m_tool->scenario.announced(u"up"_s))
      child.waitForDone(std::chrono::milliseconds(1));
    child.stop();
    child.waitForDone();
  });
  thread.join();
  QCOMPARE(result.end, End::Stopped);
  QCOMPARE(result.signal, SIGKILL);
  QCOMPARE(output, QByteArray("x"));
}

namespace {

// Prints how a start ends for a user who may not have another process.
[[noreturn]] void withoutProcesses(const QString &tool) {
  const rlimit none{0, 0};
  if (::getuid() == 0 && ::setuid(65'534) != 0) ::_exit(1);
  if (::setrlimit(RLIMIT_NPROC, &none) != 0) ::_exit(1);
  QByteArray output;
  const ChildResult result = ostrak::runChild({tool, {}, {}, false}, output);
  const bool told = result.end == End::FailedToStart && result.processRefused;
  std::fputs(told ? "refused" : "started", stdout);
  std::fflush(stdout);
  ::_exit(0);  // what a sanitizer does at the end of main needs a process, too
}

}  // namespace

int main(int argc, char **argv) {
  QCoreApplication application(argc, argv);
  const QStringList words = application.arguments();
  if (words.value(1) == "parent-to-be-killed"_L1) {
    return parentToBeKilled(words.value(2), words.value(3));
  }
  if (words.value(1) == "without-processes"_L1) withoutProcesses(words.value(2));
  TestChildProcessHygiene test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_childprocess_hygiene.moc"
