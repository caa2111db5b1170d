#pragma once

#include <QWidget>

namespace ostrak {

// The first widget of class View in the tree below and including `view`: itself, else depth first
// in the order of its children. Null when there is none. Main thread.
//
//   QTabWidget *tabs = viewWithClass<QTabWidget>(window);
template <typename View>
[[nodiscard]] View *viewWithClass(QWidget &view) {
  if (auto *found = qobject_cast<View *>(&view)) return found;
  for (QObject *child : view.children()) {
    auto *below = qobject_cast<QWidget *>(child);
    if (!below) continue;
    if (auto *found = viewWithClass<View>(*below)) return found;
  }
  return nullptr;
}

}  // namespace ostrak
