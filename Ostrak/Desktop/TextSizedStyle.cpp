#include "TextSizedStyle.h"

#include <QApplication>
#include <QFontInfo>
#include <QWidget>

namespace ostrak {

namespace {

// What styles have in mind when they say how large a mark or an icon is.
constexpr double usualPoints = 10;

// Smaller letters leave the marks alone: they are to be hit.
double growth(const QWidget *widget) {
  const QFont font = widget ? widget->font() : QApplication::font();
  return qMax(1.0, QFontInfo(font).pointSizeF() / usualPoints);
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

}  // namespace ostrak
