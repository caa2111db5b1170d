#pragma once

#include <QString>
#include <functional>
#include <memory>

class QWidget;

namespace ostrak {

// Loads the interface file `name`.ui from the bundle's resources, below `parent`. The objects in it
// carry the names of their outlets. Texts in the file are English keys and come back in the user's
// language, the entries of menus as displayText gives them. Null, with a log line, when the file is
// missing or broken. `custom` makes the widgets of classes that the loader does not know; it
// answers null for others. Main thread.
using WidgetMaker = std::function<QWidget *(const QString &className, QWidget *parent)>;
[[nodiscard]] QWidget *loadInterface(const QString &name, QWidget *parent = nullptr,
                                     const WidgetMaker &custom = {});

// The outlet of this name below `window`. It must be there: a form without it is a broken build,
// and the program ends with the name of what is missing.
template <typename Widget>
[[nodiscard]] Widget &outlet(QWidget &window, const QString &name);

[[noreturn]] void outletMissing(const QString &name);

}  // namespace ostrak

#include <QWidget>

template <typename Widget>
Widget &ostrak::outlet(QWidget &window, const QString &name) {
  auto *found = window.findChild<Widget *>(name);
  if (!found) outletMissing(name);
  return *found;
}
