#include "VKEditableBorderlessWindow.h"

#include <QShortcut>

#include "Window.h"

namespace ostrak {

VKEditableBorderlessWindow::VKEditableBorderlessWindow(QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint) {
  setFocusPolicy(Qt::StrongFocus);
  const auto *close = new QShortcut(QKeySequence::Close, this);
  connect(close, &QShortcut::activated, this, [this] { performBorderlessClose(*this); });
}

VKEditableBorderlessWindow::~VKEditableBorderlessWindow() = default;

}  // namespace ostrak
