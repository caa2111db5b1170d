#include "TextConvertReporter.h"

#include "Date.h"
#include "ErrorLine.h"
#include "Printable.h"
#include "ProgressLine.h"
#include "TerminalPresenter.h"
#include "TextSink.h"
#include "Wording.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

// Back to the first column, and the rest of the line is wiped.
constexpr auto lineStart = "\r";
constexpr auto lineWipe = "\x1b[K";

QString nameOf(const QString &path) {
  return path.sliced(path.lastIndexOf(u'/') + 1);
}

}  // namespace

TextConvertReporter::TextConvertReporter(TextSink &output, TextSink &error, QString appName)
    : m_output(output), m_error(error), m_appName(std::move(appName)) {}

void TextConvertReporter::queued(const JobLabel &) {}

void TextConvertReporter::started(const JobLabel &job) {
  if (m_output.isTerminal())
    progress(job, {}, {});
  else
    writePlain(job, worded(u"started"_s));
}

void TextConvertReporter::progress(const JobLabel &job, std::optional<double> percent,
                                   std::optional<double> etaSeconds) {
  // The last cell stays free: some terminals go to the next line when it is filled.
  if (m_output.isTerminal())
    showMoving(progressLine(nameOf(job.source), percent, etaSeconds, m_output.columns() - 1));
}

void TextConvertReporter::finished(const JobLabel &job, const QString &destination,
                                   double seconds) {
  const QString took = ostrak::formattedTimeFromTimeInterval(seconds);
  if (m_output.isTerminal())
    writeStaying(worded(u"%@  done in %@: %@"_s, printable(nameOf(job.source)), took,
                        printable(nameOf(destination))));
  else
    writePlain(job, worded(u"finished in %@: %@"_s, took, printable(destination)));
}

void TextConvertReporter::failed(const JobLabel &job, const FileFailure &failure) {
  if (job.job > 0) {
    if (m_output.isTerminal())
      writeStaying(worded(u"%@  failed"_s, printable(nameOf(job.source))));
    else
      writePlain(job, worded(u"failed"_s));
  }
  writeError(job, failure.text);
}

void TextConvertReporter::alerted(const JobLabel &job, const ostrak::Alert &alert) {
  writeError(job, alertLine(alert, m_appName));
}

void TextConvertReporter::summary(int finished, int failed) {
  if (m_output.isTerminal()) writeStaying(worded(u"%i finished, %i failed"_s, finished, failed));
}

void TextConvertReporter::writePlain(const JobLabel &job, const QString &what) {
  const QString line =
      QString::number(job.job) + u' ' + printable(job.source) + u": "_s + what + u'\n';
  m_output.write(line.toUtf8());
}

void TextConvertReporter::writeError(const JobLabel &job, const QString &sentence) {
  // Both streams usually share the terminal: the moving line makes room and comes back.
  if (!m_moving.isNull()) m_output.write(QByteArray(lineStart) + lineWipe);
  writeErrorLine(m_error, job.source, sentence);
  if (!m_moving.isNull()) showMoving(m_moving);
}

void TextConvertReporter::showMoving(const QString &line) {
  m_moving = line;
  m_output.write(lineStart + line.toUtf8() + lineWipe);
}

void TextConvertReporter::writeStaying(const QString &line) {
  m_output.write(lineStart + line.toUtf8() + lineWipe + '\n');
  m_moving = QString();
}

}  // namespace decant
