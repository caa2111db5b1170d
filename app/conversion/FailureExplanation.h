#pragma once

#include "Diagnosis.h"
#include "ProblemReport.h"

class UrlOpener;

namespace decant {

// Tells the user why a run failed, once the running handler is done; where the diagnosis offers a
// problem report, its first button opens one. `urlOpener` outlives the answer and
// the library.
void explainFailedRun(const Diagnosis &diagnosis, const FailedRun &run, UrlOpener &urlOpener);

}  // namespace decant
