#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace decant {

// The position, in seconds, of the earliest "out_time_ms=" line of a newly written part of a
// progress file; nothing when it has none, or one that is zero, negative or not a number. The unit
// of the field is microseconds, whatever its name says. Pure.
[[nodiscard]] std::optional<double> progressSeconds(QByteArrayView part);

// Percent within 0 and 100; nothing while the running time is unknown or 0.
[[nodiscard]] std::optional<double> progressPercent(double seconds,
                                                    std::optional<int> runtimeSeconds);

// Reads a growing progress file piece by piece: each call reads what was written since the last
// one. A line that is not finished yet is left for the next call.
class ProgressReader final {
 public:
  explicit ProgressReader(QString path) : m_path(std::move(path)) {}
  // The position of the newly written part; nothing when the file cannot be opened yet.
  [[nodiscard]] std::optional<double> read();
  [[nodiscard]] quint64 lastFileSize() const { return m_lastFileSize; }

 private:
  QString m_path;
  quint64 m_lastFileSize = 0;
};

}  // namespace decant
