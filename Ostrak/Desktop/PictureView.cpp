#include "PictureView.h"

#include <QPainter>

namespace ostrak {

PictureView::PictureView(QWidget *parent) : QWidget(parent) {
  setAcceptDrops(false);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
}

PictureView::~PictureView() = default;

void PictureView::setPicture(const QIcon &picture, const QSize &size) {
  m_picture = picture;
  m_size = size;
  updateGeometry();
  update();
}

void PictureView::paintEvent(QPaintEvent *) {
  const QSize fitting = m_size.scaled(size().boundedTo(m_size), Qt::KeepAspectRatio);
  QRect place(QPoint(), fitting);
  place.moveCenter(rect().center());
  QPainter painter(this);
  m_picture.paint(&painter, place);
}

}  // namespace ostrak
