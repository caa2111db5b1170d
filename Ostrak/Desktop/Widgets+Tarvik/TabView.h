#pragma once

#include <QTabWidget>

namespace ostrak {

// Index of the selected tab; -1 without tabs. Main thread.
[[nodiscard]] inline int selectedTabViewIndex(const QTabWidget &tabView) {
  return tabView.currentIndex();
}

}  // namespace ostrak
