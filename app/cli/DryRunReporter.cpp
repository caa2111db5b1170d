#include "DryRunReporter.h"

#include <QJsonArray>

#include "ErrorLine.h"
#include "JsonLine.h"
#include "Ostrak.h"
#include "Printable.h"
#include "TerminalPresenter.h"
#include "TextSink.h"

using namespace Qt::StringLiterals;

namespace decant {

void DryRunReporter::planned(const PlannedJob &job) {
  if (m_json) {
    m_output.write(jsonLine({{u"source"_s, job.source},
                             {u"destination"_s, job.destination},
                             {u"method"_s, jsonNumber(job.method)},
                             {u"fastmode"_s, job.fastmode},
                             {u"audioTrackIndex"_s, jsonNumber(job.audioTrackIndex)},
                             {u"arguments"_s, QJsonArray::fromStringList(job.arguments)}}));
    return;
  }
  const QString line = shellQuoted(QStringList{m_toolPath} + job.arguments) + u'\n';
  m_output.write(line.toUtf8());
}

void DryRunReporter::refused(const QString &source, const FileFailure &failure) {
  if (m_json)
    m_output.write(jsonLine({{u"source"_s, source},
                             {u"error"_s, QJsonObject{{u"kind"_s, failure.kind},
                                                      {u"title"_s, failure.title},
                                                      {u"text"_s, failure.text}}}}));
  else
    writeErrorLine(m_error, source, failure.text);
}

void DryRunReporter::alerted(const ostrak::Alert &alert) {
  writeErrorLine(m_error, alert.subject, alertLine(alert, ostrak::tk->appName()));
}

}  // namespace decant
