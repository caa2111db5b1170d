#include "ThemeIcon.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include "Logging.h"
#include "Ostrak.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

// Draws one shipped drawing in the colour of the moment, at any size and resolution.
class DrawingEngine final : public QIconEngine {
 public:
  DrawingEngine(QByteArray drawing, const QColor &color, const QColor &disabled)
      : m_drawing(std::move(drawing)), m_color(color), m_disabled(disabled) {}

  void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override {
    const qreal ratio = painter->device()->devicePixelRatioF();
    QImage image(rect.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter drawn(&image);
    QSvgRenderer(m_drawing).render(&drawn);
    drawn.setCompositionMode(QPainter::CompositionMode_SourceIn);
    drawn.fillRect(image.rect(), mode == QIcon::Disabled ? m_disabled : m_color);
    drawn.end();
    painter->drawImage(rect, image);
  }

  QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap made(size);
    made.fill(Qt::transparent);
    QPainter painter(&made);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return made;
  }

  QIconEngine *clone() const override { return new DrawingEngine(m_drawing, m_color, m_disabled); }

 private:
  QByteArray m_drawing;
  QColor m_color;
  QColor m_disabled;
};

}  // namespace

QIcon shippedIcon(const QString &name, const QColor &color, const QColor &disabled) {
  QFile file(tk->resDir() + u"/images/"_s + name + u".svg"_s);
  if (!file.open(QIODevice::ReadOnly)) {
    tk_log_level(3, u"Error: there is no named image with name: %@"_s, name);
    return {};
  }
  return QIcon(new DrawingEngine(file.readAll(), color, disabled));
}

QIcon themeIcon(const QString &themeName, const QString &fallback, const QPalette &palette) {
  if (QIcon::hasThemeIcon(themeName)) return QIcon::fromTheme(themeName);
  return shippedIcon(fallback, palette.color(QPalette::Active, QPalette::ButtonText),
                     palette.color(QPalette::Disabled, QPalette::ButtonText));
}

}  // namespace ostrak
