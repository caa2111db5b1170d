#include "RealKeyboardModifiers.h"

#include <QGuiApplication>

bool RealKeyboardModifiers::shiftHeld() const {
  return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

bool RealKeyboardModifiers::altHeld() const {
  return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::AltModifier);
}
