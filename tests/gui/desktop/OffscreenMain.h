#pragma once

#include <QApplication>
#include <QTest>

// Runs a test class with widgets but without a display. The platform is chosen before the
// application object is made, which reads it once.
template <typename TestClass>
int runOffscreen(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  TestClass test;
  return QTest::qExec(&test, argc, argv);
}
