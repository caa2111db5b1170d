#pragma once

#include <QJsonObject>

#include "ConvertReporter.h"

namespace decant {

class TextSink;

// One JSON object a line.
class JsonConvertReporter final : public ConvertReporter {
 public:
  explicit JsonConvertReporter(TextSink &output) : m_output(output) {}

  void queued(const JobLabel &job) override;
  void started(const JobLabel &job) override;
  void progress(const JobLabel &job, std::optional<double> percent,
                std::optional<double> etaSeconds) override;
  void finished(const JobLabel &job, const QString &destination, double seconds) override;
  void failed(const JobLabel &job, const FileFailure &failure) override;
  void alerted(const JobLabel &job, const ostrak::Alert &alert) override;
  void summary(int finished, int failed) override;

 private:
  void write(const char *event, const JobLabel &job, QJsonObject fields);
  TextSink &m_output;
};

}  // namespace decant
