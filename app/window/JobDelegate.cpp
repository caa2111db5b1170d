#include "JobDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionToolButton>

#include "DisplayText.h"
#include "JobListModel.h"
#include "MixedColor.h"
#include "ThemeIcon.h"

using namespace Qt::StringLiterals;
using ostrak::mixed;

namespace decant {

namespace {

using Part = JobRowLayout::Part;

constexpr double quietShare = 0.7;   // of the text colour, the rest is background
constexpr double grooveShare = 0.3;  // likewise, of what is still to do in the bar

JobState stateOf(const QModelIndex &index) {
  return static_cast<JobState>(index.data(JobListModel::StateRole).toInt());
}

const QStyle &styleOf(const QStyleOptionViewItem &option) {
  return option.widget ? *option.widget->style() : *QApplication::style();
}

// Red enough to be noticed, on light and on dark.
QColor failureColor(const QPalette &palette) {
  return palette.color(QPalette::Base).lightness() < 128 ? QColor(0xff, 0x8a, 0x80)
                                                         : QColor(0xb0, 0x1a, 0x1a);
}

void paintText(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
               const QString &text, const QColor &color, Qt::TextElideMode mode) {
  painter.setPen(color);
  const auto alignment =
      QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
  const QString oneLine = QString(text).replace(u'\n', QChar(0x2424));
  const QString fitting = painter.fontMetrics().elidedText(oneLine, mode, rect.width());
  painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine,
                   ostrak::displayText(fitting, option.direction));
}

// The status line without as many of its parts as must go for the rest to fit.
QString fittingStatus(const QModelIndex &index, const QFontMetrics &metrics, int width) {
  QString line = index.data(JobListModel::StatusRole).toString();
  if (metrics.horizontalAdvance(line) <= width) return line;
  for (const QString &shorter : index.data(JobListModel::ShorterStatusRole).toStringList()) {
    line = shorter;
    if (metrics.horizontalAdvance(line) <= width) break;
  }
  return line;
}

}  // namespace

JobDelegate::JobDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

JobDelegate::~JobDelegate() = default;

void JobDelegate::setHot(const QModelIndex &index, Part part, bool pressed) {
  m_hotIndex = index;
  m_hotPart = part;
  m_pressed = pressed;
}

void JobDelegate::loadIcons(const QPalette &palette) {
  m_pause = ostrak::themeIcon(u"media-playback-pause"_s, u"toolbar_pause"_s, palette);
  m_start = ostrak::themeIcon(u"media-playback-start"_s, u"toolbar_start"_s, palette);
  const QColor color = palette.color(QPalette::Text);
  const QColor disabled = palette.color(QPalette::Disabled, QPalette::Text);
  m_arrow = ostrak::shippedIcon(u"row_reveal"_s, color, disabled);
  m_remove = ostrak::shippedIcon(u"row_remove"_s, color, disabled);
}

QSize JobDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const {
  return {0, JobRowLayout::rowHeight(option.font)};
}

void JobDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                        const QModelIndex &index) const {
  const JobState state = stateOf(index);
  const JobRowLayout layout = JobRowLayout::of(option.rect, option.font, state, option.direction);
  painter->save();
  styleOf(option).drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const auto group =
      option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  const QColor strong =
      option.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
  const QColor weak =
      mixed(strong, option.palette.color(group, selected ? QPalette::Highlight : QPalette::Base),
            quietShare);

  QFont bold = option.font;
  bold.setWeight(QFont::DemiBold);
  painter->setFont(bold);
  paintText(*painter, option, layout.name, index.data(JobListModel::NameRole).toString(), strong,
            Qt::ElideMiddle);
  painter->setFont(option.font);
  const bool failed = state == JobStateFailed;
  // The time left stands at the end of the line and is what people look for.
  paintText(*painter, option, layout.status,
            fittingStatus(index, painter->fontMetrics(), layout.status.width()),
            failed && !selected ? failureColor(option.palette) : weak,
            state == JobStateConverting ? Qt::ElideMiddle : Qt::ElideRight);
  if (!layout.progress.isEmpty()) {
    paintBar(*painter, option, layout.progress, index.data(JobListModel::ProgressRole).toDouble());
  }
  paintButton(*painter, option, index, Part::PauseContinue, layout.pauseContinue);
  paintButton(*painter, option, index, Part::Arrow, layout.arrow);
  paintButton(*painter, option, index, Part::Remove, layout.remove);
  painter->restore();
}

void JobDelegate::paintButton(QPainter &painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index, Part part, const QRect &rect) const {
  if (rect.isEmpty()) return;
  const bool hot = m_hotIndex == index && m_hotPart == part;
  QStyleOptionToolButton button;
  button.rect = rect;
  button.palette = option.palette;
  button.direction = option.direction;
  button.fontMetrics = option.fontMetrics;
  button.subControls = QStyle::SC_ToolButton;
  button.toolButtonStyle = Qt::ToolButtonIconOnly;
  button.state = QStyle::State_Enabled | QStyle::State_AutoRaise;
  if (hot)
    button.state |=
        QStyle::State_MouseOver | (m_pressed ? QStyle::State_Sunken : QStyle::State_Raised);
  const int size = rect.height() - 6;
  button.iconSize = QSize(size, size);
  switch (part) {
    case Part::PauseContinue:
      button.icon = stateOf(index) == JobStateConverting ? m_pause : m_start;
      break;
    case Part::Arrow:
      button.icon = m_arrow;
      break;
    case Part::Remove:
      button.icon = m_remove;
      break;
    case Part::None:
      return;
  }
  styleOf(option).drawComplexControl(QStyle::CC_ToolButton, &button, &painter, option.widget);
}

// Styles draw the empty part of a bar for the window's background, not for a list's: in the dark it
// cannot be seen there, and on a selected row neither can the full one.
void JobDelegate::paintBar(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                           double percent) {
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  const auto group =
      option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
  const auto color = [&](QPalette::ColorRole role) { return option.palette.color(group, role); };
  const QColor groove =
      selected ? mixed(color(QPalette::HighlightedText), color(QPalette::Highlight), grooveShare)
               : mixed(color(QPalette::Text), color(QPalette::Base), grooveShare);
  QRectF done(rect);
  done.setWidth(rect.width() * qBound(0.0, percent / 100, 1.0));
  if (option.direction == Qt::RightToLeft) done.moveRight(QRectF(rect).right());
  QPainterPath shape;
  shape.addRoundedRect(rect, rect.height() / 2.0, rect.height() / 2.0);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(shape, groove);
  painter.setClipRect(done);
  painter.fillPath(shape, color(selected ? QPalette::HighlightedText : QPalette::Highlight));
  painter.restore();
}

}  // namespace decant
