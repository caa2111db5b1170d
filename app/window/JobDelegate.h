#pragma once

#include <QIcon>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

#include "JobRowLayout.h"

namespace decant {

// Paints the rows of the job list in the desktop's own style.
class JobDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit JobDelegate(QObject *parent = nullptr);
  ~JobDelegate() override;

  // The button that the pointer is on, and whether it is held down.
  void setHot(const QModelIndex &index, JobRowLayout::Part part, bool pressed);
  // Draws the buttons' pictures anew, in the colours of the palette.
  void loadIcons(const QPalette &palette);

  void paint(QPainter *painter, const QStyleOptionViewItem &option,
             const QModelIndex &index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                               const QModelIndex &index) const override;

 private:
  void paintButton(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index,
                   JobRowLayout::Part part, const QRect &rect) const;
  static void paintBar(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                       double percent);

  QIcon m_pause;
  QIcon m_start;
  QIcon m_arrow;
  QIcon m_remove;
  QPersistentModelIndex m_hotIndex;
  JobRowLayout::Part m_hotPart = JobRowLayout::Part::None;
  bool m_pressed = false;
};

}  // namespace decant
