#include <cstdlib>
#include <utility>

#include "Alerts.h"
#include "Dispatch.h"
#include "Logging.h"
#include "Ostrak.h"
#include "Patience.h"
#include "SupportMail.h"
#include "Text.h"
#include "UrlOpener.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

QString displayedDetails(const QString &details) {
  constexpr qsizetype longest = 400;
  if (details.size() <= longest) return details;
  return makeString(localized(u"%@  …\n(Remaining message omitted)"_s), clamp(details, longest));
}

Alert feedbackAlert(const QString &message, const QString &details, bool fatal) {
  Alert made;
  made.title = localized(fatal ? u"Fatal Error"_s : u"Error"_s);
  made.message = makeString(
      localized(
          u"%@\n\n You can contact our support with detailed information so that we can fix this "
          u"problem.\n\nInformation: %@"_s),
      message, displayedDetails(details));
  made.buttons =
      QStringList{localized(u"Send to support"_s), localized(fatal ? u"Quit"_s : u"Continue"_s)};
  made.problemReport = true;
  return made;
}

using Gather = std::function<SupportFacts()>;

// The report's link; empty when its facts cannot be gathered.
QString feedbackLink(const Gather &gather, const QString &message, const QString &details,
                     bool fatal) {
  try {
    return cutMailLink(problemReportMail(gather(), message, details, fatal));
  } catch (const std::exception &) {
    return {};
  }
}

void openLink(const QString &link) {
  if (!link.isEmpty() && tk && tk->workspace()) tk->workspace()->open(mailUrl(link));
}

// For who waits, and may have no event loop any more.
void sendReportAtOnce(const QString &message, const QString &details, bool fatal) {
  if (!tk) return;
  const auto gather = [] { return SupportFacts::gatherer(true)(); };
  openLink(feedbackLink(gather, message, details, fatal));
}

void sendReport(const QString &message, const QString &details) {
  if (!tk) return;
  patiently(
      localized(u"Preparing the Problem Report"_s),
      [gather = SupportFacts::gatherer(true), message, details] {
        return feedbackLink(gather, message, details, false);
      },
      openLink);
}

void logFeedback(const QString &message, const QString &details) {
  tk_log_level(3, u"alert_feedback %@ %@"_s, message, details);
}

std::function<void()> theCleanup;

// Once: it may itself end in a fatal report.
void cleanUp() {
  if (!onMainThread()) return;
  try {
    if (const auto cleanup = std::exchange(theCleanup, {})) cleanup();
  } catch (...) {
    // There is nobody left to tell.
  }
}

// Other threads may be at work: the process ends without taking anything down under them.
[[noreturn]] void endProcess() {
  // The settings last: writing them has no limit of time, and may be where the fault is.
  cleanUp();
  if (tk) tk->userDefaults().synchronize();
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

void setFatalCleanup(std::function<void()> cleanup) {
  theCleanup = std::move(cleanup);
}

void alert_feedback(const QString &message, const QString &details, bool fatal) {
  logFeedback(message, details);
  dispatch_sync_main([&] {
    Alert made = feedbackAlert(message, details, fatal);
    if (presentAlert(made) == firstButton) sendReportAtOnce(message, details, fatal);
    if (fatal) endProcess();
  });
}

void alert_feedback_fatal(const QString &message, const QString &details) {
  alert_feedback(message, details, true);
  endProcess();
}

void alert_feedback_nonfatal(const QString &message, const QString &details) {
  alert_feedback(message, details, false);
}

void postFeedback(const QString &message, const QString &details) {
  logFeedback(message, details);
  postAlert(feedbackAlert(message, details, false), [message, details](int code) {
    if (code == firstButton) sendReport(message, details);
  });
}

}  // namespace ostrak
