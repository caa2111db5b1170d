#include "FailureExplanation.h"

#include <QSysInfo>

#include "Alerts.h"
#include "File.h"
#include "Ostrak.h"
#include "ProblemReport.h"
#include "UrlOpener.h"
#include "VKHostInformation.h"

namespace decant {

namespace {

void openProblemReport(const FailedRun &run, UrlOpener &urlOpener) {
  ProblemReportFacts facts;
  facts.commandLine = run.arguments.join(u' ');
  facts.jobOutput = run.jobOutput;
  facts.recordDescription = run.recordDescription;
  facts.machineType = ostrak::VKHostInformation::machineType();
  facts.systemVersion = QSysInfo::prettyProductName() + u' ' + QSysInfo::kernelVersion();
  if (const ostrak::Ostrak *tk = ostrak::tk) {
    facts.supportAddress = tk->infoValue(QStringLiteral("FeedbackEmail"));
    facts.appName = tk->appName();
    facts.appVersion = tk->appVersionString();
    facts.preferences = ostrak::contents(tk->prefsPath()).value_or(QByteArray());
  }
  urlOpener.open(problemReportLink(facts));
}

}  // namespace

void explainFailedRun(const Diagnosis &diagnosis, const FailedRun &run, UrlOpener &urlOpener) {
  ostrak::Alert alert;
  alert.title = diagnosis.title;
  alert.message = diagnosis.text;
  alert.buttons = diagnosis.buttons;
  alert.subject = run.source;
  alert.problemReport = diagnosis.offersReport;
  if (!diagnosis.offersReport) {
    ostrak::postAlert(alert);
    return;
  }
  ostrak::postAlert(alert, [run, &urlOpener](int code) {
    if (code == ostrak::firstButton) openProblemReport(run, urlOpener);
  });
}

}  // namespace decant
