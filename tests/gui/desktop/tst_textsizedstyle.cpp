#include <QFont>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

#include "OffscreenMain.h"
#include "TextSizedStyle.h"

using namespace ostrak;

// Marks and icons beside large letters.
class TestTextSizedStyle final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void marksGrow_data() {
    QTest::addColumn<int>("metric");
    QTest::newRow("check mark") << int(QStyle::PM_IndicatorHeight);
    QTest::newRow("radio mark") << int(QStyle::PM_ExclusiveIndicatorWidth);
    QTest::newRow("toolbar icon") << int(QStyle::PM_ToolBarIconSize);
    QTest::newRow("button icon") << int(QStyle::PM_ButtonIconSize);
  }
  void marksGrow() {
    QFETCH(const int, metric);
    const TextSizedStyle style;
    const auto at = [&](double points) {
      QWidget widget;
      QFont font;
      font.setPointSizeF(points);
      widget.setFont(font);
      return style.pixelMetric(static_cast<QStyle::PixelMetric>(metric), nullptr, &widget);
    };
    const int usual =
        style.baseStyle()->pixelMetric(static_cast<QStyle::PixelMetric>(metric), nullptr, nullptr);
    QVERIFY(usual > 0);
    QVERIFY(at(20) >= 2 * usual - 1 && at(20) <= 2 * usual + 1);
    QCOMPARE(at(10), usual);
    QCOMPARE(at(7), usual);
  }

  void boxesAreSeenInTheDark() {
    const TextSizedStyle style;
    QStyleOptionButton box;
    box.rect = QRect(0, 0, 16, 16);
    box.state = QStyle::State_Enabled | QStyle::State_Off;
    box.palette = QPalette(QColor(49, 54, 59), QColor(42, 46, 50));
    QImage image(16, 16, QImage::Format_RGB32);
    image.fill(box.palette.color(QPalette::Window));
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, nullptr);
    painter.end();
    QVERIFY(image.pixelColor(8, 0).lightness() >
            box.palette.color(QPalette::Window).lightness() + 40);
  }

  void distancesStay() {
    const TextSizedStyle style;
    QWidget widget;
    QFont font;
    font.setPointSizeF(20);
    widget.setFont(font);
    QCOMPARE(style.pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &widget),
             style.baseStyle()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &widget));
  }
};

int main(int argc, char **argv) {
  return runOffscreen<TestTextSizedStyle>(argc, argv);
}
#include "tst_textsizedstyle.moc"
