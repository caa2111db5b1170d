#include "FailureExplanation.h"

#include "Alerts.h"
#include "File.h"
#include "Ostrak.h"
#include "Patience.h"
#include "ProblemReport.h"
#include "Text.h"
#include "UrlOpener.h"
#include "VKHostInformation.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

void openProblemReport(const FailedRun &run, UrlOpener &urlOpener) {
  ProblemReportFacts facts;
  QString preferences;
  facts.commandLine = run.arguments.join(u' ');
  facts.jobOutput = run.jobOutput;
  facts.recordDescription = run.recordDescription;
  if (ostrak::Ostrak *const tk = ostrak::tk) {
    facts.supportAddress = tk->infoValue(QStringLiteral("FeedbackEmail"));
    facts.appName = tk->appName();
    facts.appVersion = tk->appVersionString();
    tk->userDefaults().synchronize();
    preferences = tk->prefsPath();
  }
  ostrak::patiently(
      ostrak::localized(u"Preparing the Problem Report"_s),
      [facts, preferences] {
        ProblemReportFacts all = facts;
        all.machineType = ostrak::VKHostInformation::machineType();
        all.systemVersion = ostrak::VKHostInformation::systemVersion();
        all.preferences = ostrak::contents(preferences).value_or(QByteArray());
        return problemReportLink(all);
      },
      [&urlOpener](const QUrl &link) { urlOpener.open(link); });
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
