#pragma once

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

// Runs a test class with widgets but without a display.
template <typename TestClass>
int runWebTest(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  TestClass test;
  return QTest::qExec(&test, argc, argv);
}

// Every warning fails the test, but for what the engine tells of itself and what the platform
// without a display cannot do.
inline void failOnEngineWarning() {
  QTest::failOnWarning(QRegularExpression(
      QStringLiteral("^(?!This plugin does not support|Sandboxing disabled by user|"
                     "Qt WebEngine seems to be initialized from a plugin|"
                     "No suitable graphics backend found).*")));
}
