#pragma once

#include <QApplication>
#include <QRegularExpression>
#include <QTest>

#include "GuardedApplication.h"

// Runs a test class with the program's own application object, but without a display. The platform
// is chosen before that object is made, which reads it once.
template <typename TestClass>
int runWindowTest(int argc, char **argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const ostrak::GuardedApplication<QApplication> application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  TestClass test;
  return QTest::qExec(&test, argc, argv);
}

// Every warning fails the test, but for what the platform without a display cannot do.
inline void failOnWindowWarning() {
  QTest::failOnWarning(QRegularExpression(
      QStringLiteral("^(?!This plugin does not support (raise|propagateSizeHints|"
                     "setting window masks|grabbing)).*")));
}
