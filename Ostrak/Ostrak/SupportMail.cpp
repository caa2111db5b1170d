#include "SupportMail.h"

#include "Format.h"

using namespace Qt::StringLiterals;

namespace ostrak {
namespace {

// What a query allows, without the five that mean something in a mail link's query.
const QByteArray leftAlone = "!$'()*,/:@"_ba;

qsizetype encodedSize(const QString &text) {
  return escapedMailText(text).size();
}

QString note(qsizetype left) {
  return makeString(u"[… %lli characters left out, the message was too long …]"_s, left);
}

// Shortens `text` to `kept` characters and the note.
QString shortened(const QString &text, MailPiece::Cut cut, qsizetype kept) {
  const bool both = cut == MailPiece::Cut::KeepMiddleOut;
  qsizetype atStart = both ? kept / 2 : kept;
  qsizetype atEnd = kept - atStart;
  // A character of two units stays whole.
  if (atStart > 0 && text.at(atStart - 1).isHighSurrogate()) --atStart;
  if (atEnd > 0 && text.at(text.size() - atEnd).isLowSurrogate()) --atEnd;
  const QString missing = note(text.size() - atStart - atEnd);
  return text.first(atStart) + missing + text.last(atEnd);
}

// The longest shortened form of `text` whose encoded size is at most `budget`.
QString cutToFit(const MailPiece &piece, qsizetype budget) {
  if (encodedSize(piece.text) <= budget) return piece.text;
  qsizetype fits = 0;
  for (qsizetype tooLong = piece.text.size(); tooLong - fits > 1;) {
    const qsizetype kept = fits + (tooLong - fits) / 2;
    if (encodedSize(shortened(piece.text, piece.cut, kept)) <= budget) {
      fits = kept;
    } else {
      tooLong = kept;
    }
  }
  return shortened(piece.text, piece.cut, fits);
}

// Shares `budget` among the pieces that `mayCut` picks: short ones stay whole, long ones get as
// much as each other.
template <typename Pick>
void cutPieces(QList<MailPiece> &pieces, qsizetype budget, Pick mayCut) {
  QList<MailPiece *> waiting;
  for (MailPiece &piece : pieces) {
    if (mayCut(piece)) waiting.append(&piece);
  }
  std::sort(waiting.begin(), waiting.end(), [](const MailPiece *a, const MailPiece *b) {
    return encodedSize(a->text) < encodedSize(b->text);
  });
  qsizetype left = qMax(qsizetype{0}, budget);
  for (qsizetype index = 0; index < waiting.size(); ++index) {
    MailPiece &piece = *waiting[index];
    piece.text = cutToFit(piece, left / (waiting.size() - index));
    left = qMax(qsizetype{0}, left - encodedSize(piece.text));
  }
}

QString crashSuffix(qsizetype crashLogs) {
  return crashLogs > 0 ? makeString(u" Problems: %li"_s, crashLogs) : u""_s;
}

}  // namespace

QString builtInSupportAddress() {
  return u"support@decant.example"_s;
}

QString escapedMailText(const QString &text) {
  return QString::fromLatin1(QUrl::toPercentEncoding(text, leftAlone));
}

QString mailtoLink(const Mail &mail) {
  QString body;
  for (const MailPiece &piece : mail.body)
    body += piece.text;
  return u"mailto:"_s + escapedMailText(mail.address) + u"?subject="_s +
         escapedMailText(mail.subject) + u"&body="_s + escapedMailText(body);
}

QString cutMailLink(const Mail &mail, qsizetype limit) {
  const QString whole = mailtoLink(mail);
  if (whole.size() <= limit) return whole;
  const auto isLast = [](const MailPiece &piece) { return piece.cut == MailPiece::Cut::Last; };
  const auto isFirst = [](const MailPiece &piece) { return piece.cut != MailPiece::Cut::Last; };
  const auto sizeOf = [](const QList<MailPiece> &pieces, auto pick) {
    qsizetype size = 0;
    for (const MailPiece &piece : pieces)
      size += pick(piece) ? encodedSize(piece.text) : 0;
    return size;
  };
  Mail cut = mail;
  const qsizetype frame = mailtoLink({mail.address, mail.subject, {}}).size();
  cutPieces(cut.body, limit - frame - sizeOf(mail.body, isLast), isFirst);
  if (const QString link = mailtoLink(cut); link.size() <= limit) return link;
  cutPieces(cut.body, limit - frame - sizeOf(cut.body, isFirst), isLast);
  return mailtoLink(cut);
}

QUrl mailUrl(const QString &link) {
  return QUrl::fromEncoded(link.toLatin1(), QUrl::StrictMode);
}

Mail problemReportMail(const SupportFacts &facts, const QString &message, const QString &details,
                       bool fatal) {
  Mail mail;
  mail.address = builtInSupportAddress();
  mail.subject =
      makeString(u"%@ v%@ (%i) Problem Report"_s, facts.appName, facts.appVersion, facts.appBuild);
  mail.body = {
      {makeString(u"Hello\nA %@ error in %@ occured (%@).\n\nBye\n\nP.S. Details: "_s,
                  fatal ? u"fatal"_s : u""_s, facts.appName, message)},
      {details, MailPiece::Cut::KeepMiddleOut},
      {makeString(u"\n\n\nP.P.S: Hardware: %@ Software: %@ Admin: %i%@\n\nPreferences: "_s,
                  facts.machineType, facts.systemVersion, facts.isUserAdmin,
                  crashSuffix(facts.crashLogs))},
      {QString::fromLatin1(facts.preferences.toBase64()), MailPiece::Cut::KeepStart},
      {u"\n"_s},
  };
  return mail;
}

Mail supportRequestMail(const SupportFacts &facts, const QString &address,
                        const QString &usersText) {
  Mail mail;
  mail.address = address;
  mail.subject =
      makeString(u"%@ v%@ (%i) Support Request"_s, facts.appName, facts.appVersion, facts.appBuild);
  mail.body = {
      {usersText},
      {makeString(u"\n\n\n\nP.S: Hardware: %@ Software: %@%@\n"_s, facts.machineType,
                  facts.systemVersion, crashSuffix(facts.crashLogs))},
      {QString::fromLatin1(facts.preferences.toBase64()), MailPiece::Cut::KeepStart},
  };
  return mail;
}

}  // namespace ostrak
