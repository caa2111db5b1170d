#pragma once

#include <QStringList>

#include "ConversionArguments.h"
#include "ConversionMethod.h"

namespace decant {

// The steps of the documented list that concern sound. Each changes the list in place.

// The value of "-acodec".
[[nodiscard]] QString audioCodecArgument(ConversionMethod method);

// Channels and bitrate, sample rate and volume of the chosen track, at the position after its
// codec; the volume takes the track's map over as well. A copied track gets nothing.
void addAudioEncoding(QStringList &arguments, const ConversionPlan &plan, ConversionMethod method);

// The surround track, if one goes with the chosen track: its map at `index`, which moves on by what
// was inserted, and its codec before "-progress".
void addAdditionalSurroundTrackAtIndex(QStringList &arguments, const ConversionPlan &plan,
                                       qsizetype &index);

}  // namespace decant
