#include "PictureView.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace ostrak {

namespace {

QAccessibleInterface *asGraphic(const QString &, QObject *object) {
  auto *picture = qobject_cast<PictureView *>(object);
  return picture ? new QAccessibleWidget(picture, QAccessible::Graphic) : nullptr;
}

}  // namespace

PictureView::PictureView(QWidget *parent) : QWidget(parent) {
  QAccessible::installFactory(&asGraphic);
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
