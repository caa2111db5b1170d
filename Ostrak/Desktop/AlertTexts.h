#pragma once

#include <QString>

class QWidget;

namespace ostrak {

// The same text with places to break in words that have none for a long stretch, like the names of
// files: for labels only, the places are characters that cannot be seen.
[[nodiscard]] QString breakable(const QString &text);

// `body`, or an area that scrolls it where it would take up too much of the screen; in both cases a
// child of `dialog`.
[[nodiscard]] QWidget *heldToScreen(QWidget *body, QWidget *dialog);

}  // namespace ostrak
