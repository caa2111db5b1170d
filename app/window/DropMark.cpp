#include "DropMark.h"

#include <QEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace decant {

namespace {

constexpr qreal thickness = 3;  // pixels
constexpr qreal roundness = 6;

}  // namespace

DropMark::DropMark(QWidget &place) : QWidget(place.parentWidget()), m_place(place) {
  setObjectName(u"dropMark"_s);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setGeometry(place.geometry());
  place.installEventFilter(this);
  hide();
}

DropMark::~DropMark() = default;

bool DropMark::eventFilter(QObject *watched, QEvent *event) {
  const bool moved = event->type() == QEvent::Resize || event->type() == QEvent::Move;
  if (watched == &m_place && moved) setGeometry(m_place.geometry());
  return QWidget::eventFilter(watched, event);
}

void DropMark::paintEvent(QPaintEvent *) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Highlight), thickness));
  const qreal inset = thickness / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), roundness,
                          roundness);
}

}  // namespace decant
