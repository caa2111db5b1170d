#include "RealWebPage.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFontInfo>
#include <QMenu>
#include <QPointer>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// Runs beside the page and does not meet its own scripts.
constexpr auto besideThePage = QWebEngineScript::ApplicationWorld;

QWebEngineScript withoutScrolling() {
  QWebEngineScript script;
  script.setInjectionPoint(QWebEngineScript::DocumentReady);
  script.setWorldId(besideThePage);
  script.setSourceCode(u"document.documentElement.style.overflow = \"hidden\""_s);
  return script;
}

// Pages are written in sizes relative to that of the program's texts; pixels of the page.
int letterSize() {
  return QFontInfo(QApplication::font()).pixelSize();
}

}  // namespace

void PageFence::interceptRequest(QWebEngineUrlRequestInfo &info) {
  if (!mayBeSeen(info.requestUrl())) info.block(true);
}

bool PageFence::mayBeSeen(const QUrl &address) const {
  const QString scheme = address.scheme();
  if (scheme == "data"_L1) return true;
  if (m_folder.isEmpty()) return scheme == "http"_L1 || scheme == "https"_L1;
  return address.isLocalFile() &&
         QDir::cleanPath(address.toLocalFile()).startsWith(QString(m_folder + u'/'));
}

FencedPage::FencedPage(QWebEngineProfile &profile, WebPage &page, WebPageOwner &owner)
    : QWebEnginePage(&profile), m_page(page), m_owner(owner) {}

bool FencedPage::acceptNavigationRequest(const QUrl &address, NavigationType type,
                                         bool isMainFrame) {
  PageStep step;
  step.address = address;
  step.isMainFrame = isMainFrame;
  step.isClick = type == NavigationTypeLinkClicked;
  step.isArrivingRedirect = type == NavigationTypeRedirect;
  return m_owner.stepTarget(m_page, step) == StepTarget::View;
}

void QuietView::contextMenuEvent(QContextMenuEvent *event) {
  // The view may go while the menu is open, and takes it along.
  auto *menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(page()->action(QWebEnginePage::Copy));
  menu->addAction(page()->action(QWebEnginePage::SelectAll));
  menu->popup(event->globalPos());
}

RealWebPage::RealWebPage(const WebPageSetup &setup, WebPageOwner &owner)
    : m_owner(owner), m_fence(setup.folder), m_page(m_profile, *this, owner) {
  m_profile.setUrlRequestInterceptor(&m_fence);
  m_page.setBackgroundColor(setup.background);
  applySettings(setup.scrolls);
  connectPage();
  m_view.setPage(&m_page);
  m_view.setAcceptDrops(false);
}

RealWebPage::~RealWebPage() = default;

void RealWebPage::applySettings(bool scrolls) {
  using Settings = QWebEngineSettings;
  QWebEngineSettings &settings = *m_page.settings();
  for (const auto unwanted :
       {Settings::JavascriptEnabled, Settings::JavascriptCanOpenWindows,
        Settings::LocalStorageEnabled, Settings::LocalContentCanAccessRemoteUrls,
        Settings::HyperlinkAuditingEnabled, Settings::ErrorPageEnabled, Settings::PluginsEnabled,
        Settings::PdfViewerEnabled, Settings::FullScreenSupportEnabled,
        Settings::ScreenCaptureEnabled, Settings::WebGLEnabled, Settings::DnsPrefetchEnabled,
        Settings::AllowRunningInsecureContent, Settings::AutoLoadIconsForPage})
    settings.setAttribute(unwanted, false);
  settings.setAttribute(Settings::PlaybackRequiresUserGesture, true);
  settings.setFontSize(Settings::DefaultFontSize, letterSize());
  settings.setFontSize(Settings::DefaultFixedFontSize, letterSize());
  if (scrolls) return;
  settings.setAttribute(Settings::ShowScrollBars, false);
  m_page.scripts().insert(withoutScrolling());
}

void RealWebPage::connectPage() {
  connect(&m_page, &QWebEnginePage::loadingChanged, this, [this](const auto &info) {
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) {
      arrived();
    } else if (info.status() != QWebEngineLoadingInfo::LoadStartedStatus) {
      // The owner may throw this page away, and it is still speaking.
      QMetaObject::invokeMethod(
          this,
          [this, url = info.url(), error = info.errorCode()] {
            m_owner.pageFailed(*this, url, error);
          },
          Qt::QueuedConnection);
    }
  });
  connect(
      &m_page, &QWebEnginePage::renderProcessTerminated, this,
      [this](QWebEnginePage::RenderProcessTerminationStatus) { m_owner.pageDied(*this); },
      Qt::QueuedConnection);
  connect(&m_page, &QWebEnginePage::newWindowRequested, this,
          [this](const QWebEngineNewWindowRequest &request) {
            PageStep step;
            step.address = request.requestedUrl();
            step.isClick = request.isUserInitiated();
            (void)m_owner.stepTarget(*this, step);
          });
  connect(&m_page, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl &origin, QWebEnginePage::Feature feature) {
            m_page.setFeaturePermission(origin, feature, QWebEnginePage::PermissionDeniedByUser);
          });
}

void RealWebPage::arrived() {
  evaluate(
      u"document.body !== null && (document.body.childElementCount > 0 || "
      "document.body.textContent.trim() !== \"\")"_s,
      [page = QPointer(this)](const QString &hasContents) {
        if (!page) return;
        const bool isEmpty = hasContents != "true"_L1;
        QMetaObject::invokeMethod(
            page, [page, isEmpty] { page->m_owner.pageArrived(*page, isEmpty); },
            Qt::QueuedConnection);
      });
}

void RealWebPage::load(const QUrl &address) {
  m_page.load(address);
}

void RealWebPage::run(const QString &script) {
  m_page.runJavaScript(script, besideThePage);
}

void RealWebPage::evaluate(const QString &expression, std::function<void(const QString &)> answer) {
  m_page.runJavaScript(
      expression, besideThePage,
      [answer = std::move(answer)](const QVariant &value) { answer(value.toString()); });
}

}  // namespace ostrak
