#pragma once

#include <QColor>

namespace ostrak {

// The opaque colour that holds `share` of `strong`, of 0 to 1, and for the rest `weak`.
[[nodiscard]] QColor mixed(const QColor &strong, const QColor &weak, double share);

}  // namespace ostrak
