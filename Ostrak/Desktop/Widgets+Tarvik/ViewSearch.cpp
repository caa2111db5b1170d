#include "ViewSearch.h"

#include <QVariant>
#include <algorithm>

#include "InterfaceFile.h"

using namespace Qt::StringLiterals;

namespace ostrak {

QList<QWidget *> allSubviews(const QWidget &view) {
  QList<QWidget *> found;
  for (QObject *child : view.children()) {
    auto *below = qobject_cast<QWidget *>(child);
    if (!below || below->isWindow()) continue;
    found.append(below);
    found.append(allSubviews(*below));
  }
  return found;
}

QWidget &assertedViewWithTag(const QWidget &view, int tag) {
  const QList<QWidget *> views = allSubviews(view);
  const auto found = std::ranges::find_if(views, [tag](const QWidget *each) {
    const QVariant own = each->property("tag");
    return own.isValid() && own.toInt() == tag;
  });
  if (found == views.end()) outletMissing(u"tag %1"_s.arg(tag));
  return **found;
}

}  // namespace ostrak
