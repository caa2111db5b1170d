#pragma once

#include <QFrame>
#include <QTimer>
#include <QUrl>
#include <QVariant>
#include <chrono>
#include <memory>
#include <optional>

#include "WebEngine.h"

class QStackedLayout;

namespace ostrak {

class PageBrowser;

// How long a web view waits.
struct WebPatience {
  // Until the local page is shown in the text view, as long as the engine shows none.
  std::chrono::milliseconds local = std::chrono::milliseconds(1500);
  // Until the online copy is given up: one that takes longer is not worth what it takes.
  std::chrono::milliseconds online = std::chrono::seconds(60);
};

// A web view that shows a page of the bundle and, when the machine is online, its newer copy from
// the web. It loads both by itself when it is first about to be drawn, once; the web engine comes
// with the first page. The local page stays until the online one is there. Where the engine cannot
// be had, or does not answer, the same page is shown in a text view. Main thread.
class VKWebView final : public QFrame, private WebPageOwner {
  Q_OBJECT
  // The file name, extension included, of a page among the bundle's resources.
  Q_PROPERTY(QString localHTMLName READ localHTMLName WRITE setLocalHTMLName)
  // The address of the online copy; empty when there is none.
  Q_PROPERTY(QString remoteHTMLURL READ remoteHTMLURL WRITE setRemoteHTMLURL)
  // Applied once, to the first page that is there, and then forgotten; no value means 1.
  Q_PROPERTY(QVariant zoomFactor READ zoomVariant WRITE setZoomVariant)
  Q_PROPERTY(bool disableScrolling READ disableScrolling WRITE setDisableScrolling)

 public:
  explicit VKWebView(QWidget *parent = nullptr, const WebPatience &patience = {});
  ~VKWebView() override;

  [[nodiscard]] QString localHTMLName() const { return m_localHTMLName; }
  void setLocalHTMLName(const QString &name) { m_localHTMLName = name; }
  [[nodiscard]] QString remoteHTMLURL() const { return m_remoteHTMLURL; }
  void setRemoteHTMLURL(const QString &address) { m_remoteHTMLURL = address; }
  [[nodiscard]] std::optional<double> zoomFactor() const { return m_zoomFactor; }
  void setZoomFactor(std::optional<double> factor) { m_zoomFactor = factor; }
  [[nodiscard]] bool disableScrolling() const { return m_disableScrolling; }
  void setDisableScrolling(bool disable) { m_disableScrolling = disable; }

  // The page that the engine shows; null before it is there and in the text view.
  [[nodiscard]] WebPage *shownPage() const { return m_shown.get(); }
  [[nodiscard]] bool isLoadingOnlineCopy() const { return m_comingRemote != nullptr; }
  // The text view in the engine's place; null when there is none.
  [[nodiscard]] PageBrowser *textView() const { return m_text; }

 protected:
  void paintEvent(QPaintEvent *event) override;

 private:
  [[nodiscard]] QVariant zoomVariant() const;
  void setZoomVariant(const QVariant &factor);
  void load();
  void loadLocal(const QUrl &address);
  void loadRemote(const QUrl &address);
  void showPage(std::unique_ptr<WebPage> page);
  void showText();
  void giveUpLocal(const QString &why);
  void giveUpRemote();
  void giveUpEngine(const QString &why);

  StepTarget stepTarget(const WebPage &page, const PageStep &step) override;
  void pageArrived(WebPage &page, bool isEmpty) override;
  void pageFailed(WebPage &page, const QUrl &address, int error) override;
  void pageDied(WebPage &page) override;

  QString m_localHTMLName;
  QString m_remoteHTMLURL;
  std::optional<double> m_zoomFactor;
  bool m_disableScrolling = false;
  bool m_scrolls = true;
  bool m_loaded = false;

  WebEngine *m_engine = nullptr;  // belongs to its library
  QUrl m_local;
  QUrl m_remote;
  std::unique_ptr<WebPage> m_comingLocal;
  std::unique_ptr<WebPage> m_comingRemote;
  std::unique_ptr<WebPage> m_shown;
  bool m_shownIsLocal = false;
  QStackedLayout *m_layout;
  PageBrowser *m_text = nullptr;
  QTimer m_localPatience;
  QTimer m_remotePatience;
};

}  // namespace ostrak
