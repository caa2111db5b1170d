#include "ProgramTest.h"

#include <QRegularExpression>
#include <QTest>

#include "Settings.h"

using namespace Qt::StringLiterals;

void ProgramTest::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_program = std::make_unique<ScratchProgram>();
  decant::registerSettings();
}

void ProgramTest::cleanup() {
  m_program.reset();
}
