#pragma once

#include <QString>
#include <QUrl>
#include <QVariant>

namespace ostrak {

// Typed reading and writing of the settings store of `tk` by key, from any thread. A value that is
// absent or of another type reads as nothing: a null text, 0, an empty list. Setters take effect at
// once for every reader and never flush.
[[nodiscard]] QString defaultString(const QString &key);
void setDefaultString(const QString &key, const QString &value);
[[nodiscard]] qint64 defaultInt(const QString &key);
void setDefaultInt(const QString &key, qint64 value);
[[nodiscard]] float defaultFloat(const QString &key);
void setDefaultFloat(const QString &key, float value);
[[nodiscard]] QVariantList defaultArray(const QString &key);
void setDefaultArray(const QString &key, const QVariantList &value);
[[nodiscard]] QVariantMap defaultDict(const QString &key);
void setDefaultDict(const QString &key, const QVariantMap &value);
[[nodiscard]] QVariant defaultObject(const QString &key);
void setDefaultObject(const QString &key, const QVariant &value);
[[nodiscard]] QUrl defaultURL(const QString &key);
void setDefaultURL(const QString &key, const QUrl &value);

}  // namespace ostrak
