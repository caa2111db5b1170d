#include "DisplayText.h"

namespace ostrak {

namespace {

constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popIsolate(0x2069);

}  // namespace

QString displayText(const QString &text, Qt::LayoutDirection direction) {
  if (direction != Qt::RightToLeft || text.isEmpty()) return text;
  return firstStrongIsolate + text + popIsolate;
}

}  // namespace ostrak
