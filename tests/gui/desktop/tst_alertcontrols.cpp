#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

#include "AlertPlayer.h"
#include "AlertTest.h"
#include "OffscreenMain.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// The one control of a value alert: how it starts, how large it is, and that its value comes back
// whatever is pressed.
class TestAlertControls final : public AlertTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    AlertTest::init();
    m_size = QSize();
    m_start = QVariant();
  }

  void checkbox_data() { endings(); }
  void checkbox();
  void color_data() { endings(); }
  void color();
  void multilineText_data() { endings(); }
  void multilineText();
  void lines_data();
  void lines();
  void popup_data() { endings(); }
  void popup();
  void matrix_data() { endings(); }
  void matrix();
  void matrixByKeys();
  void longTitlesAreShortened_data();
  void longTitlesAreShortened();
  void emptySelections();

 private:
  // Every way to close: the buttons, and 9 for the window's close button.
  static void endings() {
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("code");
    QTest::newRow("first") << 0 << firstButton;
    QTest::newRow("second") << 1 << secondButton;
    QTest::newRow("third") << 2 << thirdButton;
    QTest::newRow("closed") << 9 << thirdButton;
  }
  // Notes the control, lets `change` act on it and presses `button`.
  template <typename Control>
  [[nodiscard]] auto player(int button, std::function<void(Control &)> change) {
    return std::make_unique<AlertPlayer>([this, button, change](const AlertDialog &dialog) {
      auto *control = dialog.findChild<Control *>(u"alertControl"_s);
      if (control) {
        m_size = control->minimumSize();
        QVERIFY(control->width() >= m_size.width() && control->height() >= m_size.height());
        change(*control);
      }
      AlertPlayer::press(dialog, button);
    });
  }
  const QStringList m_buttons{u"A"_s, u"B"_s, u"C"_s};
  QSize m_size;
  QVariant m_start;
};

void TestAlertControls::checkbox() {
  QFETCH(const int, button);
  for (const bool start : {false, true}) {
    bool state = start;
    const auto player = this->player<QCheckBox>(button, [this](QCheckBox &box) {
      m_start = box.isChecked();
      QCOMPARE(box.text(), u"Tick"_s);
      box.click();
    });
    QTEST(alert_checkbox(u"Message"_s, m_buttons, u"Tick"_s, state), "code");
    QCOMPARE(m_start, QVariant(start));
    QCOMPARE(state, !start);
    QCOMPARE(m_size, QSize(310, 24));
  }
}

void TestAlertControls::color() {
  QFETCH(const int, button);
  QString color = u"#112233"_s;
  const auto player = this->player<QPushButton>(button, [this](QPushButton &well) {
    m_start = well.text();
    well.setText(u"#445566"_s);
  });
  QTEST(alert_colorwell(u"Message"_s, m_buttons, color), "code");
  QCOMPARE(m_start, QVariant(u"#112233"_s));
  QCOMPARE(color, u"#445566"_s);
  QCOMPARE(m_size, QSize(310, 24));
}

void TestAlertControls::multilineText() {
  QFETCH(const int, button);
  QString text = u"not shown"_s;
  const auto player = this->player<QPlainTextEdit>(button, [this](QPlainTextEdit &area) {
    m_start = area.toPlainText();
    QTest::keyClicks(&area, u"one"_s);
    QTest::keyClick(&area, Qt::Key_Return);
    QTest::keyClicks(&area, u"two"_s);
  });
  QTEST(alert_inputtext(u"Message"_s, m_buttons, text), "code");
  QCOMPARE(m_start, QVariant(QString(u""_s)));
  QCOMPARE(text, u"one\ntwo"_s);
  QCOMPARE(m_size, QSize(310, 200));
}

void TestAlertControls::lines_data() {
  QTest::addColumn<bool>("secure");
  QTest::addColumn<int>("button");
  QTest::addColumn<int>("code");
  QTest::newRow("plain, first") << false << 0 << firstButton;
  QTest::newRow("plain, closed") << false << 9 << thirdButton;
  QTest::newRow("masked, first") << true << 0 << firstButton;
  QTest::newRow("masked, second") << true << 1 << secondButton;
}

void TestAlertControls::lines() {
  QFETCH(const bool, secure);
  QFETCH(const int, button);
  QString text = u"given"_s;
  const auto player = this->player<QLineEdit>(button, [this, secure](QLineEdit &line) {
    m_start = line.text();
    QCOMPARE(line.echoMode(), secure ? QLineEdit::Password : QLineEdit::Normal);
    line.selectAll();
    QTest::keyClicks(&line, u"typed"_s);
  });
  QTEST(secure ? alert_inputsecure(u"Message"_s, m_buttons, text)
               : alert_input(u"Message"_s, m_buttons, text),
        "code");
  QCOMPARE(m_start, QVariant(u"given"_s));
  QCOMPARE(text, u"typed"_s);
}

void TestAlertControls::popup() {
  QFETCH(const int, button);
  int selected = 1;
  const auto player = this->player<QComboBox>(button, [this](QComboBox &menu) {
    m_start = menu.currentIndex();
    QCOMPARE(menu.count(), 3);
    QCOMPARE(menu.itemText(2), u"z & Co"_s);
    menu.setCurrentIndex(2);
  });
  QTEST(alert_selection_popup(u"Message"_s, m_buttons, {u"x"_s, u"y"_s, u"z & Co"_s}, selected),
        "code");
  QCOMPARE(m_start, QVariant(0));
  QCOMPARE(selected, 2);
  QCOMPARE(m_size, QSize(310, 24));
}

void TestAlertControls::matrix() {
  QFETCH(const int, button);
  int selected = 1;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    const auto rows = dialog.findChildren<QRadioButton *>();
    QCOMPARE(rows.size(), 3);
    QVERIFY(rows.at(0)->isChecked());
    QCOMPARE(dialog.focusWidget(), rows.at(0));
    for (int i = 0; i < rows.size(); ++i) {
      QCOMPARE(rows.at(i)->minimumSize(), QSize(269, 17));
      QVERIFY(i == 0 || rows.at(i)->y() >= rows.at(i - 1)->geometry().bottom());
    }
    QCOMPARE(rows.at(2)->text(), u"z && Co"_s);  // a button shows that as "z & Co"
    rows.at(2)->click();
    AlertPlayer::press(dialog, button);
  });
  QTEST(alert_selection_matrix(u"Message"_s, m_buttons, {u"x"_s, u"y"_s, u"z & Co"_s}, selected),
        "code");
  QCOMPARE(selected, 2);
}

void TestAlertControls::matrixByKeys() {
  int selected = 0;
  const AlertPlayer player([](AlertDialog &dialog) {
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  QCOMPARE(alert_selection_matrix(u"Message"_s, m_buttons, {u"x"_s, u"y"_s}, selected),
           firstButton);
  QCOMPARE(selected, 1);
}

void TestAlertControls::longTitlesAreShortened_data() {
  QTest::addColumn<int>("length");
  QTest::addColumn<int>("shown");
  QTest::newRow("149") << 149 << 149;
  QTest::newRow("150") << 150 << 150;
  QTest::newRow("151") << 151 << 70 + 5 + 70;
  QTest::newRow("400") << 400 << 70 + 5 + 70;
}

void TestAlertControls::longTitlesAreShortened() {
  QFETCH(const int, length);
  QFETCH(const int, shown);
  const QString title = QString(70, u'a') + QString(length - 140, u'b') + QString(70, u'c');
  QString found;
  const AlertPlayer player([&](const AlertDialog &dialog) {
    found = dialog.findChild<QRadioButton *>(u"alertChoice0"_s)->text();
    AlertPlayer::press(dialog, 0);
  });
  int selected = 0;
  alert_selection_matrix(u"Message"_s, m_buttons, {title, u"other"_s}, selected);
  QCOMPARE(found.size(), shown);
  if (shown == length) {
    QCOMPARE(found, title);
  } else {
    const QString wanted = QString(70, u'a') + u" […] "_s + QString(70, u'c');
    QCOMPARE(found, wanted);
  }
}

void TestAlertControls::emptySelections() {
  const AlertPlayer player([](const AlertDialog &dialog) { AlertPlayer::press(dialog, 0); });
  int selected = 5;
  QCOMPARE(alert_selection_matrix(u"Message"_s, {}, {}, selected), firstButton);
  QCOMPARE(alert_selection_popup(u"Message"_s, {}, {}, selected), firstButton);
  QCOMPARE(player.shown(), 2);
}

int main(int argc, char **argv) {
  return runOffscreen<TestAlertControls>(argc, argv);
}
#include "tst_alertcontrols.moc"
