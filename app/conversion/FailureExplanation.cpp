#include "FailureExplanation.h"

#include "Alerts.h"
#include "Ostrak.h"
#include "Patience.h"
#include "SupportMail.h"
#include "Text.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

namespace decant {

namespace {

void openProblemReport(const FailedRun &run, UrlOpener &urlOpener) {
  if (!ostrak::tk) return;
  ostrak::patiently(
      ostrak::localized(u"Preparing the Problem Report"_s),
      [gather = ostrak::SupportFacts::gatherer(true), run,
       address = ostrak::tk->infoValue(u"FeedbackEmail"_s)] {
        return problemReportLink(gather(), run, address);
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
