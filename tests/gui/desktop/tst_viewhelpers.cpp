#include <QComboBox>
#include <QDialog>
#include <QFontMetricsF>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>

#include "OffscreenMain.h"
#include "ScratchProgram.h"
#include "TabView.h"
#include "TextField.h"
#include "ViewSearch.h"
#include "WarningGuard.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestViewHelpers final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { failOnDesktopWarning(); }

  void classOfTheViewItself();
  void classBelow();
  void classIsNotThere();
  void depthComesFirst();
  void otherWindowsAreNoSubviews();
  void allSubviewsInOrder();
  void tagIsFound();
  void tagOfTheViewItselfDoesNotCount();
  void missingTagEndsTheProgram();
  void fontThatFitsStays_data();
  void fontThatFitsStays();
  void fontShrinksToTheLargestThatFits_data();
  void fontShrinksToTheLargestThatFits();
  void fontOfFractionIsCut();
  void fontKeepsItsLook();
  void fontEndsAtOnePoint();
  void fontInPixels();
  void selectedTab();
};

void TestViewHelpers::classOfTheViewItself() {
  QGroupBox outer;
  auto *inner = new QGroupBox(&outer);
  QVERIFY(inner);
  QCOMPARE(viewWithClass<QGroupBox>(outer), &outer);
  // A subclass counts.
  QPushButton button;
  QCOMPARE(viewWithClass<QAbstractButton>(button), &button);
}

void TestViewHelpers::classBelow() {
  QWidget window;
  auto *middle = new QWidget(&window);
  auto *tabs = new QTabWidget(middle);
  QCOMPARE(viewWithClass<QTabWidget>(window), tabs);
}

void TestViewHelpers::classIsNotThere() {
  QWidget window;
  new QLabel(&window);
  new QObject(&window);
  QCOMPARE(viewWithClass<QLineEdit>(window), nullptr);
}

void TestViewHelpers::depthComesFirst() {
  QWidget window;
  auto *first = new QWidget(&window);
  auto *shallow = new QLabel(&window);
  auto *deep = new QLabel(new QWidget(first));
  QCOMPARE(viewWithClass<QLabel>(window), deep);
  delete first;
  QCOMPARE(viewWithClass<QLabel>(window), shallow);
}

void TestViewHelpers::otherWindowsAreNoSubviews() {
  QWidget window;
  auto *dialog = new QDialog(&window);
  auto *inDialog = new QLabel(dialog);
  inDialog->setProperty("tag", 3);
  QCOMPARE(viewWithClass<QLabel>(window), nullptr);
  QCOMPARE(viewWithClass<QLabel>(*dialog), inDialog);
  QVERIFY(allSubviews(window).isEmpty());
  auto *own = new QLabel(&window);
  own->setProperty("tag", 3);
  QCOMPARE(&assertedViewWithTag(window, 3), own);
}

void TestViewHelpers::allSubviewsInOrder() {
  QWidget window;
  auto *a = new QWidget(&window);
  auto *b = new QLabel(&window);
  auto *inA = new QLabel(a);
  new QObject(a);
  QCOMPARE(allSubviews(window), QList<QWidget *>({a, inA, b}));
  QVERIFY(allSubviews(*b).isEmpty());
}

void TestViewHelpers::tagIsFound() {
  QWidget window;
  auto *untagged = new QWidget(&window);
  auto *zero = new QWidget(untagged);
  auto *text = new QLabel(&window);
  zero->setProperty("tag", 0);
  text->setProperty("tag", u"12"_s);
  QCOMPARE(&assertedViewWithTag(window, 0), zero);
  QCOMPARE(&assertedViewWithTag(window, 12), text);
}

void TestViewHelpers::tagOfTheViewItselfDoesNotCount() {
  QWidget window;
  window.setProperty("tag", 7);
  auto *below = new QWidget(&window);
  below->setProperty("tag", 7);
  QCOMPARE(&assertedViewWithTag(window, 7), below);
}

// Played by this program itself, started again, since it takes the process with it.
void TestViewHelpers::missingTagEndsTheProgram() {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(), {u"--missing-tag"_s});
  QVERIFY(process.waitForFinished(60000));
  QCOMPARE(process.exitStatus(), QProcess::NormalExit);
  QCOMPARE(process.exitCode(), 1);
  const QByteArray printed = process.readAllStandardOutput();
  QVERIFY2(printed.contains("there is no outlet named tag 9"), printed.constData());
}

void TestViewHelpers::fontThatFitsStays_data() {
  QTest::addColumn<QString>("text");
  QTest::newRow("short") << u"OK"_s;
  QTest::newRow("empty") << u""_s;
}

void TestViewHelpers::fontThatFitsStays() {
  QFETCH(const QString, text);
  QLabel label(text);
  QFont font = label.font();
  font.setPointSize(20);
  label.setFont(font);
  label.resize(400, 40);
  adjustFontSize(label);
  QCOMPARE(label.font().pointSize(), 20);
  QCOMPARE(label.font(), font);
  // Just as wide as the field is no wider than it.
  label.resize(qCeil(QFontMetricsF(font).horizontalAdvance(text)), 40);
  adjustFontSize(label);
  QCOMPARE(label.font().pointSize(), 20);
}

void TestViewHelpers::fontShrinksToTheLargestThatFits_data() {
  QTest::addColumn<int>("size");
  QTest::addColumn<double>("factor");
  QTest::newRow("hardly too wide") << 20 << 1.02;
  QTest::newRow("twice as wide") << 20 << 2.0;
  QTest::newRow("ten times") << 40 << 10.0;
}

void TestViewHelpers::fontShrinksToTheLargestThatFits() {
  QFETCH(const int, size);
  QFETCH(const double, factor);
  const QString text = u"The Lighthouse at the End of the World"_s;
  QFont font = QApplication::font();
  font.setPointSize(size);
  const double width = QFontMetricsF(font).horizontalAdvance(text);
  QLineEdit field(text);
  QLabel label(text);
  for (QWidget *each : {static_cast<QWidget *>(&field), static_cast<QWidget *>(&label)}) {
    each->setFont(font);
    each->resize(static_cast<int>(width / factor), 60);
  }
  adjustFontSize(field);
  adjustFontSize(label);
  const int got = field.font().pointSize();
  QVERIFY(got < size);
  QCOMPARE(label.font().pointSize(), got);
  font.setPointSize(got);
  QVERIFY(QFontMetricsF(font).horizontalAdvance(text) <= field.width());
  font.setPointSize(got + 1);
  QVERIFY(QFontMetricsF(font).horizontalAdvance(text) > field.width());
}

void TestViewHelpers::fontOfFractionIsCut() {
  QLabel label(u"fits"_s);
  QFont font = label.font();
  font.setPointSizeF(13.9);
  label.setFont(font);
  label.resize(900, 40);
  adjustFontSize(label);
  QCOMPARE(label.font().pointSizeF(), 13.0);
}

void TestViewHelpers::fontKeepsItsLook() {
  QLabel label(u"a rather wide text"_s);
  QFont font = label.font();
  font.setPointSize(30);
  font.setBold(true);
  font.setItalic(true);
  label.setFont(font);
  label.resize(100, 40);
  adjustFontSize(label);
  QVERIFY(label.font().pointSize() < 30);
  font.setPointSize(label.font().pointSize());
  QCOMPARE(label.font(), font);
}

void TestViewHelpers::fontEndsAtOnePoint() {
  QLabel label(QString(4000, u'm'));
  label.resize(10, 10);
  adjustFontSize(label);
  QCOMPARE(label.font().pointSize(), 1);
}

void TestViewHelpers::fontInPixels() {
  QLabel label(u"a rather wide text"_s);
  QFont font = label.font();
  font.setPixelSize(60);
  label.setFont(font);
  label.resize(100, 80);
  adjustFontSize(label);
  QVERIFY(label.font().pointSize() > 0);
  QVERIFY(QFontMetricsF(label.font()).horizontalAdvance(label.text()) <= 100);
}

void TestViewHelpers::selectedTab() {
  QTabWidget tabs;
  QCOMPARE(selectedTabViewIndex(tabs), -1);
  tabs.addTab(new QWidget, u"one"_s);
  tabs.addTab(new QWidget, u"two"_s);
  QCOMPARE(selectedTabViewIndex(tabs), 0);
  tabs.setCurrentIndex(1);
  QCOMPARE(selectedTabViewIndex(tabs), 1);
}

namespace {

void lookForMissingTag() {
  ScratchProgram program;
  program.presenter().answer(secondButton);
  program.presenter().setWhileShown([](const Alert &alert) {
    std::fputs(qUtf8Printable(alert.message), stdout);
    std::fflush(stdout);
  });
  QWidget window;
  window.setProperty("tag", 9);
  (void)assertedViewWithTag(window, 9);
}

}  // namespace

int main(int argc, char **argv) {
  if (argc == 2 && qstrcmp(argv[1], "--missing-tag") == 0) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    lookForMissingTag();
    return 0;
  }
  return runOffscreen<TestViewHelpers>(argc, argv);
}
#include "tst_viewhelpers.moc"
