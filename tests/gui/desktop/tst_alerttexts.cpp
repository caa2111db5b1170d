#include <QClipboard>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>

#include "AlertPlayer.h"
#include "AlertTest.h"
#include "AlertTexts.h"
#include "OffscreenMain.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Alerts with much to say stay on the screen, and everything in them can be read.
class TestAlertTexts final : public AlertTest {
  Q_OBJECT

 private Q_SLOTS:
  void breaks_data();
  void breaks();
  void copiesWhatWasTold();
  void staysOnTheScreen_data();
  void staysOnTheScreen();
  void iconByKind();
};

void TestAlertTexts::breaks_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<qsizetype>("places");
  QTest::newRow("empty") << QString() << qsizetype{0};
  QTest::newRow("words") << u"one two "_s.repeated(50) << qsizetype{0};
  QTest::newRow("30 characters") << u"x"_s.repeated(30) << qsizetype{0};
  QTest::newRow("31 characters") << u"x"_s.repeated(31) << qsizetype{1};
  QTest::newRow("a long name") << u"x"_s.repeated(255) << qsizetype{8};
  QTest::newRow("lines") << QString(u"x"_s.repeated(30) + u'\n').repeated(3) << qsizetype{0};
  // Each is one for the reader: a pair of two, a letter with its mark.
  QTest::newRow("pairs") << u"🎬"_s.repeated(31) << qsizetype{1};
  QTest::newRow("marks") << u"e\u0301"_s.repeated(31) << qsizetype{1};
}

void TestAlertTexts::breaks() {
  QFETCH(const QString, text);
  QFETCH(const qsizetype, places);
  QString shown = breakable(text);
  QCOMPARE(shown.count(QChar(0x200B)), places);
  if (text.startsWith(u"e\u0301"_s)) QVERIFY(!shown.contains(u"e\u200B"_s));
  QCOMPARE(shown.remove(QChar(0x200B)), text);
}

// A path that goes into a terminal, or a mail.
void TestAlertTexts::copiesWhatWasTold() {
  const QString path = u"/"_s + u"folder/"_s.repeated(30) + u"a b.mkv\nsecond line"_s;
  QClipboard *const clipboard = QGuiApplication::clipboard();
  clipboard->clear();
  const AlertPlayer player([](const AlertDialog &dialog) {
    auto *label = dialog.findChild<QLabel *>(u"alertMessage"_s);
    QVERIFY(label->text().contains(QChar(0x200B)));
    QTest::keySequence(label, QKeySequence(QKeySequence::SelectAll));
    QTest::keySequence(label, QKeySequence(QKeySequence::Copy));
    AlertPlayer::press(dialog, 0);
  });
  alert(u"Title"_s, path);
  QCOMPARE(clipboard->text(), path);
}

void TestAlertTexts::staysOnTheScreen_data() {
  QTest::addColumn<QString>("message");
  QTest::addColumn<int>("choices");
  QTest::addColumn<bool>("scrolls");
  QTest::newRow("usual") << u"A message."_s << 3 << false;
  QTest::newRow("a name of 255 bytes") << u"x"_s.repeated(255) << 0 << false;
  QTest::newRow("many lines") << u"line\n"_s.repeated(300) << 0 << true;
  QTest::newRow("many choices") << u"A message."_s << 200 << true;
}

void TestAlertTexts::staysOnTheScreen() {
  QFETCH(const QString, message);
  QFETCH(const int, choices);
  QFETCH(const bool, scrolls);
  QSize size;
  bool scrolled = false;
  bool reachable = true;
  QString name;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    size = dialog.size();
    scrolled = dialog.findChild<QScrollArea *>(u"alertScroll"_s) != nullptr;
    if (const auto *label = dialog.findChild<QLabel *>(u"alertMessage"_s))
      name = label->accessibleName();
    const auto *button = dialog.findChild<QAbstractButton *>(u"alertButton0"_s);
    reachable = dialog.rect().contains(button->geometry());
    AlertPlayer::press(dialog, 0);
  });
  Alert made;
  made.title = u"Title"_s;
  made.message = message;
  for (int i = 0; i < choices; ++i)
    made.items.append(QString::number(i));
  if (choices > 0) made.control = Alert::Control::Matrix;
  QCOMPARE(presentAlert(made), firstButton);
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  QVERIFY2(size.width() <= screen.width() && size.height() <= screen.height(),
           qPrintable(u"%1x%2"_s.arg(size.width()).arg(size.height())));
  QCOMPARE(scrolled, scrolls);
  QVERIFY(reachable);
  QCOMPARE(name, message);
}

void TestAlertTexts::iconByKind() {
  QStringList names;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    for (const QLabel *label : dialog.findChildren<QLabel *>())
      if (!label->pixmap().isNull()) names.append(label->accessibleName());
    AlertPlayer::press(dialog, 1);
  });
  alert(u"Title"_s, u"Message"_s);
  alert_feedback_nonfatal(u"It broke"_s, u"details"_s);
  QCOMPARE(names, QStringList({u"Information"_s, u"Problem"_s}));
}

int main(int argc, char **argv) {
  return runOffscreen<TestAlertTexts>(argc, argv);
}
#include "tst_alerttexts.moc"
