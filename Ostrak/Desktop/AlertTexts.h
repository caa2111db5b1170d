#pragma once

#include <QString>

class QWidget;

namespace ostrak {

// The same text with places to break in words that have none for a long stretch, like the names of
// files: for labels only, the places are characters that cannot be seen.
[[nodiscard]] QString breakable(const QString &text);

// What `breakable` was made of.
[[nodiscard]] QString unbroken(QString text);
// A title for a button, in which an ampersand is one.
[[nodiscard]] QString buttonTitle(QString title);

// `body`, or an area that scrolls it where it would take up too much of the screen; in both cases a
// child of `dialog`.
[[nodiscard]] QWidget *heldToScreen(QWidget *body, QWidget *dialog);

}  // namespace ostrak
