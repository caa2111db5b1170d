#pragma once

#include <QColor>
#include <QImage>
#include <QTest>

#include "JobListModel.h"
#include "JobListView.h"
#include "JobRowLayout.h"
#include "WindowBench.h"

// The rows of the job list as a person sees and hits them.
class JobRows final {
 public:
  explicit JobRows(WindowBench &bench) : m_bench(bench) {}

  [[nodiscard]] decant::JobListView &view() const {
    return *m_bench.find<decant::JobListView>(QStringLiteral("jobList"));
  }
  [[nodiscard]] QModelIndex index(int row) const { return view().model()->index(row, 0); }
  [[nodiscard]] decant::JobRowLayout layout(int row) const {
    const auto state = index(row).data(decant::JobListModel::StateRole).toInt();
    return decant::JobRowLayout::of(view().visualRect(index(row)), view().font(),
                                    static_cast<decant::JobState>(state), view().layoutDirection());
  }
  void clickAt(const QPoint &place, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::mouseClick(view().viewport(), Qt::LeftButton, modifiers, place);
  }
  void clickPauseContinue(int row) const { clickAt(layout(row).pauseContinue.center()); }
  void clickArrow(int row) const { clickAt(layout(row).arrow.center()); }
  void clickRemove(int row) const { clickAt(layout(row).remove.center()); }
  // Selects by the name, as a click on the row does.
  void select(int row, Qt::KeyboardModifiers modifiers = {}) const {
    clickAt(layout(row).name.center(), modifiers);
  }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(&view(), key, modifiers);
  }
  [[nodiscard]] QList<int> selected() const {
    QList<int> rows;
    for (const QModelIndex &each : view().selectionModel()->selectedRows())
      rows.append(each.row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  [[nodiscard]] decant::JobState state(int row) const { return job(row).state(); }
  [[nodiscard]] QString destination(int row) const {
    return job(row).fileInfo().destinationURL.toLocalFile();
  }
  // Whether the status line has a dot of this colour.
  [[nodiscard]] bool shows(int row, const QColor &color) const {
    QImage image(view().viewport()->size(), QImage::Format_RGB32);
    view().viewport()->render(&image);
    const QRect place = layout(row).status;
    for (int y = place.top(); y <= place.bottom(); ++y)
      for (int x = place.left(); x <= qMin(place.right(), image.width() - 1); ++x)
        if (image.pixelColor(x, y) == color) return true;
    return false;
  }

 private:
  [[nodiscard]] const decant::ConversionJob &job(int row) const {
    return *m_bench.queue().taskArray().at(row);
  }
  WindowBench &m_bench;
};
