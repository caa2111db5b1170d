#pragma once

#include <QString>

namespace decant {

// One audio track of a source as the user reads it, "#2: ger (ac3) [5.1]": stream index, language,
// codec and, for more than two channels, the mark. The audio menu shows it, the choice of the track
// and the conversion read it.
struct AudioTrackDescription {
  QString text;
  int HZ = 0;  // sample rate, 0 when unknown

  bool operator==(const AudioTrackDescription &) const = default;
};

// The stream index: what stands between the first character and the first ":".
[[nodiscard]] int trackNumber(const AudioTrackDescription &track);
// The second blank-separated word. Throws ostrak::RangeError when there is none.
[[nodiscard]] QString trackLanguage(const AudioTrackDescription &track);
// The third blank-separated word without its parentheses. Throws ostrak::RangeError when there is
// none.
[[nodiscard]] QString trackCodec(const AudioTrackDescription &track);
// Whether "5.1" occurs anywhere, in a language too.
[[nodiscard]] bool isSurround(const AudioTrackDescription &track);

}  // namespace decant
