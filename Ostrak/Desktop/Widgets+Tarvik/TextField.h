#pragma once

class QLabel;
class QLineEdit;

namespace ostrak {

// Shrinks the font of the field until its plain text is no wider than the field: from the present
// size, cut to whole points, down by one point each time; 1 point is the smallest there is. The
// field's margins do not count. Main thread.
void adjustFontSize(QLabel &field);
void adjustFontSize(QLineEdit &field);

}  // namespace ostrak
