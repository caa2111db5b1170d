#pragma once

#include "Alerts.h"
#include "Destinations.h"

namespace decant {

class ConversionJob;

// Whether a job may be queued.
enum class Admission { added, notWritable, destinationIsSource };

// Looks at both files of the job; `files` are those that it will claim. A job whose destination
// another one has claimed gets a free name, and with that loses the agreement to replace a file.
// What is to be replaced stays until the job starts.
[[nodiscard]] Admission admissionOf(ConversionJob &job, const ClaimedNames &claimed,
                                    ClaimedNames::Files &files);

// What the user is told of a job that may not be queued.
[[nodiscard]] ostrak::Alert refusalAlert(const ConversionJob &job, Admission why);

}  // namespace decant
