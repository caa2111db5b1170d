#pragma once

#include <optional>

#include "ConversionSettings.h"
#include "MKVFileInfo.h"

namespace decant {

// The second audio track of the output: a 5.1 track kept beside a stereo AAC one.
struct SurroundTrack {
  int number = 0;           // stream index in the source
  QString codec;            // "ac3" or "dts"
  bool transcoded = false;  // to 6-channel AC3; else copied

  bool operator==(const SurroundTrack &) const = default;
};

// The surround track that goes with the chosen one, or none. Pure. The index names a track.
[[nodiscard]] std::optional<SurroundTrack> surroundTrackFor(const MKVFileInfo &fileInfo,
                                                            quint64 audioTrackIndex,
                                                            const ConversionSettings &settings);

}  // namespace decant
