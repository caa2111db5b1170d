#include "JsonConvertReporter.h"

#include "JsonLine.h"
#include "TextSink.h"

using namespace Qt::StringLiterals;

namespace decant {

void JsonConvertReporter::write(const char *event, const JobLabel &job, QJsonObject fields) {
  fields.insert(u"event"_s, QString::fromLatin1(event));
  if (job.job > 0) fields.insert(u"job"_s, job.job);
  if (!job.source.isNull()) fields.insert(u"source"_s, job.source);
  m_output.write(jsonLine(fields));
}

void JsonConvertReporter::queued(const JobLabel &job) {
  write("queued", job, {});
}

void JsonConvertReporter::started(const JobLabel &job) {
  write("started", job, {});
}

void JsonConvertReporter::progress(const JobLabel &job, std::optional<double> percent,
                                   std::optional<double> etaSeconds) {
  write("progress", job,
        {{u"percent"_s, jsonNumber(percent)}, {u"etaSeconds"_s, jsonNumber(etaSeconds)}});
}

void JsonConvertReporter::finished(const JobLabel &job, const QString &destination,
                                   double seconds) {
  write("finished", job, {{u"destination"_s, destination}, {u"seconds"_s, seconds}});
}

void JsonConvertReporter::failed(const JobLabel &job, const FileFailure &failure) {
  write("failed", job,
        {{u"kind"_s, failure.kind}, {u"title"_s, failure.title}, {u"text"_s, failure.text}});
}

void JsonConvertReporter::alerted(const JobLabel &job, const ostrak::Alert &alert) {
  write("alert", job, jsonAlert(alert));
}

void JsonConvertReporter::summary(int finished, int failed) {
  write("summary", {}, {{u"finished"_s, finished}, {u"failed"_s, failed}});
}

}  // namespace decant
