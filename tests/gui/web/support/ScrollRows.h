#pragma once

#include <QTest>
#include <QVariant>

// Web views by what they are told before they are shown, and what becomes of it:
//   factor       the zoom factor, null without one
//   disabled     whether scrolling is disabled
//   scrolls      whether the view's pages scroll; those that are zoomed never do
//   keepsFactor  whether the view has a factor when its first page is shown: one that zooms is used
//                up by then, one too near to 1 to be seen stays
inline void addScrollRows() {
  QTest::addColumn<QVariant>("factor");
  QTest::addColumn<bool>("disabled");
  QTest::addColumn<bool>("scrolls");
  QTest::addColumn<bool>("keepsFactor");
  QTest::newRow("usually") << QVariant() << false << true << false;
  QTest::newRow("disabled") << QVariant() << true << false << false;
  QTest::newRow("zoomed") << QVariant(0.9) << false << false << false;
  QTest::newRow("zoomed and disabled") << QVariant(0.9) << true << false << false;
  QTest::newRow("with a factor of one") << QVariant(1.0) << false << true << true;
  QTest::newRow("hardly zoomed") << QVariant(1.00005) << false << true << true;
  QTest::newRow("hardly zoomed and disabled") << QVariant(1.00005) << true << false << true;
}
