#include "RealUrlOpener.h"

#include <QDesktopServices>

bool RealUrlOpener::open(const QUrl &url) {
  return url.isValid() && QDesktopServices::openUrl(url);
}
