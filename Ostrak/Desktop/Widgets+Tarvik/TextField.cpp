#include "TextField.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QLabel>
#include <QLineEdit>

namespace ostrak {

namespace {

void shrink(QWidget &field, const QString &text) {
  QFont font = field.font();
  int size = static_cast<int>(QFontInfo(font).pointSizeF());
  if (font.pointSizeF() > 0) size = static_cast<int>(font.pointSizeF());
  size = qMax(1, size);
  font.setPointSize(size);
  while (size > 1 && QFontMetricsF(font).horizontalAdvance(text) > field.width())
    font.setPointSize(--size);
  field.setFont(font);
}

}  // namespace

void adjustFontSize(QLabel &field) {
  shrink(field, field.text());
}

void adjustFontSize(QLineEdit &field) {
  shrink(field, field.text());
}

}  // namespace ostrak
