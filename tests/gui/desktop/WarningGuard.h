#pragma once

#include <QRegularExpression>
#include <QTest>

// Every warning fails the test, but for what the platform without a display cannot do.
inline void failOnDesktopWarning() {
  QTest::failOnWarning(QRegularExpression(
      QStringLiteral("^(?!This plugin does not support (raise|propagateSizeHints)).*")));
}
