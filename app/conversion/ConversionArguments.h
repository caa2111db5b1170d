#pragma once

#include <QString>
#include <QStringList>

#include "ConversionSettings.h"
#include "MKVFileInfo.h"

namespace decant {

// Everything that one argument list depends on.
struct ConversionPlan {
  MKVFileInfo fileInfo;
  quint64 audioTrackIndex = 0;  // into fileInfo.audioTrackInformation; unused without audio
  ConversionSettings settings;
  QString progressFile;  // absolute path
  bool fixup = false;    // the copied AAC stream needs the ADTS filter
};

// The documented list for one run of ffmpeg, without the executable. Pure. Throws
// ostrak::RangeError when the plan names no track, no conversion method, no bitrate or no character
// set.
[[nodiscard]] QStringList buildArguments(const ConversionPlan &plan);

// buildArguments and the additions of MuxerAdditions.h: exactly what ffmpeg gets.
[[nodiscard]] QStringList completeArguments(const ConversionPlan &plan);

// Arguments of the one-second test conversion that asks whether a copied AAC track needs the
// filter.
[[nodiscard]] QStringList fixupTestArguments(const MKVFileInfo &fileInfo, int trackNumber,
                                             const QString &destination);
// Its answer, from what the tool printed.
[[nodiscard]] bool needsFixup(const QByteArray &output);
// Whether the test is to be run at all: a track that is copied and is "aac".
[[nodiscard]] bool wantsFixupTest(const MKVFileInfo &fileInfo, quint64 audioTrackIndex,
                                  const ConversionSettings &settings);

}  // namespace decant
