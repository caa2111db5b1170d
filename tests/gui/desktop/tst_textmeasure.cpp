#include <QFontMetricsF>
#include <QRegularExpression>

#include "OffscreenMain.h"
#include "TextMeasure.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestTextMeasure final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void measuresEmpty() { QCOMPARE(sizeUsingFont(u""_s, m_font, 100), QSizeF(0, lineHeight())); }

  void keepsShortTextOnOneLine() {
    const QSizeF size = sizeUsingFont(u"one two"_s, m_font, 10'000);
    QVERIFY(size.width() > 0);
    QVERIFY(size.width() < 10'000);
    QCOMPARE(size.height(), sizeUsingFont(u"one"_s, m_font, 10'000).height());
    QVERIFY(sizeUsingFont(u"one two three"_s, m_font, 10'000).width() > size.width());
  }

  void breaksBetweenWords() {
    const QString text = u"one two three four five six"_s;
    const QSizeF whole = sizeUsingFont(text, m_font, 0);
    const qreal half = whole.width() * 0.6;
    const QSizeF broken = sizeUsingFont(text, m_font, half);
    QVERIFY(broken.width() <= half);
    QVERIFY2(broken.height() >= whole.height() + m_metrics.lineSpacing() - 1,
             qPrintable(QString::number(broken.height())));
  }

  void breaksNoLineWithoutWidth() {
    const QString text = QString(u"word "_s).repeated(500);
    const QSizeF size = sizeUsingFont(text, m_font, 0);
    QCOMPARE(size.height(), sizeUsingFont(u"word"_s, m_font, 0).height());
    QCOMPARE(sizeUsingFont(text, m_font, -5), size);
  }

  void countsLineBreaks() {
    QVERIFY(sizeUsingFont(u"a\nb"_s, m_font, 1000).height() >=
            sizeUsingFont(u"a"_s, m_font, 1000).height() + m_metrics.lineSpacing() - 1);
  }

  void wideWordsStickOut() {
    const qreal word = sizeUsingFont(u"Donaudampfschiff"_s, m_font, 0).width();
    QVERIFY(sizeUsingFont(u"Donaudampfschiff"_s, m_font, word / 2).width() > word / 2);
  }

  void growsWithTheFont() {
    QFont large = m_font;
    large.setPixelSize(48);
    const QSizeF small = sizeUsingFont(u"text"_s, m_font, 0);
    const QSizeF big = sizeUsingFont(u"text"_s, large, 0);
    QVERIFY(big.width() > small.width());
    QVERIFY(big.height() > small.height());
  }

 private:
  [[nodiscard]] qreal lineHeight() const { return m_metrics.height(); }

  static QFont testFont() {
    QFont font;
    font.setPixelSize(12);
    return font;
  }
  QFont m_font = testFont();
  QFontMetricsF m_metrics{m_font};
};

int main(int argc, char **argv) {
  return runOffscreen<TestTextMeasure>(argc, argv);
}
#include "tst_textmeasure.moc"
