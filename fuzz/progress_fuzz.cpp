// A part of a progress file. Checks that every position found is one that a percentage can be made
// of.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "ProgressReader.h"

// A part of a progress file: every position found is one that a percentage can be made of. The
// first byte is the running time, shifted so that it is negative too.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size < 1) return 0;
  const int runtime = int(data[0]) - 16;
  const auto seconds = decant::progressSeconds(QByteArrayView(data + 1, qsizetype(size - 1)));
  if (!seconds) return 0;
  if (!std::isfinite(*seconds) || *seconds <= 0) std::abort();
  const auto percent = decant::progressPercent(*seconds, runtime);
  if (percent.has_value() != (runtime > 0)) std::abort();
  if (percent && !(*percent >= 0 && *percent <= 100)) std::abort();
  return 0;
}
