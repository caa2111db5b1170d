#pragma once

#include <QMouseEvent>
#include <memory>
#include <optional>

#include "PageBench.h"
#include "VKWebView.h"

// A web view with the real engine in a window, and what can be learned and done in its page.
class LivePage final {
 public:
  static constexpr int patience = 20'000;  // milliseconds, for an engine on a busy machine

  explicit LivePage(PageBench &bench, const ostrak::WebPatience &waits = {})
      : m_bench(bench), m_shown(new ostrak::VKWebView(nullptr, waits)) {}

  ostrak::VKWebView *operator->() const { return m_shown.view; }
  // Shows the local page, and above it the online one of this path when there is one.
  [[nodiscard]] bool show(const QString &onlinePath = {}) {
    m_shown->setLocalHTMLName(QStringLiteral("page.html"));
    if (!onlinePath.isEmpty()) m_shown->setRemoteHTMLURL(m_bench.server.address(onlinePath));
    return m_shown.show();
  }
  // The value of an expression over the page that is shown; null while none is.
  [[nodiscard]] QString ask(const QString &expression) const {
    ostrak::WebPage *page = m_shown->shownPage();
    if (!page) return {};
    const auto answer = std::make_shared<std::optional<QString>>();
    page->evaluate(expression, [answer](const QString &text) { *answer = text; });
    if (!QTest::qWaitFor([&] { return answer->has_value(); }, patience)) return {};
    return answer->value();
  }
  [[nodiscard]] bool becomes(const QString &expression, const QString &value) const {
    return QTest::qWaitFor([&] { return ask(expression) == value; }, patience);
  }
  [[nodiscard]] bool hasTitle(const QString &title) const {
    return becomes(QStringLiteral("document.title"), title);
  }
  // Clicks on the first link, which lies in the upper left corner; again when the page, which may
  // not have been drawn yet, has not heard it.
  [[nodiscard]] bool clickLink() const {
    const QString heard =
        QStringLiteral("document.activeElement.tagName === \"A\" || location.hash !== \"\"");
    for (int i = 0; i < 10; ++i) {
      QWidget *surface = m_shown->shownPage()->widget().focusProxy();
      if (surface) QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(40, 40));
      if (QTest::qWaitFor([&] { return ask(heard) == QStringLiteral("true"); }, 3000)) return true;
    }
    return false;
  }
  ShownView<ostrak::VKWebView> &window() { return m_shown; }

 private:
  PageBench &m_bench;
  ShownView<ostrak::VKWebView> m_shown;
};
