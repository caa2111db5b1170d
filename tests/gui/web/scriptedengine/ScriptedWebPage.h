#pragma once

#include <QObject>
#include <QWidget>

#include "EngineSteering.h"

class ScriptedWebEngine;

// An empty widget that remembers what it was told.
class ScriptedWebPage final : public QObject, public ostrak::WebPage, public SteeredPage {
  Q_OBJECT

 public:
  ScriptedWebPage(const ostrak::WebPageSetup &setup, ostrak::WebPageOwner &owner,
                  ScriptedWebEngine &engine);
  ~ScriptedWebPage() override;

  [[nodiscard]] QWidget &widget() override { return m_widget; }
  void load(const QUrl &address) override;
  void run(const QString &script) override { m_scripts.append(script); }
  // Answers every question with nothing.
  void evaluate(const QString &expression, std::function<void(const QString &)> answer) override;

  [[nodiscard]] bool isPage(const ostrak::WebPage *page) const override { return page == this; }
  [[nodiscard]] const ostrak::WebPageSetup &setup() const override { return m_setup; }
  [[nodiscard]] QUrl address() const override { return m_address; }
  [[nodiscard]] QStringList scripts() const override { return m_scripts; }
  [[nodiscard]] ostrak::StepTarget take(const ostrak::PageStep &step) override;
  void arrive() override { m_owner.pageArrived(*this, false); }
  void arriveEmpty() override { m_owner.pageArrived(*this, true); }
  void fail(int error, const QUrl &address) override { m_owner.pageFailed(*this, address, error); }
  void die() override { m_owner.pageDied(*this); }

 private:
  const ostrak::WebPageSetup m_setup;
  ostrak::WebPageOwner &m_owner;
  ScriptedWebEngine &m_engine;
  QWidget m_widget;
  QUrl m_address;
  QStringList m_scripts;
};
