#pragma once

#include <QStringList>

#include "ConversionArguments.h"

namespace decant {

// The step of the documented list that concerns subtitles, in place: maps of the embedded tracks,
// unless they are switched off, and the paired file with its map `specifier` and character set. The
// maps go to `index`, each ahead of the ones before it.
void addSubtitles(QStringList &arguments, const ConversionPlan &plan, const QString &specifier,
                  qsizetype index);

}  // namespace decant
