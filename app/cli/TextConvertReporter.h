#pragma once

#include "ConvertReporter.h"

namespace decant {

class TextSink;

// For people. On a terminal each job has one line that moves, and a last line counts. Elsewhere
// each start and each end is a plain line. Why a file failed goes to standard error either way.
class TextConvertReporter final : public ConvertReporter {
 public:
  TextConvertReporter(TextSink &output, TextSink &error, QString appName);

  void queued(const JobLabel &job) override;
  void started(const JobLabel &job) override;
  void progress(const JobLabel &job, std::optional<double> percent,
                std::optional<double> etaSeconds) override;
  void finished(const JobLabel &job, const QString &destination, double seconds) override;
  void failed(const JobLabel &job, const FileFailure &failure) override;
  void alerted(const JobLabel &job, const ostrak::Alert &alert) override;
  void summary(int finished, int failed) override;

 private:
  void writePlain(const JobLabel &job, const QString &what);
  void writeError(const JobLabel &job, const QString &sentence);
  void showMoving(const QString &line);
  // Replaces the moving line, if there is one, by one that stays.
  void writeStaying(const QString &line);

  TextSink &m_output;
  TextSink &m_error;
  QString m_appName;
  QString m_moving;  // what the moving line shows; null when there is none
};

}  // namespace decant
