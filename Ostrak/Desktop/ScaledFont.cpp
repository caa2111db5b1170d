#include "ScaledFont.h"

namespace ostrak {

QFont scaledFont(QFont font, double factor) {
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(qMax(1, qRound(font.pixelSize() * factor)));
  }
  return font;
}

}  // namespace ostrak
