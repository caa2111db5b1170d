#include "AlertTest.h"

#include "WarningGuard.h"

void AlertTest::init() {
  failOnDesktopWarning();
  m_program = std::make_unique<ScratchProgram>();
  ostrak::setAlertPresenter(&m_presenter);
}

void AlertTest::cleanup() {
  m_program.reset();
}
