#pragma once

#include <QtGlobal>

namespace decant {

// Stored and compared as numbers everywhere.
enum JobState : qint32 {
  JobStateQueued = 0,
  JobStateConverting = 1,
  JobStatePaused = 2,
  JobStateFinished = 3,
  JobStateFailed = 4
};
inline constexpr int jobStateCount = 5;

}  // namespace decant
