#pragma once

#include <QFont>
#include <QRect>

#include "JobState.h"

namespace decant {

// Where the pieces of one row of the job list lie: the name with its buttons at the end of the
// line, progress bar and status below. Pure; mirrored for right-to-left.
struct JobRowLayout {
  enum class Part { None, PauseContinue, Arrow, Remove };

  QRect name;
  QRect pauseContinue;  // empty when the state has no such button
  QRect arrow;
  QRect remove;
  QRect progress;  // empty when the state has no bar
  QRect status;

  // `row` is the whole row; `font` that of the view.
  [[nodiscard]] static JobRowLayout of(const QRect &row, const QFont &font, JobState state,
                                       Qt::LayoutDirection direction);
  [[nodiscard]] static int rowHeight(const QFont &font);
  [[nodiscard]] Part partAt(const QPoint &position) const;
};

}  // namespace decant
