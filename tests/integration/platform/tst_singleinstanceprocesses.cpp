#include <QProcess>
#include <QTest>
#include <csignal>

#include "PrivateBus.h"

using namespace Qt::StringLiterals;

// Two real starts of a program, one after the other.
class TestSingleInstanceProcesses final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void handsOver_data();
  void handsOver();
  void theFirstIsJustStarting();
  void manyAtOnce();
  void theFirstHangs();
  void theFirstEndsInBetween();
  void releaseAndClaimAgain();
  void noBus();

 private:
  std::unique_ptr<QProcess> start(const QStringList &paths, const QString &patience = u"30000"_s,
                                  const QProcessEnvironment &environment = {}) const {
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    all.remove(u"XDG_ACTIVATION_TOKEN"_s);
    all.remove(u"DESKTOP_STARTUP_ID"_s);
    all.insert(environment);
    process->setProcessEnvironment(all);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    const QStringList head{m_address, u"org.decant.Decant"_s, patience};
    process->start(QStringLiteral(INSTANCE_PATH), head + paths);
    return process;
  }
  static QString line(QProcess &process) {
    while (!process.canReadLine() && process.waitForReadyRead()) {
    }
    return QString::fromUtf8(process.readLine().trimmed());
  }
  static void say(QProcess &process, const QByteArray &command) {
    process.write(command + '\n');
    process.waitForBytesWritten();
  }
  static QString ask(QProcess &process, const QByteArray &command) {
    say(process, command);
    return line(process);
  }
  // What the process ended with; -1 when it did not.
  static int end(QProcess &process) {
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
               ? process.exitCode()
               : -1;
  }
  [[nodiscard]] bool startFirst() {
    m_first = start({});
    return line(*m_first) == u"first"_s;
  }

  std::unique_ptr<PrivateBus> m_bus;
  QString m_address;
  std::unique_ptr<QProcess> m_first;
};

void TestSingleInstanceProcesses::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bus = std::make_unique<PrivateBus>();
  m_address = m_bus->address();
}

void TestSingleInstanceProcesses::cleanup() {
  if (m_first) {
    ::kill(static_cast<pid_t>(m_first->processId()), SIGCONT);
    m_first->kill();
    m_first->waitForFinished();
  }
  m_first.reset();
  m_bus.reset();
}

void TestSingleInstanceProcesses::handsOver_data() {
  QTest::addColumn<QStringList>("paths");
  QTest::addColumn<QString>("token");
  QTest::addColumn<QString>("told");
  QTest::newRow("nothing") << QStringList() << QString() << u"activate"_s;
  QTest::newRow("nothing, with a token") << QStringList() << u"t1"_s << u"activate token t1"_s;
  QTest::newRow("a file") << QStringList{u"/a b/ä 100%25 #1?.mkv"_s} << QString()
                          << u"open /a b/ä 100%25 #1?.mkv"_s;
  QTest::newRow("files") << QStringList{u"//a/./b/../c.mkv"_s, u"/d.srt"_s} << u"t2"_s
                         << u"open //a/./b/../c.mkv | /d.srt token t2"_s;
}

void TestSingleInstanceProcesses::handsOver() {
  QFETCH(QStringList, paths);
  QFETCH(QString, token);
  QFETCH(QString, told);
  QVERIFY(startFirst());
  QCOMPARE(ask(*m_first, "go"), u"going"_s);
  QProcessEnvironment environment;
  if (!token.isNull()) environment.insert(u"XDG_ACTIVATION_TOKEN"_s, token);
  const auto second = start(paths, u"30000"_s, environment);
  QCOMPARE(end(*second), 0);
  QCOMPARE(line(*second), u"second"_s);
  QCOMPARE(line(*m_first), told);
}

void TestSingleInstanceProcesses::theFirstIsJustStarting() {
  QVERIFY(startFirst());
  // It has the name, but neither a handler nor an event loop that runs.
  const auto second = start({u"/a.mkv"_s});
  const auto third = start({});
  QCOMPARE(line(*second), u"second"_s);
  QCOMPARE(line(*third), u"second"_s);
  QCOMPARE(ask(*m_first, "go"), u"going"_s);
  QCOMPARE(end(*second), 0);
  QCOMPARE(end(*third), 0);
  const QStringList told{line(*m_first), line(*m_first)};
  QVERIFY(told.contains(u"open /a.mkv"_s));
  QVERIFY(told.contains(u"activate"_s));
}

void TestSingleInstanceProcesses::manyAtOnce() {
  constexpr int count = 8;
  std::vector<std::unique_ptr<QProcess>> all;
  for (int i = 0; i < count; ++i)
    all.push_back(start({u"/%1.mkv"_s.arg(i)}));
  QProcess *found = nullptr;
  for (const auto &process : all) {
    const QString role = line(*process);
    QVERIFY(role == u"second"_s || !found);
    if (role == u"first"_s) found = process.get();
  }
  QVERIFY(found);
  QProcess &first = *found;
  QCOMPARE(ask(first, "go"), u"going"_s);
  QStringList told;
  for (int i = 1; i < count; ++i)
    told << line(first);
  told.removeDuplicates();
  QCOMPARE(told.filter(u"open /"_s).size(), count - 1);
  for (const auto &process : all) {
    if (process.get() != &first) QCOMPARE(end(*process), 0);
  }
  say(first, "end");
  QCOMPARE(end(first), 0);
}

void TestSingleInstanceProcesses::theFirstHangs() {
  QVERIFY(startFirst());
  ::kill(static_cast<pid_t>(m_first->processId()), SIGSTOP);
  const auto second = start({u"/a.mkv"_s}, u"100"_s);
  QCOMPARE(end(*second), 1);
}

void TestSingleInstanceProcesses::theFirstEndsInBetween() {
  QVERIFY(startFirst());
  ::kill(static_cast<pid_t>(m_first->processId()), SIGSTOP);
  const auto second = start({u"/a.mkv"_s});
  QCOMPARE(line(*second), u"second"_s);
  m_first->kill();
  QCOMPARE(end(*second), 1);
}

void TestSingleInstanceProcesses::releaseAndClaimAgain() {
  QVERIFY(startFirst());
  QCOMPARE(ask(*m_first, "go"), u"going"_s);
  QCOMPARE(ask(*m_first, "release"), u"released"_s);
  const auto second = start({});
  QCOMPARE(line(*second), u"first"_s);
  QCOMPARE(ask(*m_first, "claim"), u"taken"_s);
  say(*second, "end");
  QCOMPARE(end(*second), 2);
  QCOMPARE(ask(*m_first, "claim"), u"claimed"_s);
  const auto third = start({});
  QCOMPARE(end(*third), 0);
  QCOMPARE(line(*m_first), u"activate"_s);
}

void TestSingleInstanceProcesses::noBus() {
  m_address = u"unix:path=/no-such-bus"_s;
  QVERIFY(startFirst());
  const auto second = start({u"/a.mkv"_s});
  QCOMPARE(line(*second), u"first"_s);
  say(*second, "end");
  QCOMPARE(end(*second), 2);
}

QTEST_GUILESS_MAIN(TestSingleInstanceProcesses)
#include "tst_singleinstanceprocesses.moc"
