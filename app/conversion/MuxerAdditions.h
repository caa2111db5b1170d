#pragma once

#include "ConversionArguments.h"

namespace decant {

// What the muxers of today need besides the documented list. Each takes the complete list and puts
// its two arguments directly after "-y", so of several the last one applied stands first. A plan
// that needs nothing leaves the list as it is. Pure.

// "-tag:v", "hvc1" for an HEVC video: phones play it under this tag only.
[[nodiscard]] QStringList withTagForHevc(QStringList arguments, const ConversionPlan &plan);

// "-f", "mp4" for an ".m4v" that gets a stream which ffmpeg's own choice for that ending, its ipod
// muxer, refuses although MP4 can carry it.
[[nodiscard]] QStringList withMuxerForUnusualStreams(QStringList arguments,
                                                     const ConversionPlan &plan);

}  // namespace decant
