#include "JobRowLayout.h"

#include <QFontMetrics>
#include <QStyle>

namespace decant {

namespace {

constexpr int sideMargin = 16;
constexpr int lineGap = 4;
constexpr int topMargin = 9;
constexpr int buttonGap = 4;
constexpr int barWidthInCharacters = 24;

int lineHeight(const QFont &font) {
  return QFontMetrics(font).height();
}

// Large enough to hit, small enough for the line.
int buttonSize(const QFont &font) {
  return lineHeight(font) + 6;
}

}  // namespace

int JobRowLayout::rowHeight(const QFont &font) {
  return 2 * topMargin + buttonSize(font) + lineGap + lineHeight(font);
}

JobRowLayout JobRowLayout::of(const QRect &row, const QFont &font, JobState state,
                              Qt::LayoutDirection direction) {
  const int size = buttonSize(font);
  const QRect inner = row.adjusted(sideMargin, topMargin, -sideMargin, -topMargin);
  const auto placed = [&](const QRect &rect) { return QStyle::visualRect(direction, row, rect); };
  JobRowLayout layout;
  int end = inner.right() + 1;
  const auto button = [&] {
    end -= size;
    const QRect rect(end, inner.top(), size, size);
    end -= buttonGap;
    return placed(rect);
  };
  layout.remove = button();
  layout.arrow = button();
  const bool ended = state == JobStateFinished || state == JobStateFailed;
  if (!ended) layout.pauseContinue = button();
  layout.name = placed(QRect(inner.left(), inner.top(), end - inner.left(), size));
  const int below = inner.top() + size + lineGap;
  int begin = inner.left();
  if (state == JobStateConverting || state == JobStatePaused) {
    const int width =
        qMin(QFontMetrics(font).averageCharWidth() * barWidthInCharacters, inner.width() / 3);
    const int thick = qMax(6, lineHeight(font) / 2);
    layout.progress = placed(QRect(begin, below + (lineHeight(font) - thick) / 2, width, thick));
    begin += width + 2 * buttonGap;
  }
  layout.status = placed(QRect(begin, below, inner.right() + 1 - begin, lineHeight(font)));
  return layout;
}

JobRowLayout::Part JobRowLayout::partAt(const QPoint &position) const {
  if (pauseContinue.contains(position)) return Part::PauseContinue;
  if (arrow.contains(position)) return Part::Arrow;
  if (remove.contains(position)) return Part::Remove;
  return Part::None;
}

}  // namespace decant
