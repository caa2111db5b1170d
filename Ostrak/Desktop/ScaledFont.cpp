#include "ScaledFont.h"

#include <QFontDatabase>

namespace ostrak {

QFont scaledFont(QFont font, double factor) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(qMax(1, qRound(font.pixelSize() * factor)));
  }
  return font;
}

QFont systemFontOfAtLeast(double points) {
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  font.setPointSizeF(qMax(points, font.pointSizeF()));
  return font;
}

}  // namespace ostrak
