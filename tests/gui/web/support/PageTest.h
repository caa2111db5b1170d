#pragma once

#include <QObject>
#include <memory>

#include "PageBench.h"
#include "WebTestMain.h"

// A test class whose views have the libraries of the build tree: each function gets a bench of its
// own.
class PageTest : public QObject {
  Q_OBJECT

 protected Q_SLOTS:
  void init() {
    failOnEngineWarning();
    m_b = std::make_unique<PageBench>();
    furnish();
  }
  void cleanup() { m_b.reset(); }

 protected:
  // Gives the new bench its libraries and pages.
  virtual void furnish() = 0;

  std::unique_ptr<PageBench> m_b;
};
