#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include "Alerts.h"

namespace decant {

// An object as one line of UTF-8 with its line end.
[[nodiscard]] QByteArray jsonLine(const QJsonObject &object);
// A text, or null where there is none.
[[nodiscard]] QJsonValue jsonText(const QString &text);
// "identifier" (null for a plain alert), "title" and "message".
[[nodiscard]] QJsonObject jsonAlert(const ostrak::Alert &alert);

}  // namespace decant
