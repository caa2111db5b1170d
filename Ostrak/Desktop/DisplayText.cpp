#include "DisplayText.h"

#include <QComboBox>

namespace ostrak {

namespace {

constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popIsolate(0x2069);

}  // namespace

QString displayText(const QString &text, Qt::LayoutDirection direction) {
  if (direction != Qt::RightToLeft || text.isEmpty()) return text;
  return firstStrongIsolate + text + popIsolate;
}

void isolateMenuEntries(QWidget &form) {
  for (QComboBox *menu : form.findChildren<QComboBox *>()) {
    for (int i = 0; i < menu->count(); ++i)
      menu->setItemText(i, displayText(menu->itemText(i), form.layoutDirection()));
  }
}

}  // namespace ostrak
