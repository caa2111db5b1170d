#pragma once

#include <functional>

class QAbstractButton;
class QAbstractSlider;
class QComboBox;
class QLineEdit;
class QWidget;

namespace ostrak {

// Gets the control that was used.
using ActionBlock = std::function<void(QWidget &sender)>;

// Makes the block the control's action: what happens when a person presses a button, picks an entry
// of a pop-up menu, ends a text with Return or moves a slider. A control has one, which lives as
// long as the control; an empty block takes it away. It may replace itself and may delete the
// control. Main thread.
void setActionBlock(QAbstractButton &control, ActionBlock block);
void setActionBlock(QComboBox &control, ActionBlock block);
void setActionBlock(QLineEdit &control, ActionBlock block);
void setActionBlock(QAbstractSlider &control, ActionBlock block);

// The control's block; empty when it has none.
[[nodiscard]] ActionBlock actionBlock(const QWidget &control);

}  // namespace ostrak
