#pragma once

#include <QList>
#include <QStringList>
#include <QUrl>
#include <functional>

#include "WebEngine.h"

// How a test steers the scripted web engine: by itself that accepts every page and answers nothing.

// A page that a view has. Whatever becomes of it, the view may throw it away at once.
class SteeredPage {
 public:
  virtual ~SteeredPage() = default;
  [[nodiscard]] virtual bool isPage(const ostrak::WebPage *page) const = 0;
  [[nodiscard]] virtual const ostrak::WebPageSetup &setup() const = 0;
  // What it was last asked to load; empty before.
  [[nodiscard]] virtual QUrl address() const = 0;
  // Those that ran beside it, in order.
  [[nodiscard]] virtual QStringList scripts() const = 0;
  // What the view says to this step of the page.
  virtual ostrak::StepTarget take(const ostrak::PageStep &step) = 0;

  virtual void arrive() = 0;
  virtual void arriveEmpty() = 0;
  virtual void fail(int error, const QUrl &address) = 0;
  // The process that draws it has ended.
  virtual void die() = 0;
};

class EngineSteering {
 public:
  virtual ~EngineSteering() = default;
  // Forgets what it was told and asked; the engine outlives the views and the tests of a process.
  virtual void startOver() = 0;
  // The engine cannot run, and this is why.
  virtual void refuse(const QString &problem) = 0;
  // From now on each page that is asked for something gets this answer from the event loop.
  virtual void whenAsked(std::function<void(SteeredPage &)> answer) = 0;
  // What was asked for, in order.
  [[nodiscard]] virtual QList<QUrl> asked() const = 0;
  // The youngest of this address that has not been thrown away; null when there is none.
  [[nodiscard]] virtual SteeredPage *page(const QUrl &address) const = 0;
  // How many pages have not been thrown away.
  [[nodiscard]] virtual qsizetype pages() const = 0;
};

#define EngineSteering_iid "org.decant.tests.EngineSteering"
Q_DECLARE_INTERFACE(EngineSteering, EngineSteering_iid)
