#include "WheelGuard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

namespace decant {

WheelGuard::WheelGuard(QObject *parent) : QObject(parent) {}

WheelGuard::~WheelGuard() = default;

void WheelGuard::guard(QWidget &form) {
  for (QWidget *control : form.findChildren<QWidget *>()) {
    if (!qobject_cast<QComboBox *>(control) && !qobject_cast<QAbstractSpinBox *>(control)) continue;
    control->setFocusPolicy(Qt::StrongFocus);  // the wheel would give them the focus first
    control->installEventFilter(this);
  }
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event) {
  const auto *control = qobject_cast<QWidget *>(watched);
  if (event->type() != QEvent::Wheel || !control || control->hasFocus())
    return QObject::eventFilter(watched, event);
  event->ignore();
  return true;
}

}  // namespace decant
