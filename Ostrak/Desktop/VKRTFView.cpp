#include "VKRTFView.h"

#include <QFile>
#include <utility>

#include "Logging.h"
#include "RichText.h"
#include "RichTextDocument.h"
#include "Url.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

constexpr qint64 largestDocument = 4LL * 1024 * 1024;  // bytes

}  // namespace

VKRTFView::VKRTFView(QWidget *parent) : PageBrowser(parent) {}

VKRTFView::~VKRTFView() = default;

void VKRTFView::paintEvent(QPaintEvent *event) {
  if (!std::exchange(m_loaded, true)) load();
  PageBrowser::paintEvent(event);
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
  const QString path = resourcePath(m_localRTFName);
  QFile file(path);
  if (path.isNull() || !file.open(QIODevice::ReadOnly)) {
    tk_log_level(3, u"Error: the document %@ cannot be read"_s, m_localRTFName);
    return;
  }
  fillDocument(*document(), readRichText(file.read(largestDocument)), palette());
}

}  // namespace ostrak
