#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <thread>

#include "Alerts.h"
#include "Defaults.h"
#include "Dispatch.h"
#include "GuardedApplication.h"
#include "Logging.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Ends that take the process with them are played by this program itself, started again with a
// role.
namespace {

// Prints what is presented, one line each: title, first line of the message, buttons, whether
// opened.
class PrintingPresenter final : public AlertPresenter {
 public:
  explicit PrintingPresenter(int code) : m_code(code) {}
  int present(Alert &alert) override {
    const QString line = alert.title + u'|' + alert.message.section(u'\n', 0, 0) + u'|' +
                         alert.buttons.join(u'/') + u'|' +
                         alert.message.section(u"Information: "_s, 1).section(u'\n', 0, 0) + u'\n';
    std::fputs(line.toUtf8().constData(), stdout);
    std::fflush(stdout);
    return m_code;
  }

 private:
  int m_code;
};

struct Boom final {};

constexpr int survived = 42;

int runLoop(QCoreApplication &application) {
  QTimer::singleShot(0, &application,
                     [] { dispatch_async_main([] { QCoreApplication::exit(survived); }); });
  return QCoreApplication::exec();
}

int playRole(const QByteArray &role, int &argc, char **argv) {
  GuardedApplication<QCoreApplication> application(argc, argv);
  if (role == "uncaught-late") {
    { const ScratchProgram gone; }
    throw Exception(u"Name"_s, u"reason"_s);
  }
  ScratchProgram program;
  PrintingPresenter presenter(role.endsWith("-send") ? firstButton : secondButton);
  setAlertPresenter(&presenter);
  if (role == "fatal-cleanup-throws") {
    setFatalCleanup([] { throw Boom(); });
    alert_feedback_fatal(u"It broke"_s, u"details"_s);
  }
  if (role == "fatal" || role == "fatal-send") alert_feedback_fatal(u"It broke"_s, u"details"_s);
  if (role == "nonfatal") alert_feedback_nonfatal(u"It broke"_s, u"details"_s);
  if (role == "uncaught") throw Exception(u"Name"_s, u"reason"_s, {{u"key"_s, 7}});
  if (role == "uncaught-standard") throw std::runtime_error("standard reason");
  if (role == "uncaught-other") throw Boom();
  if (role == "terminate") std::terminate();
  if (role == "uncaught-worker") {
    dispatch_async_back([] { throw Exception(u"Worker"_s, u"reason"_s); });
    return QCoreApplication::exec();
  }
  if (role == "fatal-worker") {
    std::thread([] { alert_feedback_fatal(u"It broke"_s, u"in the back"_s); }).detach();
    return QCoreApplication::exec();
  }
  if (role == "handler") dispatch_async_main([] { throw RangeError(u"index 3 of 2"_s); });
  if (role == "handler-standard") dispatch_async_main([] { throw std::runtime_error("standard"); });
  if (role == "handler-other") dispatch_async_main([] { throw Boom(); });
  return runLoop(application);
}

}  // namespace

class TestFatal final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ends_data();
  void ends();
};

void TestFatal::ends_data() {
  QTest::addColumn<int>("status");
  QTest::addColumn<QString>("shown");
  const QString fatal = u"Fatal Error|%1|Send to support/Quit|%2"_s;
  const QString error = u"Error|%1|Send to support/Continue|%2"_s;
  const auto row = [](const char *role, int status, const QString &shown) {
    QTest::newRow(role) << status << shown;
  };
  row("fatal", 1, fatal.arg(u"It broke"_s, u"details"_s));
  row("fatal-send", 1, fatal.arg(u"It broke"_s, u"details"_s));
  row("fatal-cleanup-throws", 1, fatal.arg(u"It broke"_s, u"details"_s));
  row("fatal-worker", 1, fatal.arg(u"It broke"_s, u"in the back"_s));
  row("nonfatal", survived, error.arg(u"It broke"_s, u"details"_s));
  row("uncaught", 1, fatal.arg(u"Name"_s, u" Name: reason reason {\"key\":7} "_s));
  row("uncaught-late", 1, {});
  row("uncaught-standard", 1,
      fatal.arg(u"std::runtime_error"_s, u" std::runtime_error: standard reason "_s));
  row("uncaught-other", 1, fatal.arg(u"(anonymous namespace)::Boom"_s, u""_s));
  row("terminate", 1, fatal.arg(u"std::terminate"_s, u""_s));
  row("uncaught-worker", 1, fatal.arg(u"Worker"_s, u" Worker: reason reason {} "_s));
  row("handler", survived, error.arg(u"RangeException"_s, u"index 3 of 2"_s));
  row("handler-standard", survived, error.arg(u"standard"_s, u"standard"_s));
  row("handler-other", 1, fatal.arg(u"(anonymous namespace)::Boom"_s, u""_s));
}

void TestFatal::ends() {
  QFETCH(int, status);
  QFETCH(QString, shown);
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(),
                {u"--role"_s, QString::fromLatin1(QTest::currentDataTag())});
  QVERIFY(process.waitForFinished(60000));
  QCOMPARE(process.exitStatus(), QProcess::NormalExit);
  const QString printed = QString::fromUtf8(process.readAllStandardOutput());
  QVERIFY2(printed.startsWith(shown), qPrintable(printed));
  QCOMPARE(printed.count(u'\n'), shown.isEmpty() ? 0 : 1);
  QCOMPARE(process.exitCode(), status);
}

int main(int argc, char **argv) {
  if (argc == 3 && qstrcmp(argv[1], "--role") == 0) return playRole(argv[2], argc, argv);
  const QCoreApplication application(argc, argv);
  TestFatal test;
  return QTest::qExec(&test, argc, argv);
}
#include "tst_fatal.moc"
