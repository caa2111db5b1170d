#include "Conversions.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace ostrak {

QString stringRepresentation(qint64 number) {
  return QString::number(number);
}

QString stringRepresentation(quint64 number) {
  return QString::number(number);
}

QString stringRepresentation(qint32 number) {
  return QString::number(number);
}

QString stringRepresentation(double number) {
  return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString stringRepresentation(const QSet<QString> &set) {
  QStringList elements(set.begin(), set.end());
  elements.sort();
  return elements.join(u", "_s);
}

}  // namespace ostrak
