#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <thread>

#include "AlertPlayer.h"
#include "AlertTest.h"
#include "Defaults.h"
#include "OffscreenMain.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Alerts from other threads, one after the other, silenced ones, and reports.
class TestAlertsInOrder final : public AlertTest {
  Q_OBJECT

 private Q_SLOTS:
  void silencedForTheVersion();
  void silencedForEver();
  void comesAgainWithoutTheTick();
  void fromAnotherThread();
  void oneAfterTheOther();
  void fatalReportEndsTheProcess_data();
  void fatalReportEndsTheProcess();
  void nonfatalReportGoesOn();
};

void TestAlertsInOrder::silencedForTheVersion() {
  const auto tell = [] {
    alert_dontwarnagain_version(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
  };
  const AlertPlayer player([](const AlertDialog &dialog) {
    auto *box = dialog.findChild<QAbstractButton *>(u"alertControl"_s);
    QVERIFY(!box->isChecked());
    QCOMPARE(box->text(), u"Not again"_s);
    box->click();
    AlertPlayer::press(dialog, 0);
  });
  tell();
  tell();
  QCOMPARE(player.shown(), 1);
  QCOMPARE(defaultInt(u"_warn_1.2.3_asked"_s), 1);
  m_program->setInfo(u"CFBundleShortVersionString"_s, u"1.2.4"_s);
  m_program->restart();
  tell();
  QCOMPARE(player.shown(), 2);
}

void TestAlertsInOrder::silencedForEver() {
  const auto tell = [] {
    alert_dontwarnagain_ever(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
  };
  const AlertPlayer player([](const AlertDialog &dialog) {
    dialog.findChild<QAbstractButton *>(u"alertControl"_s)->click();
    AlertPlayer::press(dialog, 0);
  });
  tell();
  m_program->setInfo(u"CFBundleShortVersionString"_s, u"1.2.4"_s);
  m_program->restart();
  tell();
  QCOMPARE(player.shown(), 1);
  QCOMPARE(defaultInt(u"_warn_asked"_s), 1);
}

void TestAlertsInOrder::comesAgainWithoutTheTick() {
  const AlertPlayer player([](const AlertDialog &dialog) { AlertPlayer::press(dialog, 0); });
  for (int i = 0; i < 2; ++i) {
    alert_dontwarnagain_ever(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
    alert_dontwarnagain_version(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
  }
  QCOMPARE(player.shown(), 4);
  QCOMPARE(defaultInt(u"_warn_asked"_s), 0);
}

void TestAlertsInOrder::fromAnotherThread() {
  bool onMain = false;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    onMain = QThread::currentThread() == qApp->thread();
    AlertPlayer::press(dialog, 1);
  });
  std::atomic<bool> reported = false;
  std::thread worker([&] {
    alert_feedback_nonfatal(u"It broke"_s, u"details"_s);
    reported = true;
  });
  // The worker waits for the answer, which this thread has to give.
  const bool answered = QTest::qWaitFor([&] { return reported.load(); });
  worker.join();
  QVERIFY(answered);
  QVERIFY(onMain);
  std::thread([] {
    alert_dontwarnagain_version(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
  }).join();
  QTRY_COMPARE(player.shown(), 2);
}

void TestAlertsInOrder::oneAfterTheOther() {
  int atOnce = 0;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    int visible = 0;
    for (const QWidget *each : QApplication::topLevelWidgets())
      visible += each->isVisible() && each->objectName() == u"alert"_s ? 1 : 0;
    atOnce = qMax(atOnce, visible);
    AlertPlayer::press(dialog, 0);
  });
  QList<int> answers;
  for (const QString &message : {u"one"_s, u"two"_s, u"three"_s})
    postAlert(apptitledAlert(message, {u"OK"_s}), [&](int code) { answers.append(code); });
  QCOMPARE(player.shown(), 0);
  QTRY_COMPARE(answers.size(), 3);
  QCOMPARE(player.shown(), 3);
  QCOMPARE(atOnce, 1);
}

void TestAlertsInOrder::fatalReportEndsTheProcess_data() {
  QTest::addColumn<QString>("button");
  QTest::newRow("send") << u"0"_s;
  QTest::newRow("quit") << u"1"_s;
  QTest::newRow("close") << u"9"_s;
}

void TestAlertsInOrder::fatalReportEndsTheProcess() {
  QFETCH(const QString, button);
  QProcess child;
  child.start(QCoreApplication::applicationFilePath(), {u"--fatal"_s, button});
  QVERIFY(child.waitForFinished());
  QCOMPARE(child.exitStatus(), QProcess::NormalExit);
  QCOMPARE(child.exitCode(), 1);
  QCOMPARE(child.readAllStandardOutput(), "Fatal Error|Send to support|Quit\n");
}

void TestAlertsInOrder::nonfatalReportGoesOn() {
  QStringList shown;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    shown << dialog.findChild<QLabel *>(u"alertTitle"_s)->text()
          << dialog.findChild<QAbstractButton *>(u"alertButton0"_s)->text()
          << dialog.findChild<QAbstractButton *>(u"alertButton1"_s)->text();
    AlertPlayer::press(dialog, 1);
  });
  alert_feedback_nonfatal(u"It broke"_s, u"details"_s);
  QCOMPARE(shown, QStringList({u"Error"_s, u"Send to support"_s, u"Continue"_s}));
  QVERIFY(m_program->opener().opened.isEmpty());
}

namespace {

// The child of the fatal reports: tells what it shows and presses the button.
int reportFatally(int argc, char **argv, int button) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const ScratchProgram program;
  WindowAlertPresenter presenter;
  setAlertPresenter(&presenter);
  const AlertPlayer player([button](const AlertDialog &dialog) {
    QStringList texts{dialog.findChild<QLabel *>(u"alertTitle"_s)->text()};
    for (const QString &name : {u"alertButton0"_s, u"alertButton1"_s})
      texts.append(dialog.findChild<QAbstractButton *>(name)->text());
    std::puts(texts.join(u'|').toUtf8().constData());
    std::fflush(stdout);
    AlertPlayer::press(dialog, button);
  });
  alert_feedback_fatal(u"It broke"_s, u"details"_s);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc == 3 && qstrcmp(argv[1], "--fatal") == 0)
    return reportFatally(argc, argv, QByteArray(argv[2]).toInt());
  return runOffscreen<TestAlertsInOrder>(argc, argv);
}
#include "tst_alertsinorder.moc"
