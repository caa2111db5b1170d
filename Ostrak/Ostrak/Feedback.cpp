#include <cstdlib>

#include "Alerts.h"
#include "Dispatch.h"
#include "Logging.h"
#include "Ostrak.h"
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

// The report's link; empty when its facts cannot be gathered, or no more.
QString feedbackLink(const QString &message, const QString &details, bool fatal) {
  if (!tk) return {};
  try {
    SupportFacts facts = SupportFacts::ofProgram();
    facts.preferences = SupportFacts::readPreferences();
    return cutMailLink(problemReportMail(facts, message, details, fatal));
  } catch (const std::exception &) {
    return {};
  }
}

void openAnswered(int code, const QString &link) {
  if (code == firstButton && tk && tk->workspace()) tk->workspace()->open(mailUrl(link));
}

void logFeedback(const QString &message, const QString &details) {
  tk_log_level(3, u"alert_feedback %@ %@"_s, message, details);
}

// Other threads may be at work: the process ends without taking anything down under them.
[[noreturn]] void endProcess() {
  if (tk) tk->userDefaults().synchronize();
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

void alert_feedback(const QString &message, const QString &details, bool fatal) {
  logFeedback(message, details);
  dispatch_sync_main([&] {
    const QString link = feedbackLink(message, details, fatal);
    Alert made = feedbackAlert(message, details, fatal);
    openAnswered(presentAlert(made), link);
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
  const QString link = feedbackLink(message, details, false);
  postAlert(feedbackAlert(message, details, false), [link](int code) { openAnswered(code, link); });
}

}  // namespace ostrak
