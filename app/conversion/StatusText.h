#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "AudioTrackDescription.h"
#include "JobState.h"

namespace decant {

// What the status line of a job is made of.
struct StatusFacts {
  JobState state = JobStateQueued;
  QList<AudioTrackDescription> audioTracks;
  quint64 audioTrackIndex = 0;
  double progress = 0;        // percent
  double elapsedSeconds = 0;  // since the launch; for a finished job, how long it took
};

// The line shown under a job's name. Pure.
[[nodiscard]] QString stateInfoString(const StatusFacts &facts);

// What to show instead where the line does not fit: shorter and shorter, without its least
// important parts. Empty when it has none. Pure.
[[nodiscard]] QStringList shorterStateInfoStrings(const StatusFacts &facts);

// Seconds left by the documented estimate: at most 18000, never negative. `progress` in percent.
[[nodiscard]] double etaSeconds(double progress, double elapsedSeconds);

}  // namespace decant
