#include "Data.h"

#include <QCryptographicHash>
#include <QStringDecoder>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

std::optional<QString> decoded(const QByteArray &bytes, QStringConverter::Encoding encoding) {
  // Stateless: bytes that end within a character are an error, not a beginning to wait for.
  QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
  QString text = decoder.decode(bytes);
  if (decoder.hasError()) return std::nullopt;
  return text.isNull() ? u""_s : text;
}

QString digest(const QByteArray &bytes, QCryptographicHash::Algorithm algorithm) {
  return hexString(QCryptographicHash::hash(bytes, algorithm));
}

}  // namespace

std::optional<QString> string(const QByteArray &bytes) {
  if (const auto marked = QStringConverter::encodingForData(bytes)) {
    if (auto text = decoded(bytes, *marked)) return text;
  }
  // ISO Latin-1 holds ASCII and takes every byte, so what follows it is never reached. The order is
  // kept for the day that a stricter reader stands in its place.
  for (const auto encoding :
       {QStringConverter::Utf8, QStringConverter::Latin1, QStringConverter::Utf16}) {
    if (auto text = decoded(bytes, encoding)) return text;
  }
  tk_log_level(3, u"Error: could not create string from data %@"_s, hexString(bytes));
  return std::nullopt;
}

QString hexString(const QByteArray &bytes) {
  return QString::fromLatin1(bytes.toHex());
}

QString SHA1(QStringView text) {
  return SHA1(text.toUtf8());
}

QString SHA1(const QByteArray &bytes) {
  return digest(bytes, QCryptographicHash::Sha1);
}

QString MD5(const QByteArray &bytes) {
  return digest(bytes, QCryptographicHash::Md5);
}

QString SHA256(const QByteArray &bytes) {
  return digest(bytes, QCryptographicHash::Sha256);
}

}  // namespace ostrak
