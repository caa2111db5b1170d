#pragma once

#include <QTest>
#include <QVariant>

// Whether a page scrolls, by the zoom its view was given (null: none) and whether that disables
// scrolling: the columns "factor", "disabled" and "scrolls".
inline void addScrollRows() {
  QTest::addColumn<QVariant>("factor");
  QTest::addColumn<bool>("disabled");
  QTest::addColumn<bool>("scrolls");
  QTest::newRow("usually") << QVariant() << false << true;
  QTest::newRow("disabled") << QVariant() << true << false;
  QTest::newRow("zoomed") << QVariant(0.9) << false << false;
  QTest::newRow("zoomed and disabled") << QVariant(0.9) << true << false;
  QTest::newRow("with a factor of one") << QVariant(1.0) << false << true;
  QTest::newRow("hardly zoomed") << QVariant(1.00005) << false << true;
  QTest::newRow("hardly zoomed and disabled") << QVariant(1.00005) << true << false;
}
