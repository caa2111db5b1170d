#include "ScriptedWebPage.h"

#include "ScriptedWebEngine.h"

ScriptedWebPage::ScriptedWebPage(const ostrak::WebPageSetup &setup, ostrak::WebPageOwner &owner,
                                 ScriptedWebEngine &engine)
    : m_setup(setup), m_owner(owner), m_engine(engine) {}

ScriptedWebPage::~ScriptedWebPage() {
  m_engine.forget(*this);
}

void ScriptedWebPage::load(const QUrl &address) {
  m_address = address;
  m_engine.begin(*this);
}

void ScriptedWebPage::evaluate(const QString &, std::function<void(const QString &)> answer) {
  QMetaObject::invokeMethod(
      this, [answer = std::move(answer)] { answer({}); }, Qt::QueuedConnection);
}

ostrak::StepTarget ScriptedWebPage::take(const ostrak::PageStep &step) {
  return m_owner.stepTarget(*this, step);
}
