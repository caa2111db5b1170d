#pragma once

#include <QString>
#include <optional>

#include "Alerts.h"

namespace decant {

// What an event is about.
struct JobLabel {
  int job = 0;     // 1, 2, …; 0 for a file that is no job
  QString source;  // absolute path; null for none
};

// Why a file was not converted.
struct FileFailure {
  QString kind;  // never translated
  QString title;
  QString text;
};

// Tells what happens in a run. Each call is one event and is written at once.
class ConvertReporter {
 public:
  virtual ~ConvertReporter() = default;
  virtual void queued(const JobLabel &job) = 0;
  virtual void started(const JobLabel &job) = 0;
  // `percent` within 0 and 100; both are nothing while they can't be told.
  virtual void progress(const JobLabel &job, std::optional<double> percent,
                        std::optional<double> etaSeconds) = 0;
  virtual void finished(const JobLabel &job, const QString &destination, double seconds) = 0;
  virtual void failed(const JobLabel &job, const FileFailure &failure) = 0;
  virtual void alerted(const JobLabel &job, const ostrak::Alert &alert) = 0;
  // The last event.
  virtual void summary(int finished, int failed) = 0;
};

}  // namespace decant
