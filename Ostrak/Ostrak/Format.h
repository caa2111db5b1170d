#pragma once

#include <QString>
#include <QUrl>
#include <concepts>
#include <initializer_list>
#include <type_traits>
#include <variant>

namespace ostrak {

// One value of a format: a text, a number, or a file location (shown as its path).
class FormatArgument {
 public:
  FormatArgument(const QString &text) : m_value(text) {}
  FormatArgument(QStringView text) : m_value(text.toString()) {}
  FormatArgument(const QUrl &url)
      : m_value(url.isLocalFile() ? url.toLocalFile() : url.toString()) {}
  template <std::signed_integral T>
  FormatArgument(T number) : m_value(static_cast<qint64>(number)) {}
  template <std::unsigned_integral T>
  FormatArgument(T number) : m_value(static_cast<quint64>(number)) {}
  template <std::floating_point T>
  FormatArgument(T number) : m_value(static_cast<double>(number)) {}

  // The value as a text, whatever it is; a null text prints "(null)".
  [[nodiscard]] QString text() const;
  [[nodiscard]] const auto &value() const { return m_value; }

 private:
  std::variant<QString, qint64, quint64, double> m_value;
};

// Fills a printf-style format: "%@" takes any value, "%i %d %u %li %lu %lli %llu %x" integers
// (width, zero padding and length words allowed: "%02lx"), "%f" and "%.2f" floating point, "%s" a
// text, "%%" a percent sign. A placeholder without a value prints "(null)"; values left over are
// ignored. Texts are never read as formats themselves. Callable from any thread.
[[nodiscard]] QString formatText(QStringView format, std::initializer_list<FormatArgument> values);

// The program's one way of formatting text.
//   makeString(u"%@ v%@"_s, name, version)
template <typename... Values>
[[nodiscard]] QString makeString(const QString &format, const Values &...values) {
  return formatText(format, {FormatArgument(values)...});
}

}  // namespace ostrak
