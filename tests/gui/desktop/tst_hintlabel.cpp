#include "ElidedLabel.h"
#include "OffscreenMain.h"
#include "WarningGuard.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// The sentence of help below a control.
class TestHintLabel final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { failOnDesktopWarning(); }

  void colourOfEachGroup_data();
  void colourOfEachGroup();
};

void TestHintLabel::colourOfEachGroup_data() {
  QTest::addColumn<QColor>("activeText");
  QTest::addColumn<QColor>("inactiveText");
  QTest::addColumn<QColor>("active");
  QTest::addColumn<QColor>("inactive");
  QTest::newRow("groups of one colour")
      << QColor(0, 0, 0) << QColor(0, 0, 0) << QColor(30, 60, 75) << QColor(30, 60, 75);
  QTest::newRow("groups of their own")
      << QColor(0, 0, 0) << QColor(100, 50, 200) << QColor(30, 60, 75) << QColor(100, 95, 215);
}

void TestHintLabel::colourOfEachGroup() {
  QFETCH(QColor, activeText);
  QFETCH(QColor, inactiveText);
  QWidget form;
  QPalette palette;
  palette.setColor(QPalette::Window, QColor(100, 200, 250));
  palette.setColor(QPalette::Active, QPalette::WindowText, activeText);
  palette.setColor(QPalette::Inactive, QPalette::WindowText, inactiveText);
  form.setPalette(palette);
  const HintLabel hint(&form);
  QTEST(hint.palette().color(QPalette::Active, QPalette::WindowText), "active");
  QTEST(hint.palette().color(QPalette::Inactive, QPalette::WindowText), "inactive");
}

int main(int argc, char **argv) {
  return runOffscreen<TestHintLabel>(argc, argv);
}
#include "tst_hintlabel.moc"
