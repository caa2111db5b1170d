#include "Dictionary.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace ostrak {

QString literalString(const QVariantMap &dictionary) {
  const QJsonDocument document(QJsonObject::fromVariantMap(dictionary));
  return QString::fromUtf8(document.toJson(QJsonDocument::Compact));
}

}  // namespace ostrak
