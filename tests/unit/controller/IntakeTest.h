#pragma once

#include "FakeProber.h"
#include "Intake.h"
#include "ProgramTest.h"

// A test class whose functions each get an intake with a prober of straw; none of its probes
// outlives them.
class IntakeTest : public ProgramTest {
  Q_OBJECT

 protected Q_SLOTS:
  void init();
  void cleanup();

 protected:
  void waitForShown(const QString &name);

  std::unique_ptr<FakeProber> m_prober;
  std::unique_ptr<decant::Intake> m_intake;
};
