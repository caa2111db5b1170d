#pragma once

#include <QString>
#include <QtGlobal>

#include "ConversionSettings.h"
#include "MKVFileInfo.h"

namespace decant {

// How the one audio track is carried. The values are compared and stored as numbers.
enum ConversionMethod : qint32 {
  ConversionMethodAAC = 0,
  ConversionMethodAC3Stereo = 1,
  ConversionMethodAC3Surround = 2,
  ConversionMethodCopy = 3
};

// Pure. Throws ostrak::RangeError when a custom setting holds no method.
[[nodiscard]] ConversionMethod calculateConversionMethod(const QString &codec, bool audioIsSurround,
                                                         const ConversionSettings &settings);
// The same for a track of a record.
[[nodiscard]] ConversionMethod conversionMethodOf(const AudioTrackDescription &track,
                                                  const ConversionSettings &settings);

}  // namespace decant
