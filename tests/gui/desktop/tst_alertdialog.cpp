#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <thread>

#include "AlertPlayer.h"
#include "Defaults.h"
#include "OffscreenMain.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Alerts as dialogs: texts, buttons, what closes them, and where they run.
class TestAlertDialog final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support).*"_s));
    m_program = std::make_unique<ScratchProgram>();
    setAlertPresenter(&m_presenter);
  }
  void cleanup() { m_program.reset(); }

  void buttons_data();
  void buttons();
  void keysAndClosing_data();
  void keysAndClosing();
  void textsAreShownAsTheyAre();
  void titleOfTheProgram();
  void picture();
  void namesForAssistiveTools();
  void silencedForTheVersion();
  void silencedForEver();
  void comesAgainWithoutTheTick();
  void fromAnotherThread();
  void oneAfterTheOther();
  void fatalReportEndsTheProcess_data();
  void fatalReportEndsTheProcess();
  void nonfatalReportGoesOn();

 private:
  std::unique_ptr<ScratchProgram> m_program;
  WindowAlertPresenter m_presenter;
};

void TestAlertDialog::buttons_data() {
  QTest::addColumn<QStringList>("given");  // default, alternate, other; null leaves one out
  QTest::addColumn<QStringList>("shown");
  QTest::newRow("none") << QStringList{{}, {}, {}} << QStringList{u"OK"_s};
  QTest::newRow("default") << QStringList{u"Go"_s, {}, {}} << QStringList{u"Go"_s};
  QTest::newRow("two") << QStringList{u"Go"_s, u"Stay"_s, {}} << QStringList{u"Go"_s, u"Stay"_s};
  QTest::newRow("default and other")
      << QStringList{u"Go"_s, {}, u"Rest"_s} << QStringList{u"Go"_s, u"Rest"_s};
  QTest::newRow("three") << QStringList{u"Go"_s, u"Stay"_s, u"Rest"_s}
                         << QStringList{u"Go"_s, u"Stay"_s, u"Rest"_s};
}

void TestAlertDialog::buttons() {
  QFETCH(const QStringList, given);
  QFETCH(const QStringList, shown);
  for (int pressed = 0; pressed < shown.size(); ++pressed) {
    QStringList found;
    const AlertPlayer player([&](const AlertDialog &dialog) {
      for (const QPushButton *button : dialog.findChildren<QPushButton *>())
        found.append(button->text());
      AlertPlayer::press(dialog, pressed);
    });
    QCOMPARE(alert(u"Title"_s, u"Message"_s, given.at(0), given.at(1), given.at(2)),
             firstButton + pressed);
    found.sort();
    QStringList wanted = shown;
    wanted.sort();
    QCOMPARE(found, wanted);
    QCOMPARE(player.shown(), 1);
  }
}

void TestAlertDialog::keysAndClosing_data() {
  QTest::addColumn<int>("key");  // 0: the window's close button
  QTest::addColumn<int>("code");
  QTest::newRow("Return") << static_cast<int>(Qt::Key_Return) << firstButton;
  QTest::newRow("Enter") << static_cast<int>(Qt::Key_Enter) << firstButton;
  QTest::newRow("Escape") << static_cast<int>(Qt::Key_Escape) << thirdButton;
  QTest::newRow("close button") << 0 << thirdButton;
}

void TestAlertDialog::keysAndClosing() {
  QFETCH(const int, key);
  const AlertPlayer player([key](AlertDialog &dialog) {
    if (key == 0)
      dialog.close();
    else
      QTest::keyClick(&dialog, static_cast<Qt::Key>(key));
  });
  const int code = alert(u"Title"_s, u"Message"_s, u"Go"_s, u"Stay"_s, u"Rest"_s);
  QTEST(code, "code");
}

void TestAlertDialog::textsAreShownAsTheyAre() {
  QStringList texts;
  QList<Qt::TextFormat> formats;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    for (const QString &name : {u"alertTitle"_s, u"alertMessage"_s}) {
      const auto *label = dialog.findChild<QLabel *>(name);
      texts.append(label ? label->text() : QString());
      formats.append(label ? label->textFormat() : Qt::AutoText);
    }
    AlertPlayer::press(dialog, 0);
  });
  alert(u"<b>Film & Co</b>"_s, u"<i>line</i>\nline"_s);
  QCOMPARE(texts, QStringList({u"<b>Film & Co</b>"_s, u"<i>line</i>\nline"_s}));
  QCOMPARE(formats, QList({Qt::PlainText, Qt::PlainText}));
}

void TestAlertDialog::titleOfTheProgram() {
  QString title;
  QString windowTitle;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    title = dialog.findChild<QLabel *>(u"alertTitle"_s)->text();
    windowTitle = dialog.windowTitle();
    AlertPlayer::press(dialog, 1);
  });
  QCOMPARE(alert_apptitled(u"Message"_s, u"Yes"_s, u"No"_s), secondButton);
  QCOMPARE(title, u"Decant"_s);
  QCOMPARE(windowTitle, u"Decant"_s);
}

void TestAlertDialog::picture() {
  QImage own(32, 32, QImage::Format_ARGB32);
  own.fill(Qt::green);
  QVERIFY(own.save(m_program->library().resDir() + u"/ok.png"_s));
  QList<QImage> shown;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    for (const QLabel *label : dialog.findChildren<QLabel *>())
      if (!label->pixmap().isNull()) shown.append(label->pixmap().toImage());
    AlertPlayer::press(dialog, 0);
  });
  Alert with;
  with.title = u"Title"_s;
  with.image = u"ok.png"_s;
  presentAlert(with);
  with.image = QString();
  presentAlert(with);
  QCOMPARE(shown.size(), 2);
  QCOMPARE(shown.at(0).pixelColor(16, 16), QColor(Qt::green));
  QVERIFY(shown.at(1).pixelColor(16, 16) != QColor(Qt::green));
}

void TestAlertDialog::namesForAssistiveTools() {
  QStringList names;
  const AlertPlayer player([&](AlertDialog &dialog) {
    names << dialog.accessibleName() << dialog.accessibleDescription();
    AlertPlayer::press(dialog, 0);
  });
  bool state = false;
  alert(u"Title"_s, u"Message"_s);
  alert_checkbox(u"Question"_s, {}, u"Again"_s, state);
  QCOMPARE(names, QStringList({u"Title"_s, u"Message"_s, u"Question"_s, u""_s}));
}

void TestAlertDialog::silencedForTheVersion() {
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

void TestAlertDialog::silencedForEver() {
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

void TestAlertDialog::comesAgainWithoutTheTick() {
  const AlertPlayer player([](const AlertDialog &dialog) { AlertPlayer::press(dialog, 0); });
  for (int i = 0; i < 2; ++i) {
    alert_dontwarnagain_ever(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
    alert_dontwarnagain_version(u"warn"_s, u"Title"_s, u"Message"_s, u"OK"_s, u"Not again"_s);
  }
  QCOMPARE(player.shown(), 4);
  QCOMPARE(defaultInt(u"_warn_asked"_s), 0);
}

void TestAlertDialog::fromAnotherThread() {
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

void TestAlertDialog::oneAfterTheOther() {
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

void TestAlertDialog::fatalReportEndsTheProcess_data() {
  QTest::addColumn<QString>("button");
  QTest::newRow("send") << u"0"_s;
  QTest::newRow("quit") << u"1"_s;
  QTest::newRow("close") << u"9"_s;
}

void TestAlertDialog::fatalReportEndsTheProcess() {
  QFETCH(const QString, button);
  QProcess child;
  child.start(QCoreApplication::applicationFilePath(), {u"--fatal"_s, button});
  QVERIFY(child.waitForFinished());
  QCOMPARE(child.exitStatus(), QProcess::NormalExit);
  QCOMPARE(child.exitCode(), 1);
  QCOMPARE(child.readAllStandardOutput(), "Fatal Error|Send to support|Quit\n");
}

void TestAlertDialog::nonfatalReportGoesOn() {
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
  return runOffscreen<TestAlertDialog>(argc, argv);
}
#include "tst_alertdialog.moc"
