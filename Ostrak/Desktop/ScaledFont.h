#pragma once

#include <QFont>

namespace ostrak {

// The font at `factor` times its size, whether that is given in points or in pixels.
[[nodiscard]] QFont scaledFont(QFont font, double factor);

// The desktop's own font, no smaller than this: someone who has set larger letters for all programs
// gets them here, too.
[[nodiscard]] QFont systemFontOfAtLeast(double points);

}  // namespace ostrak
