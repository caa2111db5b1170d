#include "PageBrowser.h"

#include <QPointer>
#include <QScrollBar>
#include <QStringDecoder>
#include <QTextDocument>
#include <QWheelEvent>

#include "Dispatch.h"
#include "File.h"
#include "Logging.h"
#include "OnDemand.h"
#include "PageFetcher.h"
#include "PageLinks.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

QString styleSheetOf(const QPalette &palette) {
  const QString link = palette.color(QPalette::Link).name();
  const QString shade = palette.color(QPalette::AlternateBase).name();
  const QString line = palette.color(QPalette::Mid).name();
  return u"a { color: "_s + link + u"; } th { background-color: "_s + shade +
         u"; text-align: left; } th, td { padding: 4px; border: 1px solid "_s + line +
         u"; } table { border-collapse: collapse; } li { margin-bottom: 4px; }"_s;
}

// Fetches nothing that a page names.
class SealedDocument final : public QTextDocument {
 protected:
  QVariant loadResource(int, const QUrl &) override { return {}; }
};

bool isBlank(const QString &html) {
  SealedDocument document;
  document.setHtml(html);
  return document.toPlainText().trimmed().isEmpty();
}

}  // namespace

PageBrowser::PageBrowser(QWidget *parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setUndoRedoEnabled(false);
  document()->setDocumentMargin(24);
  connect(this, &QTextBrowser::anchorClicked, this, &PageBrowser::followLink);
}

PageBrowser::~PageBrowser() = default;

void PageBrowser::showHtmlFile(const QString &path) {
  if (const auto page = contents(path)) showHtml(htmlOf(*page));
}

void PageBrowser::replaceByOnlineCopy(const QString &address) {
  if (address.isEmpty()) return;
  const auto [fetcher, problem] = loadOnDemand<PageFetcher>(u"OstrakFetch"_s);
  if (!fetcher) {
    tk_log_level(3, u"Error: the online copy %@ cannot be fetched: %@"_s, address, problem);
    return;
  }
  ++m_fetches;
  dispatch_async_back([fetcher = fetcher, address, view = QPointer(this)] {
    const QString html = htmlOf(fetcher->fetch(address).value_or(QByteArray()));
    const bool hasText = !html.isEmpty() && !isBlank(html);
    dispatch_async_main([view, html, hasText] {
      if (!view) return;
      --view->m_fetches;
      if (hasText) view->showHtml(html);
    });
  });
}

void PageBrowser::setScrolling(bool scrolls) {
  m_scrolls = scrolls;
  const auto policy = scrolls ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
  setVerticalScrollBarPolicy(policy);
  setHorizontalScrollBarPolicy(policy);
}

QVariant PageBrowser::loadResource(int, const QUrl &) {
  return {};
}

// A document does not follow the palette by itself.
void PageBrowser::changeEvent(QEvent *event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || !m_fill) return;
  const int place = verticalScrollBar()->value();
  m_fill();
  verticalScrollBar()->setValue(place);
}

void PageBrowser::wheelEvent(QWheelEvent *event) {
  if (m_scrolls)
    QTextBrowser::wheelEvent(event);
  else
    event->ignore();
}

void PageBrowser::scrollContentsBy(int dx, int dy) {
  QTextBrowser::scrollContentsBy(dx, dy);
  if (m_scrolls) return;
  horizontalScrollBar()->setValue(0);
  verticalScrollBar()->setValue(0);
}

void PageBrowser::followLink(const QUrl &link) {
  if (link.isRelative() && link.hasFragment() && link.path().isEmpty())
    scrollToAnchor(link.fragment());
  else if (isForTheBrowser(link))
    open(link);
}

void PageBrowser::showHtml(const QString &html) {
  showFilled([this, html] {
    document()->setDefaultStyleSheet(styleSheetOf(palette()));
    setHtml(html);
  });
}

void PageBrowser::showFilled(std::function<void()> fill) {
  m_fill = std::move(fill);
  m_fill();
}

QString htmlOf(const QByteArray &content) {
  QStringDecoder decoder = QStringDecoder::decoderForHtml(content);
  if (!decoder.isValid()) decoder = QStringDecoder(QStringDecoder::Utf8);
  return decoder(content);
}

}  // namespace ostrak
