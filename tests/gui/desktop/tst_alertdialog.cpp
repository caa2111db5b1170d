#include <QLabel>
#include <QPushButton>

#include "AlertPlayer.h"
#include "AlertTest.h"
#include "Defaults.h"
#include "OffscreenMain.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// Alerts as dialogs: texts, buttons, what closes them, and where they run.
class TestAlertDialog final : public AlertTest {
  Q_OBJECT

 private Q_SLOTS:
  void buttons_data();
  void buttons();
  void keysAndClosing_data();
  void keysAndClosing();
  void textsAreShownAsTheyAre();
  void titleOfTheProgram();
  void picture();
  void namesForAssistiveTools();
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

int main(int argc, char **argv) {
  return runOffscreen<TestAlertDialog>(argc, argv);
}
#include "tst_alertdialog.moc"
