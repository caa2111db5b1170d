#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>

namespace ostrak {

// The room that the text takes in this font when lines longer than `maxWidth` are broken between
// words, in device-independent pixels. A word that is wider by itself makes the result wider. 0 or
// less breaks no line. Main thread.
[[nodiscard]] QSizeF sizeUsingFont(const QString &text, const QFont &font, qreal maxWidth);

}  // namespace ostrak
