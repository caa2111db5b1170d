#pragma once

#include <QObject>
#include <memory>

#include "WindowBench.h"
#include "WindowTestMain.h"

// A test class whose functions each get a program with a window that is not open yet.
class WindowTest : public QObject {
  Q_OBJECT

 protected Q_SLOTS:
  void init() {
    failOnWindowWarning();
    m_b = std::make_unique<WindowBench>();
  }
  void cleanup() { m_b.reset(); }

 protected:
  std::unique_ptr<WindowBench> m_b;
};

// The same, with the window open; without one, a function is not run.
class OpenWindowTest : public WindowTest {
  Q_OBJECT

 protected Q_SLOTS:
  void init() {
    WindowTest::init();
    QVERIFY(m_b->open());
    furnish();
  }

 protected:
  // What the functions of a class begin with, when the window is open.
  virtual void furnish() {}
};
