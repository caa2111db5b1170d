#include <QFile>
#include <QJsonObject>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QTest>

#include "DecantProgram.h"

using namespace Qt::StringLiterals;

class TestCliObstacles final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void noRoom();
  void folderBelowOneThatIsGone_data();
  void folderBelowOneThatIsGone();
  void notWritable_data();
  void notWritable();
  void readOnlyFolder();
  void toolMissing();
  void anotherProgramIsNotBlamedOnTheMovie();
  void toolGoesBetweenProbeAndConversion();
  void sourceGoesBetweenProbeAndConversion();
  void noProcessCanBeMade_data();
  void noProcessCanBeMade();
  void noDataFolder();
  void fullStandardOutput();
};

// A limit on the size of files is seen as a disk that takes no larger ones.
void TestCliObstacles::noRoom() {
  const DecantProgram program;
  program.file(u"large.mkv"_s, QByteArray(2048 * 1024, 'x'));
  program.file(u"small.mkv"_s);
  program.file(u"large2.mkv"_s, QByteArray(2048 * 1024, 'x'));
  const DecantOutcome outcome =
      program.shell("ulimit -f 1024; $decant convert --json large.mkv small.mkv large2.mkv");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.events(u"alert"_s).size(), 0);
  const QList<QJsonObject> failed = outcome.events(u"failed"_s);
  QCOMPARE(failed.size(), 2);
  for (const QJsonObject &event : failed) {
    QCOMPARE(event.value("kind"_L1), u"noRoom"_s);
    QCOMPARE(event.value("text"_L1), u"Your target disk doesn't support large files."_s);
  }
  QCOMPARE(failed.at(0).value("job"_L1), 1);
  QCOMPARE(failed.at(1).value("job"_L1), 3);
  QCOMPARE(outcome.events(u"finished"_s).size(), 1);
  QCOMPARE(outcome.story().last(), u"summary 1 2"_s);
}

void TestCliObstacles::folderBelowOneThatIsGone_data() {
  QTest::addColumn<QByteArray>("dryRun");
  QTest::newRow("conversion") << QByteArray();
  QTest::newRow("dry run") << QByteArray("--dry-run");
}

// A relative name leads nowhere when the working folder has been removed.
void TestCliObstacles::folderBelowOneThatIsGone() {
  QFETCH(const QByteArray, dryRun);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  const DecantOutcome outcome =
      program.shell("films=$PWD; mkdir gone && cd gone && rmdir ../gone; $decant convert --json " +
                    dryRun + " -o out \"$films/a.mkv\" \"$films/b.mkv\"");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.output.count("\"kind\":\"notWritable\""), 2);
  QVERIFY2(outcome.output.contains("The folder that 'out' is in has been removed."),
           outcome.output.constData());
  QCOMPARE(program.files(), (QStringList{u"a.mkv"_s, u"b.mkv"_s}));
}

void TestCliObstacles::notWritable_data() {
  QTest::addColumn<QString>("folder");
  QTest::newRow("a file") << u"file"_s;
  QTest::newRow("below a file") << u"file/out"_s;
  QTest::newRow("a name that is too long") << QString(300, u'x');
}

void TestCliObstacles::notWritable() {
  QFETCH(const QString, folder);
  const DecantProgram program;
  for (const auto name : {"a.mkv"_L1, "b.mkv"_L1, "notes.txt"_L1, "file"_L1})
    program.file(name);
  const QStringList before = program.files();
  const DecantOutcome outcome = program.run(
      {u"convert"_s, u"--json"_s, u"-o"_s, folder, u"a.mkv"_s, u"notes.txt"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story(), (QStringList{u"failed notWritable"_s, u"failed refused"_s,
                                         u"failed notWritable"_s, u"summary 0 3"_s}));
  QVERIFY(outcome.events(u"failed"_s).first().value("text"_L1).toString().contains(folder));
  QCOMPARE(program.files(), before);
}

void TestCliObstacles::readOnlyFolder() {
  const DecantProgram program;
  program.file(u"locked/a.mkv"_s);
  program.file(u"open/b.mkv"_s);
  const DecantOutcome outcome = program.shellAsNobody(
      "chmod 755 locked; mkdir -p \"$HOME/out\"; cp open/b.mkv \"$HOME/out\"; "
      "if [ $(id -u) != 65534 ]; then chmod a-w locked; fi; "
      "$decant convert --json locked/a.mkv \"$HOME/out/b.mkv\"; status=$?; "
      "if [ $(id -u) != 65534 ]; then chmod u+w locked; fi; exit $status");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story(), (QStringList{u"failed notWritable"_s, u"queued 1"_s, u"started 1"_s,
                                         u"finished 1"_s, u"summary 1 1"_s}));
  const QJsonObject failed = outcome.events(u"failed"_s).first();
  QVERIFY(failed.value("text"_L1).toString().contains(u"write access"_s));
  QCOMPARE(failed.value("title"_L1), u"Decant"_s);
}

void TestCliObstacles::toolMissing() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  program.setTool({});
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story(),
           (QStringList{u"failed toolMissing"_s, u"failed toolMissing"_s, u"summary 0 2"_s}));
  QVERIFY(outcome.events(u"failed"_s).first().value("text"_L1).toString().contains(program.tool()));
}

void TestCliObstacles::anotherProgramIsNotBlamedOnTheMovie() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.setTool(u"/bin/true"_s);
  const DecantOutcome outcome = program.run({u"convert"_s, u"--json"_s, u"a.mkv"_s});
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story(), (QStringList{u"failed toolMissing"_s, u"summary 0 1"_s}));
  const QString text = outcome.events(u"failed"_s).first().value("text"_L1).toString();
  QVERIFY(text.contains(program.tool()));
  QVERIFY(!text.contains(u"valid MKV"_s));
}

void TestCliObstacles::toolGoesBetweenProbeAndConversion() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  program.scenario().conversion(u"a.mkv"_s).announce(u"running"_s).wait(u"go"_s).write();
  const auto process = program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s});
  QByteArray early;
  QTRY_VERIFY_WITH_TIMEOUT(
      (early += process->readAllStandardOutput()).contains("\"queued\",\"job\":2"), 30000);
  QTRY_VERIFY_WITH_TIMEOUT(program.scenario().announced(u"running"_s), 30000);
  program.setTool({});
  QVERIFY(program.scenario().release(u"go"_s));
  DecantOutcome outcome = DecantProgram::end(*process);
  outcome.output.prepend(early);
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story().last(3),
           (QStringList{u"finished 1"_s, u"failed 2 toolMissing"_s, u"summary 1 1"_s}));
}

void TestCliObstacles::sourceGoesBetweenProbeAndConversion() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  program.file(u"c.mkv"_s);
  program.scenario().conversion(u"a.mkv"_s).announce(u"running"_s).wait(u"go"_s).write();
  const auto process =
      program.start({u"convert"_s, u"--json"_s, u"a.mkv"_s, u"b.mkv"_s, u"c.mkv"_s});
  QByteArray early;
  QTRY_VERIFY_WITH_TIMEOUT(
      (early += process->readAllStandardOutput()).contains("\"queued\",\"job\":3"), 30000);
  QVERIFY(QFile::remove(program.path(u"b.mkv"_s)));
  QVERIFY(program.scenario().release(u"go"_s));
  DecantOutcome outcome = DecantProgram::end(*process);
  outcome.output.prepend(early);
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.story().last(5),
           (QStringList{u"finished 1"_s, u"failed 2 sourceRemoved"_s, u"started 3"_s,
                        u"finished 3"_s, u"summary 2 1"_s}));
  QCOMPARE(outcome.events(u"alert"_s).size(), 0);
}

void TestCliObstacles::noProcessCanBeMade_data() {
  QTest::addColumn<QByteArray>("command");
  QTest::newRow("probe") << QByteArray("probe --json");
  QTest::newRow("convert") << QByteArray("convert --json");
  QTest::newRow("dry run") << QByteArray("convert --json --dry-run");
}

void TestCliObstacles::noProcessCanBeMade() {
  QFETCH(const QByteArray, command);
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  program.file(u"b.mkv"_s);
  const DecantOutcome outcome =
      program.shellAsNobody("ulimit -u 1; exec $decant " + command + " a.mkv b.mkv");
  QCOMPARE(outcome.status, 1);
  QCOMPARE(outcome.output.count("A basic system capability failed"), 2);
}

// A user without a home: progress files go elsewhere, the conversion goes on.
void TestCliObstacles::noDataFolder() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  const DecantOutcome outcome =
      program.shell("export XDG_DATA_HOME=/dev/null/none; exec $decant convert --json a.mkv");
  QCOMPARE(outcome.status, 0);
  QCOMPARE(outcome.story().last(), u"summary 1 0"_s);
}

// A reader that has gone is nobody's loss; a disk that is full is.
void TestCliObstacles::fullStandardOutput() {
  const DecantProgram program;
  program.file(u"a.mkv"_s);
  for (const auto command : {"probe --json a.mkv", "settings list", "convert --dry-run a.mkv"}) {
    const DecantOutcome outcome =
        program.shell(QByteArray("exec $decant ") + command + " >/dev/full");
    QCOMPARE(outcome.status, 1);
    QVERIFY(outcome.error.contains("No space left on device"));
  }
}

QTEST_GUILESS_MAIN(TestCliObstacles)
#include "tst_cli_obstacles.moc"
