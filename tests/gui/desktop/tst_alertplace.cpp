#include <QMainWindow>
#include <QWindow>

#include "AlertPlayer.h"
#include "AlertTest.h"
#include "OffscreenMain.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Where an alert comes up: seen, whatever the windows below are doing.
class TestAlertPlace final : public AlertTest {
  Q_OBJECT

 private Q_SLOTS:
  void minimisedWindowComesBack();
  void raisedOnceItIsShown();
  void escapePresses_data();
  void escapePresses();
};

void TestAlertPlace::minimisedWindowComesBack() {
  QMainWindow window;
  window.showMaximized();
  window.showMinimized();
  QVERIFY(window.isMinimized());
  bool minimised = true;
  bool maximised = false;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    minimised = window.isMinimized();
    maximised = window.isMaximized();
    AlertPlayer::press(dialog, 0);
  });
  alert(u"Title"_s, u"Message"_s);
  QVERIFY(!minimised);
  QVERIFY(maximised);
}

void TestAlertPlace::raisedOnceItIsShown() {
  // Sees how a window was when it was raised.
  class Watch final : public QObject {
   public:
    bool eventFilter(QObject *object, QEvent *event) override {
      const auto *dialog = qobject_cast<AlertDialog *>(object);
      if (dialog && event->type() == QEvent::ZOrderChange)
        onScreen = dialog->windowHandle() && dialog->windowHandle()->isVisible();
      return false;
    }
    bool onScreen = false;
  };
  Watch watch;
  qApp->installEventFilter(&watch);
  const AlertPlayer player([&](const AlertDialog &dialog) {
    (void)QTest::qWaitFor([&] { return watch.onScreen; });
    AlertPlayer::press(dialog, 0);
  });
  alert(u"Title"_s, u"Message"_s);
  QCOMPARE(player.shown(), 1);
  QVERIFY(watch.onScreen);
}

void TestAlertPlace::escapePresses_data() {
  QTest::addColumn<QStringList>("buttons");
  QTest::addColumn<int>("code");
  QTest::newRow("the only one") << QStringList{u"OK"_s} << firstButton;
  QTest::newRow("the last one") << QStringList{u"Yes"_s, u"No"_s} << secondButton;
  QTest::newRow("what cancels, at the end") << QStringList{u"Quit"_s, u"Cancel"_s} << secondButton;
  QTest::newRow("what cancels, at the start") << QStringList{u"Cancel"_s, u"Off"_s} << firstButton;
}

void TestAlertPlace::escapePresses() {
  QFETCH(const QStringList, buttons);
  QFETCH(const int, code);
  Alert question;
  question.title = u"Title"_s;
  question.buttons = buttons;
  const AlertPlayer player([](AlertDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  QCOMPARE(presentAlert(question), code);
}

int main(int argc, char **argv) {
  return runOffscreen<TestAlertPlace>(argc, argv);
}
#include "tst_alertplace.moc"
