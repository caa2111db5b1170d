#include "TextMeasure.h"

#include <QFontMetricsF>
#include <QRectF>

namespace ostrak {

QSizeF sizeUsingFont(const QString &text, const QFont &font, qreal maxWidth) {
  constexpr qreal unbounded = 1e6;
  const QFontMetricsF metrics(font);
  if (text.isEmpty()) return {0, metrics.height()};
  const QRectF room(0, 0, maxWidth > 0 ? maxWidth : unbounded, unbounded);
  const int flags = maxWidth > 0 ? int{Qt::TextWordWrap} : 0;
  return metrics.boundingRect(room, flags, text).size();
}

}  // namespace ostrak
