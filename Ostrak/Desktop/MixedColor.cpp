#include "MixedColor.h"

namespace ostrak {

QColor mixed(const QColor &strong, const QColor &weak, double share) {
  const auto part = [share](int a, int b) { return qRound(a * share + b * (1 - share)); };
  return {part(strong.red(), weak.red()), part(strong.green(), weak.green()),
          part(strong.blue(), weak.blue())};
}

}  // namespace ostrak
