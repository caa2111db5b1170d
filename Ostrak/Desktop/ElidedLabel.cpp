#include "ElidedLabel.h"

#include <QEvent>
#include <QFontMetrics>
#include <QResizeEvent>
#include <QStyle>

#include "MixedColor.h"
#include "ScaledFont.h"

namespace ostrak {

namespace {

constexpr int gapBelowHint = 6;       // pixels
constexpr double hintSize = 0.9;      // of the label's own font
constexpr double hintStrength = 0.7;  // of the text colour, the rest is background

// A text begins where the controls around it begin, whatever direction it is written in.
void alignWithControls(QLabel &label) {
  const Qt::Alignment side =
      label.layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
  label.setAlignment(side | Qt::AlignAbsolute | Qt::AlignVCenter);
}

}  // namespace

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  alignWithControls(*this);
}

ElidedLabel::~ElidedLabel() = default;

void ElidedLabel::setFullText(const QString &text) {
  m_fullText = text;
  m_fullText.replace(u'\n', QChar(0x2424));
  elide();
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode) {
  m_mode = mode;
  elide();
}

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 4, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent *event) {
  QLabel::resizeEvent(event);
  elide();
}

void ElidedLabel::changeEvent(QEvent *event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) elide();
  if (event->type() == QEvent::LayoutDirectionChange) alignWithControls(*this);
}

void ElidedLabel::elide() {
  const QString shown = fontMetrics().elidedText(m_fullText, m_mode, contentsRect().width());
  setText(shown);
  setToolTip(shown == m_fullText ? QString() : m_fullText);
  setAccessibleName(m_fullText.isEmpty() ? accessibleDescription() : m_fullText);
}

HintLabel::HintLabel(QWidget *parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  followParent();
}

HintLabel::~HintLabel() = default;

void HintLabel::followParent() {
  if (parentWidget()) parentWidget()->installEventFilter(this);
  dress();
}

bool HintLabel::event(QEvent *event) {
  if (event->type() == QEvent::ParentAboutToChange && parentWidget())
    parentWidget()->removeEventFilter(this);
  if (event->type() == QEvent::ParentChange) followParent();
  if (event->type() == QEvent::DynamicPropertyChange) dress();
  return QLabel::event(event);
}

// The label has a size of its own, so that another size around it does not reach it by itself.
bool HintLabel::eventFilter(QObject *watched, QEvent *event) {
  if (watched == parentWidget() && event->type() == QEvent::FontChange) dress();
  return QLabel::eventFilter(watched, event);
}

void HintLabel::changeEvent(QEvent *event) {
  QLabel::changeEvent(event);
  const bool matters = event->type() == QEvent::PaletteChange ||
                       event->type() == QEvent::StyleChange ||
                       event->type() == QEvent::LayoutDirectionChange;
  if (matters && !m_dressing) dress();
}

void HintLabel::resizeEvent(QResizeEvent *event) {
  QLabel::resizeEvent(event);
  m_laidOut = true;
  if (event->size().width() != event->oldSize().width()) updateGeometry();
}

// Of the width that it has. To the layouts a height that depends on a width is a wish only: windows
// may become too small for it, and pages beside it take its room.
int HintLabel::neededHeight() const {
  return heightForWidth(m_laidOut ? width() : QLabel::sizeHint().width());
}

QSize HintLabel::sizeHint() const {
  return {QLabel::sizeHint().width(), neededHeight()};
}

QSize HintLabel::minimumSizeHint() const {
  return {QLabel::minimumSizeHint().width(), neededHeight()};
}

void HintLabel::dress() {
  m_dressing = true;
  if (!alignment().testFlag(Qt::AlignHCenter)) alignWithControls(*this);
  const QWidget *around = parentWidget() ? parentWidget() : this;
  setFont(scaledFont(around->font(), hintSize));
  QPalette quiet = around->palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    const QColor text = quiet.color(group, QPalette::WindowText);
    const QColor paper = quiet.color(group, QPalette::Window);
    quiet.setColor(group, QPalette::WindowText, mixed(text, paper, hintStrength));
  }
  setPalette(quiet);
  if (property("belowCheckBox").toBool()) {
    const int indent = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) +
                       style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, this);
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    setContentsMargins(mirrored ? 0 : indent, 0, mirrored ? indent : 0, gapBelowHint);
  }
  m_dressing = false;
}

}  // namespace ostrak
