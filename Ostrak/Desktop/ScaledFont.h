#pragma once

#include <QFont>

namespace ostrak {

// The font at `factor` times its size, whether that is given in points or in pixels.
[[nodiscard]] QFont scaledFont(QFont font, double factor);

}  // namespace ostrak
