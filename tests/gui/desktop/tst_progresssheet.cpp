#include <QFontDatabase>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include "AlertPlayer.h"
#include "Dispatch.h"
#include "ElidedLabel.h"
#include "OffscreenMain.h"
#include "ProgressSheet.h"
#include "ScratchProgram.h"
#include "WarningGuard.h"
#include "Window.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

// Remembers what happens to sheets, in order.
class SheetWatch final : public QObject {
 public:
  SheetWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject *object, QEvent *event) override {
    if (!qobject_cast<ProgressSheet *>(object)) return false;
    if (event->type() == QEvent::Show) seen.append(u"shown"_s);
    if (event->type() == QEvent::Hide) seen.append(u"hidden"_s);
    return false;
  }
  QStringList seen;
};

}  // namespace

class TestProgressSheet final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();

  void showsItsParts();
  void comesLaterAndReturnsAtOnce();
  void oneAfterTheOtherFromAnyThread();
  void endRightAfterTheBegin();
  void newOneAfterTheEnd();
  void secondBeginChangesTheTitle();
  void withoutASheetNothingHappens();
  void eachWindowHasItsOwn();
  void cannotBeClosedByAPerson();
  void holdsItsWindowOnly();
  void goesWithItsWindow();
  void windowGoneBeforeItsTurn();
  void alertAboveOutlivesIt();

 private:
  [[nodiscard]] ProgressSheet *sheet() const { return ProgressSheet::of(*m_window); }
  [[nodiscard]] bool shows() const { return sheet() && sheet()->isVisible(); }
  template <typename Part>
  [[nodiscard]] Part *part(const QString &name) const {
    return m_window->findChild<Part *>(name);
  }
  [[nodiscard]] QString message() const {
    return part<ElidedLabel>(u"TKProgressDetailInfo"_s)->fullText();
  }
  static bool waitForQueue() {
    bool reached = false;
    dispatch_async_main([&] { reached = true; });
    return QTest::qWaitFor([&] { return reached; });
  }

  std::unique_ptr<ScratchProgram> m_program;
  std::unique_ptr<QWidget> m_window;
  QPushButton *m_button = nullptr;
  int m_clicks = 0;
};

void TestProgressSheet::init() {
  failOnDesktopWarning();
  m_program = std::make_unique<ScratchProgram>();
  m_window = std::make_unique<QWidget>();
  m_clicks = 0;
  auto *column = new QVBoxLayout(m_window.get());
  m_button = new QPushButton(u"Press"_s);
  column->addWidget(m_button);
  connect(m_button, &QPushButton::clicked, this, [this] { ++m_clicks; });
  m_window->show();
  QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestProgressSheet::cleanup() {
  m_window.reset();
  m_program.reset();
}

void TestProgressSheet::showsItsParts() {
  beginProgress(*m_window, u"Copying <b>all</b> & more"_s);
  QTRY_VERIFY(shows());
  const auto *title = part<QLabel>(u"progressTitle"_s);
  QCOMPARE(title->text(), u"Copying <b>all</b> & more"_s);
  QCOMPARE(title->textFormat(), Qt::PlainText);
  QVERIFY(title->font().bold());
  QCOMPARE(title->font().pointSize(), 13);
  QCOMPARE(title->font().family(), QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
  QCOMPARE(message(), u""_s);
  const auto *note = part<QLabel>(u"progressNote"_s);
  QCOMPARE(note->text(), u"Please wait until the operation finishes"_s);
  const auto *indicator = part<QProgressBar>(u"TKProgressIndicator"_s);
  QCOMPARE(indicator->minimum(), indicator->maximum());
  QVERIFY(!indicator->accessibleName().isEmpty());
  QCOMPARE(sheet()->windowModality(), Qt::WindowModal);
  QCOMPARE(sheet()->objectName(), u"TKProgressSheet"_s);
  for (const QLabel *label : sheet()->findChildren<QLabel *>()) {
    QVERIFY(label->isVisible());
    QCOMPARE(label->focusPolicy(), Qt::NoFocus);
    QVERIFY(!(label->textInteractionFlags() &
              (Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard | Qt::TextEditable)));
  }
  QVERIFY(title->geometry().bottom() < part<QLabel>(u"TKProgressDetailInfo"_s)->y());
  QVERIFY(title->y() < indicator->y());
  setProgressMessage(*m_window, u"first.mkv"_s);
  QTRY_COMPARE(message(), u"first.mkv"_s);
  endProgress(*m_window);
  QTRY_VERIFY(!sheet());
  QTRY_VERIFY(!part<QProgressBar>(u"TKProgressIndicator"_s));
}

void TestProgressSheet::comesLaterAndReturnsAtOnce() {
  beginProgress(*m_window, u"Title"_s);
  QVERIFY(!sheet());
  QTRY_VERIFY(shows());
  endProgress(*m_window);
  QVERIFY(shows());
  QTRY_VERIFY(!sheet());
}

void TestProgressSheet::oneAfterTheOtherFromAnyThread() {
  QStringList messages;
  bool ended = false;
  dispatch_async_back([&] {
    beginProgress(*m_window, u"Title"_s);
    for (const QString &text : {u"one"_s, u"two"_s, u"three"_s}) {
      setProgressMessage(*m_window, text);
      dispatch_async_main([&] { messages.append(message()); });
    }
    endProgress(*m_window);
    dispatch_async_main([&] { ended = !sheet(); });
  });
  QTRY_VERIFY(ended);
  QCOMPARE(messages, QStringList({u"one"_s, u"two"_s, u"three"_s}));
}

void TestProgressSheet::endRightAfterTheBegin() {
  const SheetWatch watch;
  dispatch_async_back([this] {
    beginProgress(*m_window, u"Title"_s);
    endProgress(*m_window);
  });
  QTRY_COMPARE(watch.seen, QStringList({u"shown"_s, u"hidden"_s}));
  QVERIFY(!sheet());
  QTRY_VERIFY(m_window->findChildren<ProgressSheet *>().isEmpty());
}

void TestProgressSheet::newOneAfterTheEnd() {
  beginProgress(*m_window, u"First"_s);
  setProgressMessage(*m_window, u"of the first"_s);
  endProgress(*m_window);
  beginProgress(*m_window, u"Second"_s);
  QTRY_VERIFY(shows());
  QCOMPARE(sheet()->accessibleName(), u"Second"_s);
  QCOMPARE(sheet()->findChild<ElidedLabel *>()->fullText(), u""_s);
}

void TestProgressSheet::secondBeginChangesTheTitle() {
  beginProgress(*m_window, u"First"_s);
  setProgressMessage(*m_window, u"of the first"_s);
  beginProgress(*m_window, u"Second"_s);
  QVERIFY(waitForQueue());
  QCOMPARE(m_window->findChildren<ProgressSheet *>().size(), 1);
  QCOMPARE(part<QLabel>(u"progressTitle"_s)->text(), u"Second"_s);
  QCOMPARE(message(), u""_s);
  endProgress(*m_window);
  QTRY_VERIFY(!sheet());
}

void TestProgressSheet::withoutASheetNothingHappens() {
  setProgressMessage(*m_window, u"too early"_s);
  endProgress(*m_window);
  QVERIFY(waitForQueue());
  QVERIFY(!sheet());
  QVERIFY(m_window->isVisible());
}

void TestProgressSheet::eachWindowHasItsOwn() {
  QWidget other;
  other.show();
  beginProgress(*m_window, u"Mine"_s);
  beginProgress(other, u"Other"_s);
  QTRY_VERIFY(shows() && ProgressSheet::of(other));
  endProgress(*m_window);
  QTRY_VERIFY(!sheet());
  QVERIFY(ProgressSheet::of(other)->isVisible());
  QCOMPARE(ProgressSheet::of(other)->accessibleName(), u"Other"_s);
}

void TestProgressSheet::cannotBeClosedByAPerson() {
  beginProgress(*m_window, u"Title"_s);
  QTRY_VERIFY(shows());
  QTest::keyClick(sheet(), Qt::Key_Escape);
  QVERIFY(shows());
  QVERIFY(!sheet()->close());
  QVERIFY(shows());
}

void TestProgressSheet::holdsItsWindowOnly() {
  QWidget other;
  QVBoxLayout column(&other);
  QPushButton free(u"Free"_s);
  column.addWidget(&free);
  int freeClicks = 0;
  connect(&free, &QPushButton::clicked, this, [&] { ++freeClicks; });
  other.show();
  QVERIFY(QTest::qWaitForWindowExposed(&other));
  const auto click = [](QWidget &window, const QWidget &button) {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
  };
  beginProgress(*m_window, u"Title"_s);
  QTRY_VERIFY(shows());
  click(*m_window, *m_button);
  QCOMPARE(m_clicks, 0);
  click(other, free);
  QCOMPARE(freeClicks, 1);
  endProgress(*m_window);
  QTRY_VERIFY(!sheet());
  click(*m_window, *m_button);
  QCOMPARE(m_clicks, 1);
}

void TestProgressSheet::goesWithItsWindow() {
  beginProgress(*m_window, u"Title"_s);
  QTRY_VERIFY(shows());
  const QPointer<ProgressSheet> gone(sheet());
  setProgressMessage(*m_window, u"never seen"_s);
  endProgress(*m_window);
  m_window.reset();
  QVERIFY(!gone);
  QVERIFY(waitForQueue());
  QCOMPARE(QApplication::activeModalWidget(), nullptr);
}

void TestProgressSheet::windowGoneBeforeItsTurn() {
  const SheetWatch watch;
  beginProgress(*m_window, u"Title"_s);
  m_window.reset();
  QVERIFY(waitForQueue());
  QCOMPARE(watch.seen, QStringList());
}

void TestProgressSheet::alertAboveOutlivesIt() {
  WindowAlertPresenter presenter;
  setAlertPresenter(&presenter);
  beginProgress(*m_window, u"Title"_s);
  QTRY_VERIFY(shows());
  bool stayed = false;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    const QPointer<const AlertDialog> alive(&dialog);
    endProgress(*m_window);
    (void)QTest::qWaitFor([this] { return m_window->findChildren<ProgressSheet *>().isEmpty(); });
    stayed = alive && alive->isVisible();
    if (alive) AlertPlayer::press(dialog, 1);
  });
  QCOMPARE(alert(u"Title"_s, u"Message"_s, u"One"_s, u"Two"_s), secondButton);
  QVERIFY(stayed);
}

int main(int argc, char **argv) {
  return runOffscreen<TestProgressSheet>(argc, argv);
}
#include "tst_progresssheet.moc"
