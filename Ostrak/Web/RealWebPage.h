#pragma once

#include <QObject>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineView>

#include "WebEngine.h"

namespace ostrak {

// Lets a local page see the files of one folder, an online page the web, and neither anything else.
class PageFence final : public QWebEngineUrlRequestInterceptor {
 public:
  explicit PageFence(QString folder) : m_folder(std::move(folder)) {}
  void interceptRequest(QWebEngineUrlRequestInfo &info) override;

 private:
  [[nodiscard]] bool mayBeSeen(const QUrl &address) const;

  QString m_folder;
};

// The page as the engine sees it: it asks before every step and opens no windows.
class FencedPage final : public QWebEnginePage {
 public:
  FencedPage(QWebEngineProfile &profile, WebPage &page, WebPageOwner &owner);

 protected:
  bool acceptNavigationRequest(const QUrl &address, NavigationType type, bool isMainFrame) override;
  // Nobody waits for what pages tell.
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int,
                                const QString &) override {}

 private:
  WebPage &m_page;
  WebPageOwner &m_owner;
};

// Offers to copy, and nothing else of what browsers do.
class QuietView final : public QWebEngineView {
 public:
  using QWebEngineView::QWebEngineView;

 protected:
  void contextMenuEvent(QContextMenuEvent *event) override;
};

// A page of QtWebEngine with a profile of its own, which keeps nothing: no cookies, no cache, no
// permissions, no downloads. Scripts of the page do not run.
class RealWebPage final : public QObject, public WebPage {
  Q_OBJECT

 public:
  RealWebPage(const WebPageSetup &setup, WebPageOwner &owner);
  ~RealWebPage() override;

  [[nodiscard]] QWidget &widget() override { return m_view; }
  void load(const QUrl &address) override;
  void run(const QString &script) override;
  void evaluate(const QString &expression, std::function<void(const QString &)> answer) override;

 private:
  void applySettings(bool scrolls);
  void connectPage();
  void arrived();

  WebPageOwner &m_owner;
  // What depends on another comes after it and goes before it.
  QWebEngineProfile m_profile;
  PageFence m_fence;
  FencedPage m_page;
  QuietView m_view;
};

}  // namespace ostrak
