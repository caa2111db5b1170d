#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "Diagnosis.h"
#include "LineBreak.h"
#include "OutputCollector.h"

// Output of the tool, repeated until it is a flood and cut anywhere, into the collector and on to a
// diagnosis. What is kept does not depend on the cuts, stays bounded and loses no telling phrase.
// The first byte is the size of the pieces, the second the number of repetitions.

using decant::OutputCollector;
using decant::Phrases;

namespace {

constexpr qsizetype bound = OutputCollector::headLimit + OutputCollector::tailLimit +
                            8 * sizeof(Phrases) * OutputCollector::lineLimit;

QString collected(QByteArrayView output, qsizetype piece) {
  OutputCollector collector;
  for (qsizetype at = 0; at < output.size(); at += piece)
    collector.add(output.sliced(at, std::min(piece, output.size() - at)));
  collector.finish({});
  return collector.text();
}

Phrases phrasesOfKeptLines(QByteArrayView output) {
  Phrases found = 0;
  while (!output.isEmpty()) {
    const auto end = std::find_if(output.begin(), output.end(), decant::isLineBreak);
    const QByteArrayView line = output.first(end - output.begin());
    if (!line.contains("frame=") || !line.contains("bitrate="))
      found |= decant::tellingPhrases(line);
    output = output.sliced(std::min(line.size() + 1, output.size()));
  }
  return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  if (size < 2) return 0;
  const QByteArray bytes(reinterpret_cast<const char *>(data + 2), qsizetype(size - 2));
  const QByteArray output = bytes.repeated(1 + data[1]);
  const QString text = collected(output, output.size() + 1);
  if (collected(output, 1 + data[0]) != text) std::abort();
  if (text.size() > bound) std::abort();
  const Phrases lost = phrasesOfKeptLines(output) & ~decant::tellingPhrases(text.toLatin1());
  if (lost != 0) std::abort();
  const decant::Diagnosis diagnosis = decant::diagnose({text, {}, false, true, true});
  if (diagnosis.text.isEmpty() || diagnosis.buttons.isEmpty()) std::abort();
  return 0;
}
