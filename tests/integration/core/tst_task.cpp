#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "BuildTree.h"
#include "Ostrak.h"
#include "Scenario.h"
#include "Task.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using ostrak::runAsTask;
using ostrak::runAsTaskWithTerminationStatus;

class TestTask final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void givesOutputAndStatus_data();
  void givesOutputAndStatus();
  void nothingWhenItCannotStart_data();
  void nothingWhenItCannotStart();
  void warnsOfLongArguments_data();
  void warnsOfLongArguments();
  void singleElement();
  void standsWhereTheCallerStands();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  std::unique_ptr<QTemporaryDir> m_folder;
  std::unique_ptr<ostrak::Ostrak> m_library;
  QStringList m_logged;
};

void TestTask::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_folder = std::make_unique<QTemporaryDir>();
  m_logged.clear();
  ostrak::OstrakSetup setup;
  setup.prefsPath = path(u"settings.conf"_s);
  setup.suppDir = path(u"support"_s);
  setup.persistence = ostrak::UserDefaults::Persistence::InMemory;
  setup.systemLog = [this](int level, const QString &message) {
    m_logged.append(QString::number(level) + u' ' + message);
  };
  m_library = std::make_unique<ostrak::Ostrak>(setup);
  QVERIFY(QFile::link(buildtree::scriptedTool(), path(u"tool"_s)));
}

void TestTask::cleanup() {
  m_library.reset();
  m_folder.reset();
}

void TestTask::givesOutputAndStatus_data() {
  QTest::addColumn<QByteArray>("steps");
  QTest::addColumn<std::optional<QString>>("output");
  QTest::addColumn<int>("status");
  using Text = std::optional<QString>;
  QTest::newRow("both streams in order")
      << QByteArray("stdout a\nstderr b\nstdout c\nexit 0") << Text(u"abc"_s) << 0;
  QTest::newRow("nothing printed") << QByteArray("exit 0") << Text(u""_s) << 0;
  QTest::newRow("failure") << QByteArray("stderr no\nexit 255") << Text(u"no"_s) << 255;
  QTest::newRow("death by signal") << QByteArray("stderr no\ndie 9") << Text(u"no"_s) << SIGKILL;
  QTest::newRow("UTF-8") << QByteArray("stderr \xc3\xa4\xf0\x9f\x8e\xac\nexit 0") << Text(u"ä🎬"_s)
                         << 0;
  QTest::newRow("byte order mark")
      << QByteArray("stderr \xef\xbb\xbfx\nexit 0") << Text(u"\ufeffx"_s) << 0;
  QTest::newRow("not UTF-8") << QByteArray("stderr a\\xff\nexit 3") << Text() << 3;
  QTest::newRow("cut within a character") << QByteArray("stderr a\\xc3\nexit 3") << Text() << 3;
  QTest::newRow("pipe held by a grandchild")
      << QByteArray("stderr x\ngrandchild never\nexit 4") << Text(u"x"_s) << 4;
  QTest::newRow("output closed early")
      << QByteArray("stderr x\nclose-output\nexit 5") << Text(u"x"_s) << 5;
}

void TestTask::givesOutputAndStatus() {
  QFETCH(QByteArray, steps);
  QFETCH(std::optional<QString>, output);
  QVERIFY(wholefile::write(path(u"ffmpeg.scenario"_s), "any\n" + steps));
  qint32 status = -77;
  QCOMPARE(runAsTaskWithTerminationStatus({path(u"tool"_s), u"x"_s}, &status), output);
  QTEST(status, "status");
  QCOMPARE(runAsTask({path(u"tool"_s), u"x"_s}), output);
  QCOMPARE(m_logged, QStringList());
}

void TestTask::nothingWhenItCannotStart_data() {
  QTest::addColumn<QStringList>("command");
  QTest::newRow("no command") << QStringList();
  QTest::newRow("missing") << QStringList{u"/nowhere/tool"_s};
  QTest::newRow("a folder") << QStringList{u"/"_s};
  QTest::newRow("not found by search") << QStringList{u"true"_s};
  QTest::newRow("0 bytes") << QStringList{u"empty"_s};
}

void TestTask::nothingWhenItCannotStart() {
  QFETCH(QStringList, command);
  if (command.value(0) == "empty"_L1) {
    command[0] = path(u"empty"_s);
    QVERIFY(wholefile::write(command[0]));
    QFile file(command[0]);
    QVERIFY(file.setPermissions(file.permissions() | QFile::ExeOwner));
  }
  qint32 status = -77;
  QCOMPARE(runAsTaskWithTerminationStatus(command, &status), std::optional<QString>());
  QCOMPARE(status, -77);
  QCOMPARE(m_logged, QStringList());
}

void TestTask::warnsOfLongArguments_data() {
  QTest::addColumn<QList<int>>("sizes");
  QTest::addColumn<int>("warnings");
  QTest::newRow("at the limit") << QList<int>{100'000, 99'999, 1} << 0;
  QTest::newRow("above") << QList<int>{100'000, 100'000, 1} << 1;
}

void TestTask::warnsOfLongArguments() {
  QFETCH(QList<int>, sizes);
  QFETCH(int, warnings);
  Scenario scenario(path(u"ffmpeg.scenario"_s));
  QVERIFY(scenario.any().printError("ran").exit(0).write());
  QStringList command{path(u"tool"_s)};
  for (const int size : sizes)
    command.append(QString(size, u'x'));
  QCOMPARE(runAsTask(command), u"ran"_s);
  const QString warning =
      u"3 Error: task argument size approaching or above limit, spawn will fail"_s;
  QCOMPARE(m_logged, QStringList(warnings, warning));
}

void TestTask::singleElement() {
  Scenario scenario(path(u"ffmpeg.scenario"_s));
  QVERIFY(scenario.any().flood(1).exit(9).write());
  qint32 status = 0;
  const std::optional<QString> output = runAsTaskWithTerminationStatus({path(u"tool"_s)}, &status);
  QVERIFY(output);
  QCOMPARE(output->size(), 1024 * 1024);
  QCOMPARE(status, 9);
  QCOMPARE(scenario.arguments(u"other"_s), QList<QStringList>{QStringList()});
}

// Input, environment and working folder are the caller's.
void TestTask::standsWhereTheCallerStands() {
  QFile input(path(u"input"_s));
  QVERIFY(input.open(QIODevice::ReadWrite));
  QCOMPARE(input.write("from the input"), 14);
  QVERIFY(input.seek(0));
  const int own = ::dup(STDIN_FILENO);
  QVERIFY(::dup2(input.handle(), STDIN_FILENO) >= 0);
  qputenv("TASK_TEST", "from the environment");
  const std::optional<QString> read = runAsTask({u"/bin/cat"_s});
  const std::optional<QString> variable =
      runAsTask({u"/bin/sh"_s, u"-c"_s, u"echo $TASK_TEST; pwd -P"_s});
  qunsetenv("TASK_TEST");
  ::dup2(own, STDIN_FILENO);
  ::close(own);
  QCOMPARE(read, std::optional(u"from the input"_s));
  QCOMPARE(variable,
           std::optional(QString(u"from the environment\n"_s + QDir::currentPath() + u'\n')));
}

QTEST_GUILESS_MAIN(TestTask)
#include "tst_task.moc"
