#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace ostrak {

// How a value of the settings store stands in the settings file, which gives only text back. Pure.
//
// A text stands as it is, everything else as JSON: numbers and booleans bare, so that a line like
// "AACBitrate=2" written by hand is the integer 2; lists and maps; bytes as {"@data": base64}. A
// text that would itself be read as JSON is quoted. A map whose only key begins with "@" is wrapped
// in
// {"@map": …}, so that it is not taken for bytes.
[[nodiscard]] QString encodedForStore(const QVariant &value);
[[nodiscard]] QVariant decodedFromStore(const QString &text);

// The value as a restart would give it back: integers as 64 bits, 32-bit floats as the shortest
// double that reads as the same float, lists and maps of any kind as QVariantList and QVariantMap.
[[nodiscard]] QVariant normalizedForStore(const QVariant &value);

// A key as it stands in the settings file and back: "/" and "\" would make groups there.
[[nodiscard]] QString storeKey(const QString &key);
[[nodiscard]] QString keyFromStore(const QString &stored);

}  // namespace ostrak
