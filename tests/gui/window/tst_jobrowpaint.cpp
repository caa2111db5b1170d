#include <QColor>
#include <QImage>
#include <QPalette>
#include <QRect>
#include <QTest>

#include "Defaults.h"
#include "JobRows.h"
#include "WindowTest.h"

using namespace Qt::StringLiterals;
using namespace decant;

// What is painted in a row of the job list, in light and dark, selected and mirrored.
class TestJobRowPaint final : public OpenWindowTest {
  Q_OBJECT

 private Q_SLOTS:
  void barIsSeen_data();
  void barIsSeen();

 private:
  void furnish() override {
    QVERIFY(m_b->queueUp({u"slow.mkv"_s}));
    QTRY_COMPARE(m_b->queue().taskArray().first()->progress(), 10.0);
  }
  [[nodiscard]] JobRows list() { return JobRows(*m_b); }
  [[nodiscard]] QImage row() {
    QImage image(list().view().viewport()->size(), QImage::Format_RGB32);
    list().view().viewport()->render(&image);
    return image;
  }
  [[nodiscard]] static double luminance(const QColor &color) {
    const auto part = [](double value) {
      return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) +
           0.0722 * part(color.blueF());
  }
  // How much the two differ to the eye: 1 not at all, 21 as black and white.
  [[nodiscard]] static double contrast(const QColor &a, const QColor &b) {
    const double lighter = qMax(luminance(a), luminance(b));
    const double darker = qMin(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
  }
};

void TestJobRowPaint::barIsSeen_data() {
  QTest::addColumn<bool>("dark");
  QTest::addColumn<bool>("selected");
  QTest::addColumn<bool>("mirrored");
  for (const bool dark : {false, true})
    for (const bool selected : {false, true})
      for (const bool mirrored : {false, true})
        QTest::addRow("%s%s%s", dark ? "dark" : "light", selected ? " selected" : "",
                      mirrored ? " mirrored" : "")
            << dark << selected << mirrored;
}

void TestJobRowPaint::barIsSeen() {
  QFETCH(const bool, dark);
  QFETCH(const bool, selected);
  QFETCH(const bool, mirrored);
  QPalette palette = list().view().palette();
  palette.setColor(QPalette::Base, dark ? QColor(27, 30, 32) : QColor(252, 252, 252));
  palette.setColor(QPalette::AlternateBase, palette.color(QPalette::Base));
  palette.setColor(QPalette::Text, dark ? QColor(252, 252, 252) : QColor(35, 38, 41));
  palette.setColor(QPalette::Window, dark ? QColor(42, 46, 50) : QColor(239, 240, 241));
  palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
  palette.setColor(QPalette::HighlightedText, QColor(252, 252, 252));
  list().view().setPalette(palette);
  if (mirrored) m_b->window().setLayoutDirection(Qt::RightToLeft);
  list().view().clearSelection();
  if (selected) list().select(0);
  const QRect bar = list().layout(0).progress;
  const QImage image = row();
  const int middle = bar.center().y();
  const int step = bar.width() / 20;
  const auto at = [&](int x) {
    return image.pixelColor(mirrored ? 2 * bar.center().x() - x : x, middle);
  };
  const QColor done = at(bar.left() + step);
  const QColor toDo = at(bar.right() - step);
  const QColor around = image.pixelColor(bar.center().x(), bar.top() - 2);
  QVERIFY2(contrast(toDo, around) > 1.25, qPrintable(toDo.name() + u" on "_s + around.name()));
  QVERIFY2(contrast(done, toDo) > 1.2, qPrintable(done.name() + u" beside "_s + toDo.name()));
  QVERIFY2(contrast(done, around) > 1.5, qPrintable(done.name() + u" on "_s + around.name()));
}

int main(int argc, char **argv) {
  return runWindowTest<TestJobRowPaint>(argc, argv);
}
#include "tst_jobrowpaint.moc"
