#pragma once

#include <QString>
#include <QVariantMap>
#include <exception>

namespace ostrak {

// A documented exception: a malformed report, a bookmark that fails, a choice out of range. Nothing
// else is thrown across layers. It is caught at intake's edge or at the event loop's.
class Exception : public std::exception {
 public:
  Exception(QString name, QString reason, QVariantMap userInfo = {});
  ~Exception() override;

  [[nodiscard]] const QString &name() const { return m_name; }
  [[nodiscard]] const QString &reason() const { return m_reason; }
  [[nodiscard]] const QVariantMap &userInfo() const { return m_userInfo; }
  // "name: reason" as UTF-8.
  [[nodiscard]] const char *what() const noexcept override;

 private:
  QString m_name;
  QString m_reason;
  QVariantMap m_userInfo;
  QByteArray m_what;
};

// An index beyond the end of a list: a report line without the piece that its grammar promises, or
// a language choice that names no language. Its name is "RangeException".
class RangeError final : public Exception {
 public:
  explicit RangeError(QString reason);
};

}  // namespace ostrak
