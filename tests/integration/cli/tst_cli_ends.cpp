#include <unistd.h>

#include <QDir>
#include <QJsonObject>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QTest>
#include <csignal>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

namespace {

bool isAlive(qint64 process) {
  return ::kill(static_cast<pid_t>(process), 0) == 0;
}

// The tool of the last conversion.
qint64 toolOf(const DecantProgram &program) {
  qint64 process = 0;
  for (const QJsonObject &call : program.scenario().calls()) {
    if (call.value("role"_L1) == "conversion"_L1) process = call.value("pid"_L1).toInteger();
  }
  return process;
}

}  // namespace

class TestCliEnds final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void signals_data();
  void signals();
  void signalThatTheToolGetsToo();
  void stubbornToolIsKilled();
  void signalWhileProbing();
  void signalInTheTestOfOneSecond();
  void signalThatIsSwitchedOff();
  void killedProgramLeavesNoTool();
  void leftProgressFilesAreSwept();
  void nobodyReads();
  void readerGoesAway();
  void destinationGoesWhileConverting();
};

void TestCliEnds::signals_data() {
  QTest::addColumn<int>("signal");
  QTest::addColumn<int>("status");
  QTest::newRow("interrupt") << SIGINT << 130;
  QTest::newRow("terminate") << SIGTERM << 143;
  QTest::newRow("hang up") << SIGHUP << 129;
  QTest::newRow("quit key") << SIGQUIT << 131;
}

void TestCliEnds::signals() {
  QFETCH(const int, signal);
  QFETCH(const int, status);
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1, "c.mkv"_L1, "notes.txt"_L1})
    program.file(name);
  program.scenario().conversion(u"b.mkv"_s).announce(u"running"_s).hang().write();
  const auto process = program.start(
      {u"convert"_s, u"--json"_s, u"notes.txt"_s, u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  ::kill(static_cast<pid_t>(process->processId()), signal);
  const DecantOutcome outcome = DecantProgram::end(*process);
  QCOMPARE(outcome.status, status);
  // What was interrupted is neither finished nor failed; what is finished stays.
  QCOMPARE(outcome.story().last(), u"summary 1 1"_s);
  QVERIFY(!isAlive(toolOf(program)));
  QCOMPARE(program.files(),
           (QStringList{u"a.m4v"_s, u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s, u"notes.txt"_s}));
  QVERIFY(QDir(program.supportFolder() + u"/Documents"_s).isEmpty());
}

// On a terminal the tool hears the interrupt as well and may be gone first: no failure comes of it,
// and the next job does not start.
void TestCliEnds::signalThatTheToolGetsToo() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
    program.file(name);
  program.scenario().conversion(u"a.mkv"_s).announce(u"running"_s).hang().write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  const auto tool = static_cast<pid_t>(toolOf(program));
  // Both are there before the program looks.
  ::kill(static_cast<pid_t>(process->processId()), SIGSTOP);
  ::kill(tool, SIGINT);
  ::kill(static_cast<pid_t>(process->processId()), SIGINT);
  ::kill(static_cast<pid_t>(process->processId()), SIGCONT);
  const DecantOutcome outcome = DecantProgram::end(*process);
  QCOMPARE(outcome.status, 130);
  QCOMPARE(outcome.story().last(), u"summary 0 0"_s);
  QCOMPARE(program.files(), (QStringList{u"a.mkv"_s, u"b.mkv"_s}));
}

void TestCliEnds::stubbornToolIsKilled() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario().conversion().ignoreTerm().announce(u"running"_s).hang().write();
  const auto process = program.start({u"convert"_s, u"a.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  ::kill(static_cast<pid_t>(process->processId()), SIGTERM);
  QCOMPARE(DecantProgram::end(*process).status, 143);
  QVERIFY(!isAlive(toolOf(program)));
  QCOMPARE(program.files(), QStringList{u"a.mkv"_s});
}

void TestCliEnds::signalWhileProbing() {
  for (const QStringList &command :
       {QStringList{u"convert"_s, u"--json"_s}, {u"convert"_s, u"--dry-run"_s}, {u"probe"_s}}) {
    const DecantProgram program;
    program.file(u"a.mkv"_s);
    program.scenario().probe().announce(u"probing"_s).hang().write();
    const auto process = program.start(command + QStringList{u"a.mkv"_s});
    QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"probing"_s), 30000);
    ::kill(static_cast<pid_t>(process->processId()), SIGQUIT);
    QCOMPARE(DecantProgram::end(*process).status, 131);
    const qint64 tool = program.scenario().calls().first().value("pid"_L1).toInteger();
    QTRY_VERIFY_WITH_TIMEOUT(!isAlive(tool), 30000);
  }
}

void TestCliEnds::signalInTheTestOfOneSecond() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario().fixup().announce(u"asked"_s).hang().write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"asked"_s), 30000);
  ::kill(static_cast<pid_t>(process->processId()), SIGTERM);
  const DecantOutcome outcome = DecantProgram::end(*process);
  QCOMPARE(outcome.status, 143);
  QCOMPARE(outcome.story().last(), u"summary 0 0"_s);
  QCOMPARE(program.files(), QStringList{u"a.mkv"_s});
}

void TestCliEnds::signalThatIsSwitchedOff() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario().conversion().announce(u"running"_s).wait(u"go"_s).write();
  const auto process = program.start({u"--version"_s});
  QCOMPARE(DecantProgram::end(*process).status, 0);
  const DecantOutcome outcome = program.shell(
      "trap '' HUP; $decant convert a.mkv & pid=$!; "
      "until [ -e \"$(dirname \"$decant\")/resources/running\" ]; do read -t 0.05 <> <(:); done; "
      "kill -HUP $pid; : > \"$(dirname \"$decant\")/resources/go\"; wait $pid");
  QCOMPARE(outcome.status, 0);
  QVERIFY(program.files().contains(u"a.m4v"_s));
}

void TestCliEnds::killedProgramLeavesNoTool() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.scenario().conversion().ignoreTerm().announce(u"running"_s).hang().write();
  const auto process = program.start({u"convert"_s, u"a.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  process->kill();
  QVERIFY(process->waitForFinished());
  QTRY_VERIFY_WITH_TIMEOUT(!isAlive(toolOf(program)), 30000);
}

// By the next conversion, and only what no running program holds; to look is not to touch.
void TestCliEnds::leftProgressFilesAreSwept() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1, "c.mkv"_L1})
    program.file(name);
  const QDir folder(program.supportFolder() + u"/Documents"_s);
  const auto left = [&folder] { return folder.entryList(QDir::Files, QDir::Name); };
  program.scenario()
      .conversion(u"a.mkv"_s)
      .announce(u"doomed"_s)
      .hang()
      .conversion(u"b.mkv"_s)
      .announce(u"running"_s)
      .wait(u"go"_s)
      .write();
  const auto doomed = program.start({u"convert"_s, u"a.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"doomed"_s), 30000);
  doomed->kill();
  QVERIFY(doomed->waitForFinished());
  QCOMPARE(left(), QStringList(u"a.mkv.log"_s));
  QCOMPARE(program.run({u"probe"_s, u"a.mkv"_s}).status, 0);
  QCOMPARE(program.run({u"convert"_s, u"--dry-run"_s, u"a.mkv"_s}).status, 0);
  QCOMPARE(left(), QStringList(u"a.mkv.log"_s));
  const auto running = program.start({u"convert"_s, u"b.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  QCOMPARE(left(), QStringList(u"b.mkv.log"_s));
  QCOMPARE(program.run({u"convert"_s, u"c.mkv"_s}).status, 0);
  QCOMPARE(left(), QStringList(u"b.mkv.log"_s));
  QVERIFY(program.scenario().release(u"go"_s));
  QCOMPARE(DecantProgram::end(*running).status, 0);
  QCOMPARE(left(), QStringList());
}

void TestCliEnds::nobodyReads() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  const DecantOutcome outcome =
      program.shell("$decant convert --json a.mkv gone.mkv b.mkv | true; exit ${PIPESTATUS[0]}");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(program.files(), (QStringList{u"a.m4v"_s, u"a.mkv"_s, u"b.m4v"_s, u"b.mkv"_s}));
}

void TestCliEnds::readerGoesAway() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  program.scenario().conversion(u"a.mkv"_s).announce(u"running"_s).wait(u"go"_s).write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  process->closeReadChannel(QProcess::StandardOutput);
  QVERIFY(program.scenario().release(u"go"_s));
  QCOMPARE(DecantProgram::end(*process).status, 0);
  QVERIFY(program.files().contains(u"b.m4v"_s));
}

void TestCliEnds::destinationGoesWhileConverting() {
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1})
    program.file(name);
  program.file(u"keep/c.mkv"_s);
  program.scenario().conversion(u"a.mkv"_s).announce(u"running"_s).wait(u"go"_s).exit(1).write();
  const auto process =
      program.start({u"convert"_s, u"--json"_s, u"-o"_s, u"out"_s, u"a.mkv"_s, u"b.mkv"_s});
  QByteArray early;
  QTRY_VERIFY_WITH_TIMEOUT(
      (early += process->readAllStandardOutput()).contains("\"queued\",\"job\":2"), 30000);
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  QVERIFY(QDir(program.path(u"out"_s)).removeRecursively());
  QVERIFY(program.scenario().release(u"go"_s));
  DecantOutcome outcome = DecantProgram::end(*process);
  outcome.output.prepend(early);
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story().last(), u"summary 0 2"_s);
  QCOMPARE(outcome.events(u"failed"_s).size(), 2);
  QCOMPARE(program.files(), (QStringList{u"a.mkv"_s, u"b.mkv"_s, u"keep/"_s, u"keep/c.mkv"_s}));
}

QTEST_GUILESS_MAIN(TestCliEnds)
#include "tst_cli_ends.moc"
