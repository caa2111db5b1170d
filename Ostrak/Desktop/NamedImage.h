#pragma once

#include <QImage>
#include <QString>

namespace ostrak {

// The picture of that name among the bundle's resources, with or without its extension ("add" finds
// "add.svg", then "add.png"), also in their folder "images". A null image, and a log line, when
// there is none or it cannot be read. Any thread.
[[nodiscard]] QImage namedImage(const QString &name);

}  // namespace ostrak
