#include "ProblemReport.h"

#include "SupportMail.h"

namespace decant {
using namespace Qt::StringLiterals;
using ostrak::MailPiece;

QUrl problemReportLink(const ostrak::SupportFacts &facts, const FailedRun &run,
                       const QString &supportAddress) {
  ostrak::Mail mail;
  mail.address = supportAddress.isEmpty() ? ostrak::builtInSupportAddress() : supportAddress;
  mail.subject = facts.appName + u" v"_s + facts.appVersion + u" Problem Report"_s;
  const QString opening = u"Hello\nConversion of a file failed.\n\nBye\n\nP.S. Details: "_s;
  const QString machine = u"\n\n\nP.P.S: Hardware: "_s + facts.machineType + u" Software: "_s +
                          facts.systemVersion + u" Preferences: "_s;
  mail.body = {
      {opening + run.arguments.join(u' ') + u' '},
      {run.jobOutput, MailPiece::Cut::KeepMiddleOut},
      {u' ' + run.recordDescription + machine},
      {QString::fromLatin1(facts.preferences.toBase64()), MailPiece::Cut::KeepStart},
  };
  return ostrak::mailUrl(ostrak::cutMailLink(mail));
}

}  // namespace decant
