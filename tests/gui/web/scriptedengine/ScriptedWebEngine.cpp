#include "ScriptedWebEngine.h"

#include "ScriptedWebPage.h"

std::unique_ptr<ostrak::WebPage> ScriptedWebEngine::makePage(const ostrak::WebPageSetup &setup,
                                                             ostrak::WebPageOwner &owner) {
  auto page = std::make_unique<ScriptedWebPage>(setup, owner, *this);
  m_pages.append(page.get());
  return page;
}

void ScriptedWebEngine::startOver() {
  m_problem.clear();
  m_answer = {};
  m_asked.clear();
}

void ScriptedWebEngine::whenAsked(std::function<void(SteeredPage &)> answer) {
  m_answer = std::move(answer);
}

SteeredPage *ScriptedWebEngine::page(const QUrl &address) const {
  for (auto each = m_pages.crbegin(); each != m_pages.crend(); ++each)
    if ((*each)->address() == address) return *each;
  return nullptr;
}

void ScriptedWebEngine::begin(ScriptedWebPage &page) {
  m_asked.append(page.address());
  if (m_answer)
    QMetaObject::invokeMethod(
        &page, [answer = m_answer, &page] { answer(page); }, Qt::QueuedConnection);
}
