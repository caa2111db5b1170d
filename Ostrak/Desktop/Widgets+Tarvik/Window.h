#pragma once

#include <QString>

class QWidget;

namespace ostrak {

// A modal sheet over a window while something takes long: a title, a line that tells how far it is,
// and a bar that moves. From any thread; the three run on the main thread in the order in which
// they were called. The window lives when they are called; when it has gone by their turn, they do
// nothing.

// Shows the sheet and returns at once. A window has one: a second call gives it another title and
// empties its line.
void beginProgress(QWidget &window, const QString &title);
// Nothing without a sheet.
void setProgressMessage(QWidget &window, const QString &text);
void endProgress(QWidget &window);

// Closes the window unless it refuses, by ignoring its close event. For windows without a border,
// which have no close button. Main thread.
void performBorderlessClose(QWidget &window);

}  // namespace ostrak
