#pragma once

#include <QObject>

#include "EngineSteering.h"

class ScriptedWebPage;

// Draws nothing and loads nothing: what becomes of its pages is the test's to say.
class ScriptedWebEngine final : public QObject, public ostrak::WebEngine, public EngineSteering {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID OstrakWebEngine_iid)
  Q_INTERFACES(ostrak::WebEngine EngineSteering)

 public:
  [[nodiscard]] QString problem() const override { return m_problem; }
  [[nodiscard]] std::unique_ptr<ostrak::WebPage> makePage(const ostrak::WebPageSetup &setup,
                                                          ostrak::WebPageOwner &owner) override;

  void startOver() override;
  void refuse(const QString &problem) override { m_problem = problem; }
  void whenAsked(std::function<void(SteeredPage &)> answer) override;
  [[nodiscard]] QList<QUrl> asked() const override { return m_asked; }
  [[nodiscard]] SteeredPage *page(const QUrl &address) const override;
  [[nodiscard]] qsizetype pages() const override { return m_pages.size(); }

  void begin(ScriptedWebPage &page);
  void forget(ScriptedWebPage &page) { m_pages.removeOne(&page); }

 private:
  QString m_problem;
  std::function<void(SteeredPage &)> m_answer;
  QList<QUrl> m_asked;
  QList<ScriptedWebPage *> m_pages;  // belong to the views
};
