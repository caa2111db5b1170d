#include "TextSizedStyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// What styles have in mind when they say how large a mark or an icon is.
constexpr double usualPoints = 10;

constexpr double frameStrength = 0.5;  // of the text colour

// Smaller letters leave the marks alone: they are to be hit.
double growth(const QWidget *widget) {
  const QFont font = widget ? widget->font() : QApplication::font();
  return qMax(1.0, QFontInfo(font).pointSizeF() / usualPoints);
}

// Fusion draws the frame of a box darker than the window, which in the dark leaves none.
bool isLost(const QStyle &style, const QStyleOption &option) {
  return style.name() == "fusion"_L1 && option.palette.color(QPalette::Window).lightness() < 128;
}

}  // namespace

TextSizedStyle::TextSizedStyle() = default;

TextSizedStyle::~TextSizedStyle() = default;

int TextSizedStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                const QWidget *widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_ToolBarIconSize:
      return qRound(usual * growth(widget));
    default:
      return usual;
  }
}

void TextSizedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                   QPainter *painter, const QWidget *widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool box = element == PE_IndicatorCheckBox;
  if ((!box && element != PE_IndicatorRadioButton) || !isLost(*baseStyle(), *option)) return;
  QColor frame = option->palette.color(QPalette::WindowText);
  frame.setAlphaF(frameStrength);
  const QRectF place = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setPen(frame);
  painter->setBrush(Qt::NoBrush);
  if (box)
    painter->drawRoundedRect(place, 2, 2);
  else
    painter->drawEllipse(place);
  painter->restore();
}

}  // namespace ostrak
