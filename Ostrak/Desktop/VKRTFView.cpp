#include "VKRTFView.h"

#include <utility>

#include "File.h"
#include "Logging.h"
#include "RichText.h"
#include "RichTextDocument.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace ostrak {

VKRTFView::VKRTFView(QWidget *parent) : PageBrowser(parent) {}

VKRTFView::~VKRTFView() = default;

void VKRTFView::paintEvent(QPaintEvent *event) {
  PageBrowser::paintEvent(event);
  // Not now: reading a file and laying it out is no work for the middle of a paint.
  if (!std::exchange(m_loaded, true))
    QMetaObject::invokeMethod(this, &VKRTFView::load, Qt::QueuedConnection);
}

void VKRTFView::load() {
  showLocalDocument();
  replaceByOnlineCopy(m_remoteHTMLURL);
}

void VKRTFView::showLocalDocument() {
  if (m_localRTFName.isEmpty()) {
    tk_log_level(3, u"Error: localHTMLName not set on VKRTFView"_s);
    return;
  }
  const auto file = contents(resourceURL(m_localRTFName));
  if (!file) {
    tk_log_level(3, u"Error: the document %@ cannot be read"_s, m_localRTFName);
    return;
  }
  showFilled([this, paragraphs = readRichText(*file)] {
    fillDocument(*document(), paragraphs, palette());
  });
}

}  // namespace ostrak
