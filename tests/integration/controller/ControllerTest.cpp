#include "ControllerTest.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using decant::AppDelegate;

void ControllerTest::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_p = std::make_unique<ControllerProgram>();
}

void ControllerTest::cleanup() {
  m_p.reset();
}

AppDelegate::Admission ControllerTest::admit(const QString &source, const QString &destination) {
  return m_p->controller->addJob(m_p->job(source, destination));
}

void ControllerTest::pauseClick() {
  m_p->controller->pauseContinueClicked(true);
}

QStringList ControllerTest::told() const {
  QStringList messages;
  for (const ostrak::Alert &alert : m_p->program.presenter().presented)
    messages.append(alert.message);
  return messages;
}
