#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <optional>

#include "Alerts.h"

namespace decant {

// An object as one line of UTF-8 with its line end.
[[nodiscard]] QByteArray jsonLine(const QJsonObject &object);
// A text or a number, or null where there is none.
[[nodiscard]] QJsonValue jsonText(const QString &text);
template <typename Number>
[[nodiscard]] QJsonValue jsonNumber(std::optional<Number> number) {
  return number ? QJsonValue(*number) : QJsonValue(QJsonValue::Null);
}
// "identifier" (null for a plain alert), "title" and "message".
[[nodiscard]] QJsonObject jsonAlert(const ostrak::Alert &alert);

}  // namespace decant
