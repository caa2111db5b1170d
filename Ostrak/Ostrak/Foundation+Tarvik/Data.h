#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace ostrak {

// Operations on bytes. Pure, any thread.

// The bytes as text: by their byte order mark, if there is one, else UTF-8, else ISO Latin-1. A
// byte order mark is not part of the text. Nothing, and a log line, when none of them reads the
// bytes.
[[nodiscard]] std::optional<QString> string(const QByteArray &bytes);
// Two lower-case hexadecimal digits per byte.
[[nodiscard]] QString hexString(const QByteArray &bytes);

// Digests as lower-case hexadecimal text; of a text, of its UTF-8.
[[nodiscard]] QString SHA1(QStringView text);
[[nodiscard]] QString SHA1(const QByteArray &bytes);
[[nodiscard]] QString MD5(const QByteArray &bytes);
[[nodiscard]] QString SHA256(const QByteArray &bytes);

}  // namespace ostrak
