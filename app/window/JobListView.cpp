#include "JobListView.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>

#include "JobDelegate.h"
#include "JobListModel.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using ostrak::localized;

namespace decant {

namespace {

using Part = JobRowLayout::Part;

QString toolTipOf(Part part, JobState state) {
  switch (part) {
    case Part::PauseContinue:
      if (state == JobStateConverting) return localized(u"Pause this conversion"_s);
      return state == JobStatePaused ? localized(u"Continue this conversion"_s)
                                     : localized(u"Convert this file now"_s);
    case Part::Arrow:
      return state == JobStateFailed ? localized(u"Explain why it failed"_s)
                                     : localized(u"Show the file in its folder"_s);
    case Part::Remove:
      return localized(u"Take this conversion off the list"_s);
    case Part::None:
      break;
  }
  return {};
}

}  // namespace

JobListView::JobListView(QWidget *parent) : QListView(parent), m_delegate(new JobDelegate(this)) {
  setItemDelegate(m_delegate);
  setMouseTracking(true);
  setUniformItemSizes(true);
  setSelectionMode(ExtendedSelection);
  setFrameShape(NoFrame);
  setAlternatingRowColors(true);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setContextMenuPolicy(Qt::CustomContextMenu);
  setEditTriggers(NoEditTriggers);
  m_delegate->loadIcons(palette());
}

JobListView::~JobListView() = default;

JobListView::Spot JobListView::spotAt(const QPoint &position) const {
  const QModelIndex index = indexAt(position);
  if (!index.isValid()) return {};
  const auto state = static_cast<JobState>(index.data(JobListModel::StateRole).toInt());
  const JobRowLayout layout = JobRowLayout::of(visualRect(index), font(), state, layoutDirection());
  return {QPersistentModelIndex(index), layout.partAt(position)};
}

void JobListView::setHot(const Spot &spot) {
  const bool pressed = m_pressed.part != Part::None && m_pressed == spot;
  const QPersistentModelIndex before = m_hot.index;
  m_hot = spot;
  m_delegate->setHot(spot.index, spot.part, pressed);
  if (before.isValid()) update(before);
  if (spot.index.isValid()) update(spot.index);
}

bool JobListView::pressButton(const QMouseEvent &event) {
  const Spot spot = spotAt(event.position().toPoint());
  if (event.button() != Qt::LeftButton || spot.part == Part::None) return false;
  m_pressed = spot;
  setHot(spot);
  return true;
}

void JobListView::mousePressEvent(QMouseEvent *event) {
  if (!pressButton(*event)) QListView::mousePressEvent(event);
}

// A second quick click is one more press of the button.
void JobListView::mouseDoubleClickEvent(QMouseEvent *event) {
  if (!pressButton(*event)) QListView::mouseDoubleClickEvent(event);
}

void JobListView::mouseMoveEvent(QMouseEvent *event) {
  setHot(spotAt(event->position().toPoint()));
  if (m_pressed.part == Part::None) QListView::mouseMoveEvent(event);
}

void JobListView::mouseReleaseEvent(QMouseEvent *event) {
  if (m_pressed.part == Part::None) {
    QListView::mouseReleaseEvent(event);
    return;
  }
  const Spot spot = spotAt(event->position().toPoint());
  const bool hit = spot == m_pressed;
  m_pressed = {};
  setHot(spot);
  if (!hit) return;
  const QModelIndex index = spot.index;
  if (spot.part == Part::PauseContinue) Q_EMIT pauseContinueClicked(index);
  if (spot.part == Part::Arrow) Q_EMIT arrowClicked(index);
  if (spot.part == Part::Remove) Q_EMIT removeClicked(index);
}

void JobListView::leaveEvent(QEvent *event) {
  setHot({});
  QListView::leaveEvent(event);
}

void JobListView::focusInEvent(QFocusEvent *event) {
  QListView::focusInEvent(event);
  // Who comes by the keyboard can act on the row at once.
  const bool byKeyboard =
      event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (byKeyboard) (void)selectForKeyboard();
}

// The list may have the focus without a selected row: rows came after the focus, or the selected
// one left. Its keys first show where they will act.
void JobListView::keyPressEvent(QKeyEvent *event) {
  static constexpr Qt::Key acting[] = {
      Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Home,  Qt::Key_End,    Qt::Key_Space,
      Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Enter, Qt::Key_Return, Qt::Key_Delete};
  if (std::ranges::find(acting, event->key()) != std::end(acting) && selectForKeyboard()) return;
  QListView::keyPressEvent(event);
}

// Selects the row that the keyboard is on, else the first; false when rows are selected already, or
// there is none.
bool JobListView::selectForKeyboard() {
  if (!selectionModel() || selectionModel()->hasSelection()) return false;
  const QModelIndex row = currentIndex().isValid() ? currentIndex() : model()->index(0, 0);
  if (!row.isValid()) return false;
  selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
  return true;
}

// Rows are alike in height, whatever they show; the list itself would lay all of them out again.
void JobListView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                              const QList<int> &roles) {
  QAbstractItemView::dataChanged(topLeft, bottomRight, roles);
}

void JobListView::changeEvent(QEvent *event) {
  QListView::changeEvent(event);
  const bool colours =
      event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange;
  if (colours) m_delegate->loadIcons(palette());
}

bool JobListView::viewportEvent(QEvent *event) {
  if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
  const auto *help = static_cast<QHelpEvent *>(event);
  const Spot spot = spotAt(help->pos());
  const auto state = static_cast<JobState>(spot.index.data(JobListModel::StateRole).toInt());
  const QString text = spot.part == Part::None ? spot.index.data(Qt::ToolTipRole).toString()
                                               : toolTipOf(spot.part, state);
  QToolTip::showText(help->globalPos(), text, viewport());
  return true;
}

}  // namespace decant
