#pragma once

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

 private:
  WindowBench &m_bench;
};
