#pragma once

#include <QString>

namespace ostrak {

// A text as it is put on the screen in this direction: between mirrored controls, "[5.1] 128 kb/s"
// keeps its own order by being isolated. For the display only; what is stored stays as it is.
[[nodiscard]] QString displayText(const QString &text, Qt::LayoutDirection direction);

}  // namespace ostrak
