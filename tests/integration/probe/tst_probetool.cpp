#include <QFile>
#include <QObject>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include "Probe.h"
#include "Samples.h"
#include "Scenario.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using decant::probeFile;
using decant::ProbeRun;

// What is told where the fault is the tool's.
class TestProbeTool final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_program = std::make_unique<ScratchProgram>();
  }
  void cleanup() { m_program.reset(); }
  void brokenTool_data();
  void brokenTool();
  void durationOfAToolThatHangs();

 private:
  std::unique_ptr<ScratchProgram> m_program;
};

void TestProbeTool::brokenTool_data() {
  QTest::addColumn<QString>("tool");
  const QString empty = samples::write(u"ffmpeg"_s, "");
  const QString plain = samples::write(u"ffmpeg"_s, "#!/bin/sh\n");
  const QString noInterpreter = samples::write(u"ffmpeg"_s, "#!/nowhere/shell\n");
  const QString noProgram = samples::write(u"ffmpeg"_s, "not a program");
  const QString silent = samples::write(u"ffmpeg"_s, "#!/bin/sh\necho\n");
  const QString silentFailure = samples::write(u"ffmpeg"_s, "#!/bin/sh\nexit 1\n");
  for (const QString &path : {empty, noInterpreter, noProgram, silent, silentFailure}) {
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
  }
  QTest::newRow("none") << QString();
  QTest::newRow("link to nowhere") << u"/nowhere/ffmpeg"_s;
  QTest::newRow("folder") << samples::newFolder();
  QTest::newRow("not executable") << plain;
  QTest::newRow("of 0 bytes") << empty;
  QTest::newRow("interpreter missing") << noInterpreter;
  QTest::newRow("no program") << noProgram;
  QTest::newRow("says nothing") << silent;
  QTest::newRow("says nothing and fails") << silentFailure;
}

void TestProbeTool::brokenTool() {
  QFETCH(QString, tool);
  const QString movie = samples::make({});
  m_program->setTool(tool);
  const ProbeRun run = probeFile(QUrl::fromLocalFile(movie), {});
  QVERIFY(run.toolMissing);
  QCOMPARE(run.outcome.alerts.size(), 1);
  QVERIFY(!run.processRefused && !run.outcome.record);
  QCOMPARE(
      run.outcome.alerts.first().alert.message,
      QString(u"The file 'movie.mkv' can't be read because the tool '"_s + m_program->toolPath() +
              u"' is missing or cannot be run. Please install ffmpeg, or install Decant again."_s));
}

void TestProbeTool::durationOfAToolThatHangs() {
  Scenario scenario(m_program->toolPath() + u".scenario"_s);
  scenario.probe(u"slow.mkv"_s).printError("  Duration: 00:01:00.00, start: 0.000000\n").hang();
  scenario.probe().printError("  Duration: 00:01:00.00, start: 0.000000\n");
  QVERIFY(scenario.write());
  const auto durationOf = [](const QString &name, std::chrono::milliseconds patience) {
    return decant::durationWithin(QUrl::fromLocalFile(samples::write(name, "x")), patience);
  };
  QCOMPARE(durationOf(u"quick.mkv"_s, std::chrono::seconds(60)), 60);
  QCOMPARE(durationOf(u"slow.mkv"_s, std::chrono::milliseconds(500)), -1);
}

QTEST_GUILESS_MAIN(TestProbeTool)
#include "tst_probetool.moc"
