#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>

#include "BlockWrapper.h"
#include "Control.h"
#include "OffscreenMain.h"
#include "VKEditableBorderlessWindow.h"
#include "WarningGuard.h"
#include "Window.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

// A window that can be told not to close.
class Stubborn final : public VKEditableBorderlessWindow {
 public:
  bool refuses = false;
  int asked = 0;

 protected:
  void closeEvent(QCloseEvent *event) override {
    ++asked;
    event->setAccepted(!refuses);
  }
};

}  // namespace

// Blocks as actions of controls, and windows without a border.
class TestControlAction final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { failOnDesktopWarning(); }

  void senderIsTheControl();
  void everyKindOfControl();
  void oneActionAtATime();
  void emptyBlockTakesItAway();
  void livesAsLongAsTheControl();
  void replacesItself();
  void deletesTheControl();
  void borderlessCloses_data();
  void borderlessCloses();
  void borderlessTakesTheKeyboard();
};

void TestControlAction::senderIsTheControl() {
  QPushButton button(u"Press"_s);
  QVERIFY(!actionBlock(button));
  QWidget *sender = nullptr;
  setActionBlock(button, [&](QWidget &used) { sender = &used; });
  QTest::mouseClick(&button, Qt::LeftButton);
  QCOMPARE(sender, &button);
  sender = nullptr;
  actionBlock(button)(button);
  QCOMPARE(sender, &button);
}

void TestControlAction::everyKindOfControl() {
  QList<QWidget *> used;
  const ActionBlock block = [&](QWidget &sender) { used.append(&sender); };
  QComboBox menu;
  menu.addItems({u"one"_s, u"two"_s});
  QLineEdit text;
  QSlider slider(Qt::Horizontal);
  setActionBlock(menu, block);
  setActionBlock(text, block);
  setActionBlock(slider, block);
  QTest::keyClick(&menu, Qt::Key_Down);
  QTest::keyClicks(&text, u"a"_s);
  QCOMPARE(used, QList<QWidget *>({&menu}));
  QTest::keyClick(&text, Qt::Key_Return);
  QTest::keyClick(&slider, Qt::Key_Right);
  QCOMPARE(used, QList<QWidget *>({&menu, &text, &slider}));
}

void TestControlAction::oneActionAtATime() {
  QPushButton button;
  QStringList called;
  setActionBlock(button, [&](QWidget &) { called.append(u"first"_s); });
  setActionBlock(button, [&](QWidget &) { called.append(u"second"_s); });
  button.click();
  QCOMPARE(called, QStringList{u"second"_s});
  QCOMPARE(button.findChildren<BlockWrapper *>().size(), 1);
}

void TestControlAction::emptyBlockTakesItAway() {
  QPushButton button;
  int called = 0;
  setActionBlock(button, [&](QWidget &) { ++called; });
  setActionBlock(button, {});
  button.click();
  QCOMPARE(called, 0);
  QVERIFY(!actionBlock(button));
}

void TestControlAction::livesAsLongAsTheControl() {
  const auto held = std::make_shared<int>(1);
  {
    QPushButton button;
    setActionBlock(button, [held](QWidget &) {});
    QCOMPARE(held.use_count(), 2);
  }
  QCOMPARE(held.use_count(), 1);
}

void TestControlAction::replacesItself() {
  QPushButton button;
  QStringList called;
  const auto held = std::make_shared<QString>(u"first"_s);
  setActionBlock(button, [&called, &button, held](QWidget &) {
    setActionBlock(button, [&called](QWidget &) { called.append(u"second"_s); });
    called.append(*held);
  });
  button.click();
  button.click();
  QCOMPARE(called, QStringList({u"first"_s, u"second"_s}));
}

void TestControlAction::deletesTheControl() {
  const QPointer<QPushButton> button(new QPushButton);
  setActionBlock(*button, [](QWidget &sender) { delete &sender; });
  button->click();
  QVERIFY(!button);
}

void TestControlAction::borderlessCloses_data() {
  QTest::addColumn<bool>("refuses");
  QTest::addColumn<bool>("byKey");
  QTest::newRow("closes") << false << false;
  QTest::newRow("refuses") << true << false;
  QTest::newRow("closes by the key") << false << true;
  QTest::newRow("refuses the key") << true << true;
}

void TestControlAction::borderlessCloses() {
  QFETCH(const bool, refuses);
  QFETCH(const bool, byKey);
  Stubborn window;
  window.refuses = refuses;
  window.show();
  QVERIFY(QTest::qWaitForWindowActive(&window));
  if (byKey)
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
  else
    performBorderlessClose(window);
  QCOMPARE(window.asked, 1);
  QCOMPARE(window.isVisible(), refuses);
}

void TestControlAction::borderlessTakesTheKeyboard() {
  VKEditableBorderlessWindow window;
  auto *column = new QVBoxLayout(&window);
  auto *field = new QLineEdit(&window);
  column->addWidget(field);
  window.show();
  QVERIFY(QTest::qWaitForWindowActive(&window));
  QVERIFY(window.windowFlags() & Qt::FramelessWindowHint);
  QVERIFY(window.isWindow());
  QTest::mouseClick(field, Qt::LeftButton);
  QCOMPARE(QApplication::focusWidget(), field);
  for (const char letter : {'o', 'k'})
    QTest::keyClick(window.windowHandle(), letter);
  QCOMPARE(field->text(), u"ok"_s);
}

int main(int argc, char **argv) {
  return runOffscreen<TestControlAction>(argc, argv);
}
#include "tst_controlaction.moc"
