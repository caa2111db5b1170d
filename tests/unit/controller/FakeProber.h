#pragma once

#include <QMutex>
#include <QStringList>
#include <QWaitCondition>
#include <memory>

#include "Intake.h"

// A prober without a tool: answers with a record made of the path, refuses or breaks where it is
// told to, and waits for a go-ahead while it is held.
class FakeProber final {
 public:
  FakeProber();
  [[nodiscard]] decant::Prober function();

  // Until finishAll, each probe waits for finishOne.
  void hold();
  void finishOne();
  void finishAll();

  [[nodiscard]] QStringList asked() const;
  [[nodiscard]] QList<bool> heAACConvert() const;
  [[nodiscard]] int running() const;
  [[nodiscard]] int mostAtOnce() const;

  // Set while nothing is probed.
  QStringList tracks{QStringLiteral("#1: eng (mp3)")};
  QStringList refuse;    // no record, one alert
  QStringList missTool;  // of the refused ones, those for want of a tool
  QStringList breakOn;   // the report breaks the grammar

 private:
  [[nodiscard]] decant::ProbeRun probe(const QString &path, const decant::ProbeSettings &settings);

  struct State {
    QMutex mutex;
    QWaitCondition changed;
    QStringList asked;
    QList<bool> heAACConvert;
    int running = 0;
    int mostAtOnce = 0;
    int goAheads = 0;
    bool held = false;
  };
  std::shared_ptr<State> m_state;  // a probe may outlive a test's objects
};
