#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QVariantList>
#include <QVariantMap>
#include <optional>

namespace ostrak {

// JSON to and from bytes, UTF-8 without line breaks. Every failure is nothing and a log line. Pure,
// any thread.

// Fails on what JSON cannot say: infinite numbers, values of other types than texts, numbers,
// booleans, nothing, lists and dictionaries.
[[nodiscard]] std::optional<QByteArray> JSONData(const QVariantList &list);
[[nodiscard]] std::optional<QByteArray> JSONData(const QVariantMap &dictionary);
[[nodiscard]] std::optional<QByteArray> JSONData(const QJsonArray &list);
[[nodiscard]] std::optional<QByteArray> JSONData(const QJsonObject &dictionary);

// A list or a dictionary, of the kind that the name says.
[[nodiscard]] std::optional<QJsonValue> JSONObject(const QByteArray &bytes);
[[nodiscard]] std::optional<QJsonArray> JSONArray(const QByteArray &bytes);
[[nodiscard]] std::optional<QJsonObject> JSONDictionary(const QByteArray &bytes);

}  // namespace ostrak
