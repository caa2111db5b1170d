#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "ConvertReporter.h"

namespace decant {

class TextSink;

// A job that would be run.
struct PlannedJob {
  QString source;
  QString destination;
  std::optional<int> method;           // nothing without audio
  std::optional<int> audioTrackIndex;  // nothing without audio
  bool fastmode = false;
  QStringList arguments;  // exactly what ffmpeg would get
};

// Prints what would be done, a line a job: JSON objects, or shell-quoted command lines with what
// was refused on standard error.
class DryRunReporter final {
 public:
  DryRunReporter(TextSink &output, TextSink &error, QString toolPath, bool json)
      : m_output(output), m_error(error), m_toolPath(std::move(toolPath)), m_json(json) {}
  void planned(const PlannedJob &job);
  void refused(const QString &source, const FileFailure &failure);
  // A warning that a conversion would raise.
  void alerted(const ostrak::Alert &alert);

 private:
  TextSink &m_output;
  TextSink &m_error;
  QString m_toolPath;
  bool m_json;
};

}  // namespace decant
