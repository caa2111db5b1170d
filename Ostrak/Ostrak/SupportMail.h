#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>
#include <functional>

namespace ostrak {

// Mail links to the support: a mail program opens with the message filled in. Pure.

// The built-in address; problem reports use it whatever the bundle's information says.
[[nodiscard]] QString builtInSupportAddress();

// A piece of a mail's body. When the link gets too long, the pieces that may be cut are cut first.
struct MailPiece {
  enum class Cut {
    Last,          // the text itself: cut at its end, and only when nothing else is left to cut
    KeepStart,     // loses its end
    KeepMiddleOut  // loses its middle: of a long output, beginning and end tell most
  };
  QString text;
  Cut cut = Cut::Last;
};

struct Mail {
  QString address;
  QString subject;
  QList<MailPiece> body;
};

// Bytes of the longest text that the system takes as one argument, and so as a link to be opened.
inline constexpr qsizetype longestMailLink = 131071;

// One header value or body of a mail link, percent-encoded: as `escaped` does it, which leaves what
// a query allows, but with "&", "+", "=", "?" and ";" encoded too. Left as they are, the first
// three would end the body or turn into blanks, and the mail program would not get the exact text.
[[nodiscard]] QString escapedMailText(const QString &text);

// The whole link, "mailto:address?subject=…&body=…", as it is opened.
[[nodiscard]] QString mailtoLink(const Mail &mail);
// The same in at most `limit` bytes. What is cut is replaced by a note that says so.
[[nodiscard]] QString cutMailLink(const Mail &mail, qsizetype limit = longestMailLink);
// The link as a URL that prints as exactly that link.
[[nodiscard]] QUrl mailUrl(const QString &link);

// What a problem report and a support request tell about the program and its machine.
struct SupportFacts {
  QString appName;
  QString appVersion;
  qint32 appBuild = 0;
  QString machineType;
  QString systemVersion;
  bool isUserAdmin = false;
  qsizetype crashLogs = 0;
  QByteArray preferences;  // bytes of the settings file; empty: none attached

  // What gathers the facts of the running program: made on the main thread, which also flushes the
  // settings when `withPreferences`, and called on any. It reads files and the user database, which
  // may be slow, and takes what it needs of the program along.
  [[nodiscard]] static std::function<SupportFacts()> gatherer(bool withPreferences);
};

[[nodiscard]] Mail problemReportMail(const SupportFacts &facts, const QString &message,
                                     const QString &details, bool fatal);
[[nodiscard]] Mail supportRequestMail(const SupportFacts &facts, const QString &address,
                                      const QString &usersText);

}  // namespace ostrak
