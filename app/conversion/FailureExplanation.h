#pragma once

#include <QString>
#include <QStringList>

#include "Diagnosis.h"

class UrlOpener;

namespace decant {

// What a problem report tells about a failed run.
struct FailedRun {
  QString source;  // path
  QStringList arguments;
  QString jobOutput;
  QString recordDescription;
};

// Tells the user why a run failed, once the running handler is done; where the diagnosis offers a
// problem report, its first button opens one. `urlOpener` outlives the answer and
// the library.
void explainFailedRun(const Diagnosis &diagnosis, const FailedRun &run, UrlOpener &urlOpener);

}  // namespace decant
