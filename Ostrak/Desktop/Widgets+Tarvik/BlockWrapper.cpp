#include "BlockWrapper.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

const QString wrapperName = u"Tarvik_NSControl_BlockAction"_s;

}  // namespace

BlockWrapper::BlockWrapper(QWidget &control, ActionBlock block)
    : QObject(&control), m_control(control), m_block(std::move(block)) {
  setObjectName(wrapperName);
}

BlockWrapper::~BlockWrapper() = default;

BlockWrapper *BlockWrapper::of(const QWidget &control) {
  return control.findChild<BlockWrapper *>(wrapperName, Qt::FindDirectChildrenOnly);
}

void BlockWrapper::invoke() {
  // The block may take this wrapper away while it runs.
  const ActionBlock block = m_block;
  block(m_control);
}

}  // namespace ostrak
