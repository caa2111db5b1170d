#include <QString>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "Exceptions.h"
#include "PreferredAudioTrack.h"
#include "ReportParser.h"

// Any bytes are read as a report or refused with the one documented error, and every description of
// a record can be read back. The bytes up to the first NUL are the file's name.

using namespace Qt::StringLiterals;

namespace {

void readAnyway(const QString &report, const QUrl &url, bool heAACConvert) {
  const decant::ProbeSource source{url, 1, u"Decant"_s};
  const decant::ProbeOutcome outcome = decant::parseReport(report, source, {heAACConvert});
  if (!outcome.record && outcome.alerts.isEmpty()) std::abort();
  if (!outcome.record) return;
  if (!outcome.record->videoTrackID) std::abort();
  const auto &tracks = outcome.record->audioTrackInformation;
  try {
    const auto best = decant::bestAudioTrack(tracks, {u"ger"_s, u"eng"_s}, 0);
    if (best.has_value() == tracks.isEmpty()) std::abort();
    for (const auto &track : tracks) {
      if (decant::trackNumber(track) < 0) std::abort();
      if (decant::trackLanguage(track).isEmpty()) std::abort();
    }
  } catch (const ostrak::RangeError &) {
    std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
  const qsizetype nameEnd = std::max<qsizetype>(bytes.indexOf('\0'), 0);
  const QUrl url = QUrl::fromLocalFile(u"/m/"_s + QString::fromUtf8(bytes.first(nameEnd)));
  const QString report = QString::fromUtf8(bytes.sliced(nameEnd));
  try {
    readAnyway(report, url, size % 2 == 0);
  } catch (const ostrak::RangeError &) {
    // Documented.
  }
  (void)decant::durationInReport(report, url);
  return 0;
}
