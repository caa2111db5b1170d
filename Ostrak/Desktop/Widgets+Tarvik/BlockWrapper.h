#pragma once

#include <QObject>

#include "Control.h"

namespace ostrak {

// Holds the block of setActionBlock as a child of its control.
class BlockWrapper final : public QObject {
  Q_OBJECT

 public:
  BlockWrapper(QWidget &control, ActionBlock block);
  ~BlockWrapper() override;

  // The wrapper of this control; null when it has none.
  [[nodiscard]] static BlockWrapper *of(const QWidget &control);

  [[nodiscard]] const ActionBlock &block() const { return m_block; }
  void invoke();

 private:
  QWidget &m_control;
  ActionBlock m_block;
};

}  // namespace ostrak
