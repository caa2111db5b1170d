#pragma once

#include <QObject>
#include <memory>

#include "EngineBench.h"
#include "WebTestMain.h"

// A test class whose views have the scripted engine: each function gets a bench of its own, and no
// page outlives its view.
class EngineTest : public QObject {
  Q_OBJECT

 protected Q_SLOTS:
  void init() {
    failOnEngineWarning();
    m_b = std::make_unique<EngineBench>();
  }
  void cleanup() {
    QCOMPARE(m_b->engine.pages(), 0);
    m_b.reset();
  }

 protected:
  using View = EngineBench::View;

  [[nodiscard]] static QUrl local() { return EngineBench::local(); }
  [[nodiscard]] static QUrl online() { return EngineBench::online(); }
  [[nodiscard]] QList<QUrl> asked() const { return m_b->engine.asked(); }

  std::unique_ptr<EngineBench> m_b;
};
