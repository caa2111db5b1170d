#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

#include "PageLinks.h"

class QWidget;

namespace ostrak {

// What the library OstrakWeb, which brings the web engine, gives the web view. Main thread.

class WebPage;

// Who a page belongs to: it is asked before every step of the page, and told what becomes of it.
// Only `stepTarget` is called within a handler of the page; in the others it may go.
class WebPageOwner {
 public:
  virtual ~WebPageOwner() = default;
  // Where this step leads. One that leads to the browser is opened by the owner.
  virtual StepTarget stepTarget(const WebPage &page, const PageStep &step) = 0;
  // The page is there, all of it. `isEmpty`: there is nothing in it.
  virtual void pageArrived(WebPage &page, bool isEmpty) = 0;
  // It did not come; `error` is the engine's number.
  virtual void pageFailed(WebPage &page, const QUrl &address, int error) = 0;
  // What draws it has ended by itself.
  virtual void pageDied(WebPage &page) = 0;
};

struct WebPageSetup {
  // A local page sees files in this folder and nothing else; an online page, for which this is
  // empty, sees the web and nothing else.
  QString folder;
  bool scrolls = true;
  QColor background;  // until the page has one
  // What pages learn of the desktop's colours; that of the first page holds for all.
  bool prefersDark = false;
};

class WebPage {
 public:
  virtual ~WebPage() = default;
  // Belongs to the page; hidden until it is put into a window.
  [[nodiscard]] virtual QWidget &widget() = 0;
  virtual void load(const QUrl &address) = 0;
  // Runs a script beside the page, whose own scripts never run.
  virtual void run(const QString &script) = 0;
  // The value of an expression over the page, as text.
  virtual void evaluate(const QString &expression, std::function<void(const QString &)> answer) = 0;
};

class WebEngine {
 public:
  virtual ~WebEngine() = default;
  // Why the engine cannot run on this machine; null when it can. To be asked first: an engine that
  // cannot run ends the process.
  [[nodiscard]] virtual QString problem() const = 0;
  [[nodiscard]] virtual std::unique_ptr<WebPage> makePage(const WebPageSetup &setup,
                                                          WebPageOwner &owner) = 0;
};

}  // namespace ostrak

#define OstrakWebEngine_iid "org.decant.Ostrak.WebEngine"
Q_DECLARE_INTERFACE(ostrak::WebEngine, OstrakWebEngine_iid)
