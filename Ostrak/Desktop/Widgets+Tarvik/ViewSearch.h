#pragma once

#include <QList>
#include <QWidget>

namespace ostrak {

// Looking for widgets below another one. A window that has another as its parent is a window of its
// own and no part of it: it is left out, with all that it holds. Main thread.

// The first widget of class View in the tree below and including `view`: itself, else depth first
// in the order of its children. Null when there is none.
//
//   QTabWidget *tabs = viewWithClass<QTabWidget>(window);
template <typename View>
[[nodiscard]] View *viewWithClass(QWidget &view) {
  if (auto *found = qobject_cast<View *>(&view)) return found;
  for (QObject *child : view.children()) {
    auto *below = qobject_cast<QWidget *>(child);
    if (!below || below->isWindow()) continue;
    if (auto *found = viewWithClass<View>(*below)) return found;
  }
  return nullptr;
}

// Every widget below `view`, each before those that it holds.
[[nodiscard]] QList<QWidget *> allSubviews(const QWidget &view);

// The first widget below `view` whose dynamic property "tag" is `tag`, in the order of allSubviews.
// It must be there: a form without it is a broken build, and the program ends as with a missing
// outlet.
[[nodiscard]] QWidget &assertedViewWithTag(const QWidget &view, int tag);

}  // namespace ostrak
