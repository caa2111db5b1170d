#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace ostrak {

// The icon of a name from the desktop's theme, else the shipped picture of `fallback` (without
// extension, from the bundle's images), drawn in the palette's text colour so that it shows on
// light and on dark. `palette` colours the shipped one only.
[[nodiscard]] QIcon themeIcon(const QString &themeName, const QString &fallback,
                              const QPalette &palette);
// The shipped picture in one colour.
[[nodiscard]] QIcon shippedIcon(const QString &name, const QColor &color, const QColor &disabled);

}  // namespace ostrak
