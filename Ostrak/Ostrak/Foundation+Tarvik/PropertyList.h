#pragma once

#include <QByteArray>
#include <QVariantList>
#include <QVariantMap>
#include <optional>

namespace ostrak {

// A property list in XML form: lists and dictionaries of texts, numbers, booleans, bytes and dates,
// at any depth. Nothing, and a log line, for a value of another type, an absent one included, or a
// text with characters that XML cannot hold. Pure, any thread.
[[nodiscard]] std::optional<QByteArray> XMLData(const QVariantMap &dictionary);
[[nodiscard]] std::optional<QByteArray> XMLData(const QVariantList &list);

}  // namespace ostrak
