#include "VKWebView.h"

#include <QStackedLayout>
#include <QVariant>
#include <utility>

#include "Logging.h"
#include "OnDemand.h"
#include "Ostrak.h"
#include "PageBrowser.h"
#include "ScaledFont.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// Each reason once: there is a view on every tab.
void logOnce(const QString &why) {
  static QStringList told;
  if (told.contains(why)) return;
  told.append(why);
  tk_log_level(4, u"Warning: pages are shown in a text view because the web engine %@"_s, why);
}

bool isDark(const QColor &paper) {
  return paper.lightness() < 128;
}

// One that can run.
OnDemand<WebEngine> findEngine() {
  const OnDemand<WebEngine> loaded = loadOnDemand<WebEngine>(u"OstrakWeb"_s);
  if (!loaded.library) {
    const QString why = u"cannot be loaded: "_s + loaded.problem;
    return {nullptr, why};
  }
  const QString problem = loaded.library->problem();
  return {problem.isNull() ? loaded.library : nullptr, problem};
}

}  // namespace

VKWebView::VKWebView(QWidget *parent, const WebPatience &patience)
    : QFrame(parent), m_layout(new QStackedLayout(this)) {
  setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  m_localPatience.setSingleShot(true);
  m_localPatience.setInterval(patience.local);
  connect(&m_localPatience, &QTimer::timeout, this, &VKWebView::showText);
  m_remotePatience.setSingleShot(true);
  m_remotePatience.setInterval(patience.online);
  connect(&m_remotePatience, &QTimer::timeout, this, &VKWebView::giveUpRemote);
}

VKWebView::~VKWebView() = default;

QVariant VKWebView::zoomVariant() const {
  return m_zoomFactor ? QVariant(*m_zoomFactor) : QVariant();
}

void VKWebView::setZoomVariant(const QVariant &factor) {
  bool isNumber = false;
  const double number = factor.toDouble(&isNumber);
  m_zoomFactor = isNumber ? std::optional(number) : std::nullopt;
}

void VKWebView::paintEvent(QPaintEvent *event) {
  QFrame::paintEvent(event);
  // Not now: loading makes widgets, and that is no work for the middle of a paint.
  if (!std::exchange(m_loaded, true))
    QMetaObject::invokeMethod(this, &VKWebView::load, Qt::QueuedConnection);
}

void VKWebView::load() {
  m_scrolls = !m_disableScrolling && !changesZoom(m_zoomFactor);
  m_local = resourceURL(m_localHTMLName);
  m_remote = URL(m_remoteHTMLURL);
  if (!m_localHTMLName.isEmpty() && m_local.isEmpty())
    tk_log_level(3, u"Error: the document %@ cannot be read"_s, m_localHTMLName);
  const OnDemand<WebEngine> found = findEngine();
  m_engine = found.library;
  if (!m_engine) {
    giveUpEngine(found.problem);
    return;
  }
  loadLocal(m_local);
  QMetaObject::invokeMethod(
      this, [this] { loadRemote(m_remote); }, Qt::QueuedConnection);
}

void VKWebView::loadLocal(const QUrl &address) {
  if (!m_engine || address.isEmpty()) return;
  const QColor paper = palette().color(QPalette::Base);
  m_comingLocal = m_engine->makePage({tk->resDir(), m_scrolls, paper, isDark(paper)}, *this);
  m_comingLocal->load(address);
  if (!m_shown) m_localPatience.start();
}

void VKWebView::loadRemote(const QUrl &address) {
  if (!m_engine || address.isEmpty()) return;
  m_comingRemote = m_engine->makePage(
      {{}, m_scrolls, Qt::white, isDark(palette().color(QPalette::Base))}, *this);
  m_comingRemote->load(address);
  m_remotePatience.start();
}

StepTarget VKWebView::stepTarget(const WebPage &page, const PageStep &step) {
  PageStep asked = step;
  asked.isArrivingRedirect = step.isArrivingRedirect && &page == m_comingRemote.get();
  const StepTarget target = targetOf(asked, m_local, m_remote);
  if (target == StepTarget::Browser) open(step.address);
  if (target != StepTarget::View || &page != m_shown.get()) return target;
  // What is shown stays until the next page is there.
  if (step.isClick) {
    const auto load =
        isSamePage(step.address, m_local) ? &VKWebView::loadLocal : &VKWebView::loadRemote;
    QMetaObject::invokeMethod(
        this, [this, load, next = step.address] { (this->*load)(next); }, Qt::QueuedConnection);
  }
  return StepTarget::Nowhere;
}

void VKWebView::pageArrived(WebPage &page, bool isEmpty) {
  if (&page == m_comingLocal.get()) {
    m_localPatience.stop();
    m_shownIsLocal = true;
    showPage(std::move(m_comingLocal));
  } else if (&page == m_comingRemote.get()) {
    if (isEmpty) return giveUpRemote();
    m_remotePatience.stop();
    m_localPatience.stop();
    m_comingLocal.reset();
    m_shownIsLocal = false;
    showPage(std::move(m_comingRemote));
  }
}

void VKWebView::showPage(std::unique_ptr<WebPage> page) {
  if (changesZoom(m_zoomFactor)) page->run(zoomScript(*std::exchange(m_zoomFactor, {})));
  m_layout->addWidget(&page->widget());
  m_layout->setCurrentWidget(&page->widget());
  setFocusProxy(&page->widget());
  m_shown = std::move(page);
  delete std::exchange(m_text, nullptr);
}

void VKWebView::pageFailed(WebPage &page, const QUrl &address, int error) {
  // It may have gone on to somewhere else; where it has not, the patience ends.
  if (isAborted(error)) return;
  if (&page == m_comingLocal.get()) {
    giveUpLocal(u"does not open them"_s);
  } else if (&page == m_comingRemote.get()) {
    giveUpRemote();
    const bool isLocalThere = m_comingLocal || (m_shown && m_shownIsLocal);
    if (isNotConnected(error) && isSamePage(address, m_remote) && !isLocalThere) loadLocal(m_local);
  }
}

void VKWebView::pageDied(WebPage &page) {
  if (&page == m_comingRemote.get())
    giveUpRemote();
  else if (&page == m_comingLocal.get())
    giveUpLocal(u"has ended"_s);
  else
    giveUpEngine(u"has ended"_s);
}

void VKWebView::giveUpLocal(const QString &why) {
  // What is shown stays.
  if (m_shown)
    m_comingLocal.reset();
  else
    giveUpEngine(why);
}

void VKWebView::giveUpRemote() {
  m_remotePatience.stop();
  m_comingRemote.reset();
}

void VKWebView::giveUpEngine(const QString &why) {
  logOnce(why);
  m_engine = nullptr;
  giveUpRemote();
  m_localPatience.stop();
  m_comingLocal.reset();
  m_shown.reset();
  showText();
  m_text->replaceByOnlineCopy(m_remoteHTMLURL);
  if (changesZoom(m_zoomFactor)) m_zoomFactor.reset();
}

void VKWebView::showText() {
  if (m_text) return;
  m_text = new PageBrowser(this);
  m_text->setFrameStyle(QFrame::NoFrame);
  m_text->setAccessibleName(accessibleName());
  m_text->setScrolling(m_scrolls);
  if (changesZoom(m_zoomFactor)) m_text->setFont(scaledFont(m_text->font(), *m_zoomFactor));
  if (!m_local.isEmpty()) m_text->showHtmlFile(m_local.toLocalFile());
  m_layout->addWidget(m_text);
  m_layout->setCurrentWidget(m_text);
  setFocusProxy(m_text);
}

}  // namespace ostrak
