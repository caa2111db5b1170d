#include "EngineBench.h"

#include "OnDemand.h"
#include "Url.h"

using namespace Qt::StringLiterals;

EngineBench::EngineBench() : engine(loadEngine()) {
  engine.startOver();
}

EngineSteering &EngineBench::loadEngine() const {
  pages.putLibrary(u"OstrakWeb"_s, QStringLiteral(SCRIPTED_WEB_ENGINE));
  const auto [steering, problem] = ostrak::loadOnDemand<EngineSteering>(u"OstrakWeb"_s);
  if (!steering) qFatal("no scripted web engine: %s", qPrintable(problem));
  return *steering;
}

EngineBench::View::View(const ostrak::WebPatience &patience)
    : ShownView(new ostrak::VKWebView(nullptr, patience)) {
  view->setLocalHTMLName(u"page.html"_s);
  view->setRemoteHTMLURL(online().toString());
}

bool EngineBench::show(View &view, qsizetype pagesInAll) const {
  return view.show() && QTest::qWaitFor([&] { return engine.asked().size() >= pagesInAll; });
}

QUrl EngineBench::local() {
  return ostrak::resourceURL(u"page.html"_s);
}

QUrl EngineBench::online() {
  return QUrl(u"https://decant.example/new.html"_s);
}

bool EngineBench::arrives(const QUrl &address) const {
  SteeredPage *page = engine.page(address);
  if (page) page->arrive();
  return page;
}

bool EngineBench::fails(const QUrl &address, int error) const {
  SteeredPage *page = engine.page(address);
  if (page) page->fail(error, address);
  return page;
}

bool EngineBench::dies(const QUrl &address) const {
  SteeredPage *page = engine.page(address);
  if (page) page->die();
  return page;
}

bool EngineBench::shows(const View &view, const QUrl &address) const {
  const ostrak::WebPage *shown = view.view->shownPage();
  const SteeredPage *page = engine.page(address);
  return shown && page && page->isPage(shown) && !view.view->textView();
}
