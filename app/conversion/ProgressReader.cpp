#include "ProgressReader.h"

#include <QFile>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "LineBreak.h"

namespace decant {

namespace {

constexpr QByteArrayView positionKey("out_time_ms=");
constexpr double unitsPerSecond = 1'000'000;
// More than this without a line break is no progress report, and is not waited for.
constexpr qsizetype longestLine = 65'536;

std::optional<double> positiveNumber(QByteArrayView text) {
  while (!text.isEmpty() && (text.front() == ' ' || text.front() == '\t'))
    text = text.sliced(1);
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || !std::isfinite(number) || number <= 0) return {};
  return number;
}

}  // namespace

std::optional<double> progressSeconds(QByteArrayView part) {
  while (!part.isEmpty()) {
    const auto end = std::find_if(part.begin(), part.end(), isLineBreak);
    const QByteArrayView line = part.first(end - part.begin());
    if (line.startsWith(positionKey)) {
      const auto position = positiveNumber(line.sliced(positionKey.size()));
      return position ? std::optional(*position / unitsPerSecond) : std::nullopt;
    }
    part = part.sliced(std::min(line.size() + 1, part.size()));
  }
  return {};
}

std::optional<double> progressPercent(double seconds, std::optional<int> runtimeSeconds) {
  if (!runtimeSeconds || *runtimeSeconds <= 0 || std::isnan(seconds)) return {};
  return std::clamp(seconds / *runtimeSeconds * 100.0, 0.0, 100.0);
}

std::optional<double> ProgressReader::read() {
  QFile file(m_path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  // A file that has shrunk is another one, or was begun anew.
  if (quint64(file.size()) < m_lastFileSize) m_lastFileSize = 0;
  if (!file.seek(qint64(m_lastFileSize))) return {};
  const QByteArray bytes = file.readAll();
  const auto lastBreak = std::find_if(bytes.crbegin(), bytes.crend(), isLineBreak);
  qsizetype whole = bytes.crend() - lastBreak;
  if (bytes.size() - whole > longestLine) whole = bytes.size();
  m_lastFileSize += quint64(whole);
  return progressSeconds(QByteArrayView(bytes).first(whole));
}

}  // namespace decant
