#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrlQuery>

#include "Defaults.h"
#include "OffscreenMain.h"
#include "RatingBench.h"
#include "WarningGuard.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

const QString dontAskKey = u"ostrak_dontaskagain"_s;

}  // namespace

// What a person does in the feedback window.
class TestRatingWindow final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    failOnDesktopWarning();
    m_b = std::make_unique<RatingBench>();
  }
  void cleanup() { m_b.reset(); }

  void beginsWithTheQuestion();
  void leadsToTheOtherPanes();
  void fonts();
  void closingButtons_data();
  void closingButtons();
  void otherWaysToClose_data();
  void otherWaysToClose();
  void ratingButtons_data();
  void ratingButtons();
  void focusGoesWhereItIsOfUse();
  void sendsFeedback();
  void turnsOff_data();
  void turnsOff();
  void withoutCloseBlock();
  void ownerLetsGoWhenItCloses();
  void goesWithoutACloseBlock();
  void missingForm();

 private:
  [[nodiscard]] QList<QUrl> &opened() { return m_b->program.opener().opened; }
  std::unique_ptr<RatingBench> m_b;
};

void TestRatingWindow::beginsWithTheQuestion() {
  QVERIFY(m_b->show());
  QCOMPARE(m_b->pane(), "initialView");
  m_b->controller->setIntroText(u"You have used <b>it</b> & more"_s);
  QCOMPARE(m_b->find<QLabel>("introTextField")->text(), u"You have used <b>it</b> & more"_s);
  QCOMPARE(m_b->find<QLabel>("introTextField")->textFormat(), Qt::PlainText);
  QVERIFY(m_b->shows("introTextField"));
  QCOMPARE(m_b->closes, 0);
}

void TestRatingWindow::leadsToTheOtherPanes() {
  QVERIFY(m_b->show());
  m_b->click("happyButton");
  QCOMPARE(m_b->pane(), "happyView");
  m_b->controller->problemsClicked();
  QCOMPARE(m_b->pane(), "angryView");
  m_b->controller->happyClicked();
  QCOMPARE(m_b->pane(), "happyView");
  QVERIFY(m_b->show());
  m_b->click("problemButton");
  QCOMPARE(m_b->pane(), "angryView");
  QVERIFY(m_b->isOpen());
}

void TestRatingWindow::fonts() {
  QVERIFY(m_b->show());
  const QString family = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
  const auto check = [&](const char *name, double points) {
    const QFont font = m_b->find(name)->font();
    QVERIFY2(font.pointSizeF() == points, name);
    QCOMPARE(font.weight(), QFont::Light);
    QCOMPARE(font.family(), family);
  };
  for (const char *button : {"ratemacupdateButton", "rateappstoreButton", "notnowButton",
                             "happyButton", "notsureButton", "problemButton", "feedbackButton"})
    check(button, 18);
  for (const char *text : {"awesomeText", "introText", "sorryText"})
    check(text, 14);
}

void TestRatingWindow::closingButtons_data() {
  QTest::addColumn<QByteArray>("lead");
  QTest::addColumn<QByteArray>("button");
  QTest::newRow("unsure") << ""_ba
                          << "notsureButton"_ba;
  QTest::newRow("happy, not now") << "happyButton"_ba
                                  << "notnowButton"_ba;
  QTest::newRow("angry, close") << "problemButton"_ba
                                << "closeButton"_ba;
}

void TestRatingWindow::closingButtons() {
  QFETCH(const QByteArray, lead);
  QFETCH(const QByteArray, button);
  QVERIFY(m_b->show());
  if (!lead.isEmpty()) m_b->click(lead.constData());
  QVERIFY(m_b->isOpen());
  m_b->click(button.constData());
  QVERIFY(!m_b->isOpen());
  QCOMPARE(m_b->closes, 1);
  QVERIFY(opened().isEmpty());
  QVERIFY(m_b->program.presenter().presented.isEmpty());
  QVERIFY(!defaultObject(dontAskKey).isValid());
}

void TestRatingWindow::otherWaysToClose_data() {
  QTest::addColumn<QString>("way");
  QTest::newRow("Escape") << u"escape"_s;
  QTest::newRow("the close key") << u"key"_s;
  QTest::newRow("the window's own button") << u"window"_s;
}

void TestRatingWindow::otherWaysToClose() {
  QFETCH(const QString, way);
  QVERIFY(m_b->show());
  if (way == u"escape"_s) QTest::keyClick(m_b->controller->window(), Qt::Key_Escape);
  if (way == u"key"_s) QTest::keyClick(m_b->controller->window(), Qt::Key_W, Qt::ControlModifier);
  if (way == u"window"_s) m_b->controller->window()->close();
  QVERIFY(!m_b->isOpen());
  QCOMPARE(m_b->closes, 1);
}

void TestRatingWindow::ratingButtons_data() {
  QTest::addColumn<QString>("key");
  QTest::addColumn<QByteArray>("button");
  QTest::addColumn<QByteArray>("other");
  QTest::addColumn<QString>("page");
  const QByteArray web = "ratemacupdateButton"_ba;
  const QByteArray store = "rateappstoreButton"_ba;
  const QString none;
  QTest::newRow("web") << u"MacupdateProductPage"_s << web << store
                       << u"https://decant.example/rate"_s;
  QTest::newRow("store") << u"StoreProductPage"_s << store << web
                         << u"macappstore://decant.example/rate"_s;
  QTest::newRow("web without its key") << none << web << store << none;
  QTest::newRow("store without its key") << none << store << web << none;
}

void TestRatingWindow::ratingButtons() {
  QFETCH(const QString, key);
  QFETCH(const QByteArray, button);
  QFETCH(const QByteArray, other);
  QFETCH(const QString, page);
  if (!key.isEmpty()) m_b->program.setInfo(key, u"https://decant.example/rate"_s);
  QVERIFY(m_b->show());
  m_b->click("happyButton");
  QCOMPARE(m_b->find(button.constData())->isEnabled(), !key.isEmpty());
  QVERIFY(!m_b->find(other.constData())->isEnabled());
  m_b->click(other.constData());
  QVERIFY(m_b->isOpen());
  m_b->click(button.constData());
  QCOMPARE(m_b->isOpen(), key.isEmpty());
  QCOMPARE(m_b->closes, key.isEmpty() ? 0 : 1);
  QCOMPARE(opened(), key.isEmpty() ? QList<QUrl>() : QList<QUrl>{QUrl(page)});
}

void TestRatingWindow::focusGoesWhereItIsOfUse() {
  m_b->program.setInfo(u"StoreProductPage"_s, u"https://decant.example/rate"_s);
  QVERIFY(m_b->show());
  const auto focused = [] { return QApplication::focusWidget()->objectName(); };
  QCOMPARE(focused(), u"happyButton"_s);
  // Return presses the button that has the keyboard.
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QCOMPARE(m_b->pane(), "happyView");
  QCOMPARE(focused(), u"rateappstoreButton"_s);
  m_b->program.setInfo(u"StoreProductPage"_s, QJsonValue());
  QVERIFY(m_b->show());
  m_b->click("happyButton");
  QCOMPARE(focused(), u"notnowButton"_s);
  QVERIFY(m_b->show());
  m_b->click("problemButton");
  QCOMPARE(focused(), u"feedbackTextField"_s);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QCOMPARE(focused(), u"feedbackButton"_s);
}

void TestRatingWindow::sendsFeedback() {
  QVERIFY(m_b->show());
  m_b->click("problemButton");
  QTest::keyClicks(QApplication::focusWidget(), u"It broke & 100%"_s);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QTest::keyClicks(QApplication::focusWidget(), u"Twice"_s);
  m_b->click("feedbackButton");
  QTRY_COMPARE(opened().size(), 1);
  QCOMPARE(opened().first().path(), u"support@decant.example"_s);
  const QString body = QUrlQuery(opened().first()).queryItemValue(u"body"_s, QUrl::FullyDecoded);
  QVERIFY2(body.startsWith(u"It broke & 100%\nTwice\n\n\n\nP.S: Hardware: "_s), qPrintable(body));
  QVERIFY(!m_b->isOpen());
  QCOMPARE(m_b->closes, 1);
}

void TestRatingWindow::turnsOff_data() {
  QTest::addColumn<int>("answer");
  QTest::addColumn<bool>("off");
  QTest::newRow("cancelled") << firstButton << false;
  QTest::newRow("turned off") << secondButton << true;
}

void TestRatingWindow::turnsOff() {
  QFETCH(const int, answer);
  QFETCH(const bool, off);
  QVERIFY(m_b->show());
  bool closedBefore = false;
  m_b->program.presenter().answer(answer);
  m_b->program.presenter().setWhileShown([&](const Alert &) { closedBefore = m_b->closes == 1; });
  m_b->click("dontshowButton");
  QTRY_COMPARE(m_b->program.presenter().presented.size(), 1);
  QVERIFY(closedBefore);
  QVERIFY(!m_b->isOpen());
  Alert expected;
  expected.title = u"Confirmation"_s;
  expected.message =
      u"Decant asks for your feedback only rarely and at maximum only once per app-version. Are "
      u"you sure you want to turn this off completely?"_s;
  expected.buttons = QStringList{u"Cancel"_s, u"Turn off feedback dialoge"_s};
  QCOMPARE(m_b->program.presenter().presented.first(), expected);
  if (off)
    QTRY_COMPARE(defaultObject(dontAskKey).toInt(), 1);
  else
    QVERIFY(!defaultObject(dontAskKey).isValid());
}

void TestRatingWindow::withoutCloseBlock() {
  QVERIFY(m_b->show());
  m_b->controller->setCloseBlock({});
  m_b->click("notsureButton");
  QVERIFY(!m_b->isOpen());
  QCOMPARE(m_b->closes, 0);
}

void TestRatingWindow::ownerLetsGoWhenItCloses() {
  QVERIFY(m_b->show());
  const QPointer<QWidget> window(m_b->controller->window());
  const QPointer<QObject> gone(m_b->controller.get());
  m_b->controller->setCloseBlock([this] { m_b->controller.release()->deleteLater(); });
  m_b->click("dontshowButton");
  QTRY_VERIFY(!gone);
  QVERIFY(!window);
  QTRY_COMPARE(m_b->program.presenter().presented.size(), 1);
}

void TestRatingWindow::goesWithoutACloseBlock() {
  QVERIFY(m_b->show());
  m_b->controller.reset();
  QCOMPARE(m_b->closes, 0);
}

void TestRatingWindow::missingForm() {
  QVERIFY(QFile::remove(m_b->program.library().resDir() + u"/ui"_s));
  QVERIFY(!m_b->show());
  QCOMPARE(m_b->controller->window(), nullptr);
  m_b->controller->setIntroText(u"text"_s);
  m_b->controller->happyClicked();
  m_b->controller->problemsClicked();
  m_b->controller->closeClicked();
  const QStringList logged = m_b->program.logged();
  QCOMPARE(logged.size(), 1);
  QVERIFY(logged.first().contains(u"VKRatingWindow.ui"_s));
}

int main(int argc, char **argv) {
  return runOffscreen<TestRatingWindow>(argc, argv);
}
#include "tst_ratingwindow.moc"
