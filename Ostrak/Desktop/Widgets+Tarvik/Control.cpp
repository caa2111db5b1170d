#include "Control.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QLineEdit>

#include "BlockWrapper.h"

namespace ostrak {

namespace {

template <typename Control, typename Signal>
void attach(Control &control, Signal used, ActionBlock block) {
  delete BlockWrapper::of(control);
  if (!block) return;
  auto *wrapper = new BlockWrapper(control, std::move(block));
  QObject::connect(&control, used, wrapper, &BlockWrapper::invoke);
}

}  // namespace

void setActionBlock(QAbstractButton &control, ActionBlock block) {
  attach(control, &QAbstractButton::clicked, std::move(block));
}

void setActionBlock(QComboBox &control, ActionBlock block) {
  attach(control, &QComboBox::activated, std::move(block));
}

void setActionBlock(QLineEdit &control, ActionBlock block) {
  attach(control, &QLineEdit::returnPressed, std::move(block));
}

void setActionBlock(QAbstractSlider &control, ActionBlock block) {
  attach(control, &QAbstractSlider::valueChanged, std::move(block));
}

ActionBlock actionBlock(const QWidget &control) {
  const BlockWrapper *wrapper = BlockWrapper::of(control);
  return wrapper ? wrapper->block() : ActionBlock();
}

}  // namespace ostrak
