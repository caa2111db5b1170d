#include "JsonLine.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace decant {

QByteArray jsonLine(const QJsonObject &object) {
  QByteArray line = QJsonDocument(object).toJson(QJsonDocument::Compact);
  line += '\n';
  return line;
}

QJsonValue jsonText(const QString &text) {
  return text.isNull() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QJsonObject jsonAlert(const ostrak::Alert &alert) {
  return {{u"identifier"_s, jsonText(alert.identifier.isEmpty() ? QString() : alert.identifier)},
          {u"title"_s, alert.title},
          {u"message"_s, alert.message}};
}

}  // namespace decant
