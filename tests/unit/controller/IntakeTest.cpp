#include "IntakeTest.h"

#include <QTest>

using namespace Qt::StringLiterals;
using decant::Intake;

void IntakeTest::init() {
  ProgramTest::init();
  m_prober = std::make_unique<FakeProber>();
  m_intake = std::make_unique<Intake>(QStringList{u"ger"_s, u"eng"_s}, m_prober->function());
}

void IntakeTest::cleanup() {
  m_intake.reset();
  m_prober->finishAll();
  QTRY_COMPARE(m_prober->running(), 0);
  ProgramTest::cleanup();
}

void IntakeTest::waitForShown(const QString &name) {
  QTRY_COMPARE(m_intake->state(), Intake::State::Showing);
  QCOMPARE(m_intake->fileInfo()->fileName, name);
}
