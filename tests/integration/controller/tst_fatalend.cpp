#include <QCoreApplication>
#include <QFile>
#include <QObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QTest>
#include <cstdio>
#include <thread>

#include "Alerts.h"
#include "ControllerProgram.h"
#include "Defaults.h"
#include "GuardedApplication.h"

using namespace Qt::StringLiterals;
using namespace decant;

// A fatal report ends the process, and what its jobs have left unfinished goes with it. The process
// is this program itself, started again with a role.
namespace {

[[nodiscard]] QString output(const ConversionJob *job) {
  return job->fileInfo().destinationURL.toLocalFile();
}

// Prints the outputs, those that are to stay first.
int playRole(const QByteArray &role, int &argc, char **argv) {
  const ostrak::GuardedApplication<QCoreApplication> application(argc, argv);
  ControllerProgram program;
  program.program.presenter().answer(ostrak::secondButton);
  ostrak::setDefaultInt(u"InsertJobsAtBottom"_s, 1);
  const QStringList names{u"1.mkv"_s, u"2fail.mkv"_s, u"3hang.mkv"_s, u"4.mkv"_s};
  for (const QString &name : names) {
    const ConversionJob *job = program.add(name);
    if (!job) return 2;
    std::puts(output(job).toUtf8().constData());
  }
  std::fflush(stdout);
  const auto hangs = [&program] {
    return program.converted().size() == 3 && program.count(JobStateConverting) == 1;
  };
  if (!QTest::qWaitFor(hangs, 30'000)) return 2;
  if (role == "paused") program.controller->pauseContinueClicked(true);
  if (role == "removed") program.queue().taskArray().at(2)->remove();
  if (role != "worker") ostrak::alert_feedback_fatal(u"It broke"_s, u"details"_s);
  std::thread([] { ostrak::alert_feedback_fatal(u"It broke"_s, u"details"_s); }).detach();
  return QCoreApplication::exec();
}

}  // namespace

class TestFatalEnd final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void unfinishedOutputsGo_data();
  void unfinishedOutputsGo();
};

void TestFatalEnd::unfinishedOutputsGo_data() {
  QTest::addColumn<QString>("role");
  QTest::newRow("while it runs") << u"running"_s;
  QTest::newRow("while it is paused") << u"paused"_s;
  QTest::newRow("from a worker") << u"worker"_s;
  QTest::newRow("while a removed one is stopped") << u"removed"_s;
}

void TestFatalEnd::unfinishedOutputsGo() {
  QFETCH(const QString, role);
  const QTemporaryDir folder;
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"TMPDIR"_s, folder.path());
  process.setProcessEnvironment(environment);
  process.start(QCoreApplication::applicationFilePath(), {u"--role"_s, role});
  QVERIFY(process.waitForFinished(60'000));
  QCOMPARE(process.exitStatus(), QProcess::NormalExit);
  QCOMPARE(process.exitCode(), 1);
  const QStringList outputs = QString::fromUtf8(process.readAllStandardOutput()).split(u'\n');
  QCOMPARE(outputs.size(), 5);
  const QString finished = outputs.at(0);
  QVERIFY(finished.startsWith(folder.path()));
  QVERIFY(QFile::exists(finished));
  for (const QString &unfinished : outputs.mid(1, 3)) {
    QVERIFY2(!QFile::exists(unfinished), qPrintable(unfinished));
    const QString source = unfinished.chopped(3) + u"mkv"_s;
    QVERIFY2(QFile::exists(source), qPrintable(source));
  }
}

int main(int argc, char **argv) {
  if (argc == 3 && qstrcmp(argv[1], "--role") == 0) return playRole(argv[2], argc, argv);
  const QCoreApplication application(argc, argv);
  TestFatalEnd test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_fatalend.moc"
