#pragma once

#include <QProxyStyle>

namespace ostrak {

// The style of the desktop, but with icons, check marks and radio marks that grow with the text
// beside them, and, where the style draws them black on dark grey, can be seen. Main thread.
class TextSizedStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  TextSizedStyle();
  ~TextSizedStyle() override;

  [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption *option,
                                const QWidget *widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
};

}  // namespace ostrak
