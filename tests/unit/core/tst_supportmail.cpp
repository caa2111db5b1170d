#include <QTest>
#include <QUrlQuery>

#include "SupportMail.h"
#include "Text.h"

using namespace Qt::StringLiterals;
using namespace ostrak;
using Cut = MailPiece::Cut;

class TestSupportMail final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void escapesAsDocumented();
  void escapesWhatWouldBreakTheLink();
  void wholeLink();
  void mailProgramGetsTheExactText_data();
  void mailProgramGetsTheExactText();
  void urlPrintsTheExactLink();
  void aLinkThatFitsIsNotCut();
  void cutsOutputAndPreferencesFirst();
  void cutsTheRestAtLast();
  void neverExceedsTheLimit_data();
  void neverExceedsTheLimit();
  void problemReport();
  void problemReportWithoutCrashes();
  void supportRequest();

 private:
  // What a mail program reads out of a link.
  struct Read {
    QString address;
    QString subject;
    QString body;
  };
  [[nodiscard]] static Read readLink(const QString &link);
  [[nodiscard]] static SupportFacts facts();
};

TestSupportMail::Read TestSupportMail::readLink(const QString &link) {
  const auto decoded = [](const QString &part) {
    return QUrl::fromPercentEncoding(part.toLatin1());
  };
  Read read;
  const QString rest = link.sliced("mailto:"_L1.size());
  read.address = decoded(rest.section(u'?', 0, 0));
  const QStringList fields = rest.section(u'?', 1).split(u'&');
  for (const QString &field : fields) {
    const QString value = decoded(field.section(u'=', 1));
    if (field.startsWith("subject="_L1)) read.subject = value;
    if (field.startsWith("body="_L1)) read.body = value;
  }
  return read;
}

SupportFacts TestSupportMail::facts() {
  SupportFacts made;
  made.appName = u"Decant"_s;
  made.appVersion = u"1.2.3"_s;
  made.appBuild = 45;
  made.machineType = u"Box 3"_s;
  made.systemVersion = u"Debian 12 6.1"_s;
  return made;
}

void TestSupportMail::escapesAsDocumented() {
  const QString unreserved = u"azAZ09-._~!$'()*,/:@"_s;
  QCOMPARE(escapedMailText(unreserved), unreserved);
  const QString encoded = u" \n\"#%<>[]\\^`{|}äé🎬"_s;
  QCOMPARE(escapedMailText(encoded), escaped(encoded));
  QCOMPARE(escapedMailText(u"a b\n"_s), u"a%20b%0A"_s);
}

void TestSupportMail::escapesWhatWouldBreakTheLink() {
  QCOMPARE(escapedMailText(u"&+=?;"_s), u"%26%2B%3D%3F%3B"_s);
  QCOMPARE(escapedMailText(u"%20"_s), u"%2520"_s);
}

void TestSupportMail::wholeLink() {
  const Mail mail{u"support@decant.example"_s, u"A & B"_s, {{u"Hello\n"_s}, {u"1+1"_s}}};
  QCOMPARE(mailtoLink(mail),
           u"mailto:support@decant.example?subject=A%20%26%20B&body=Hello%0A1%2B1"_s);
}

void TestSupportMail::mailProgramGetsTheExactText_data() {
  QTest::addColumn<QString>("text");
  QTest::newRow("ampersand") << u"Tom & Jerry &body=x &amp;"_s;
  QTest::newRow("hash") << u"part #3"_s;
  QTest::newRow("plus and percent") << u"100%+20% %41"_s;
  QTest::newRow("question") << u"really? a=b;c"_s;
  QTest::newRow("foreign") << u"é 日本 🎬 \u2028"_s;
  QTest::newRow("lines") << u"one\r\ntwo\ttab"_s;
  QTest::newRow("quotes") << u"\"<'`\\>[]{}|^"_s;
  QTest::newRow("base64") << u"ab+/cd=="_s;
}

void TestSupportMail::mailProgramGetsTheExactText() {
  QFETCH(QString, text);
  const QString link = mailtoLink({u"a@b"_s, text, {{text}, {text}}});
  const QString opened = QString::fromLatin1(mailUrl(link).toEncoded());
  const Read read = readLink(opened);
  QCOMPARE(read.address, u"a@b"_s);
  QCOMPARE(read.subject, text);
  QCOMPARE(read.body, QString(text + text));
  QCOMPARE(QUrlQuery(mailUrl(link)).queryItemValue(u"body"_s, QUrl::FullyDecoded),
           QString(text + text));
}

void TestSupportMail::urlPrintsTheExactLink() {
  QString everything;
  for (char16_t unit = 1; unit < 0x300; ++unit)
    everything += QChar(unit);
  const QString link = mailtoLink({u"a@b"_s, everything, {{everything}}});
  QVERIFY(mailUrl(link).isValid());
  QCOMPARE(QString::fromLatin1(mailUrl(link).toEncoded()), link);
  QCOMPARE(mailUrl(link).scheme(), u"mailto"_s);
}

void TestSupportMail::aLinkThatFitsIsNotCut() {
  const qsizetype frame = mailtoLink({u"a@b"_s, u"s"_s, {}}).size();
  const QString fits(longestMailLink - frame, u'x');
  const Mail mail{u"a@b"_s, u"s"_s, {{fits, Cut::KeepStart}}};
  QCOMPARE(cutMailLink(mail), mailtoLink(mail));
  QCOMPARE(cutMailLink(mail).size(), longestMailLink);
  const Mail larger{u"a@b"_s, u"s"_s, {{fits + u'x', Cut::KeepStart}}};
  QVERIFY(cutMailLink(larger).size() <= longestMailLink);
  QVERIFY(readLink(cutMailLink(larger)).body.contains(u"characters left out"_s));
}

void TestSupportMail::cutsOutputAndPreferencesFirst() {
  const QString output = u"first "_s + QString(100000, u'o') + u" last"_s;
  const QString preferences(150000, u'p');
  const Mail mail{u"a@b"_s,
                  u"subject"_s,
                  {{u"Hello\n"_s},
                   {output, Cut::KeepMiddleOut},
                   {u"\nHardware\n"_s},
                   {preferences, Cut::KeepStart},
                   {u"\nend"_s}}};
  const QString link = cutMailLink(mail);
  QVERIFY(link.size() <= longestMailLink);
  constexpr qsizetype hardlyWasted = 100;
  QVERIFY(link.size() > longestMailLink - hardlyWasted);
  const Read read = readLink(link);
  QCOMPARE(read.subject, u"subject"_s);
  QVERIFY(read.body.startsWith(u"Hello\nfirst ooo"_s));
  QVERIFY(read.body.contains(u"ooo last\nHardware\nppp"_s));
  QVERIFY(read.body.endsWith(u" characters left out, the message was too long …]\nend"_s));
  QCOMPARE(read.body.count(u"characters left out, the message was too long"_s), 2);
  const qsizetype keptOutput =
      read.body.count(u'o') -
      QString(u"Hello characters left out, the message was too long …] "_s).count(u'o') * 2;
  QVERIFY(qAbs(keptOutput - read.body.count(u'p')) < hardlyWasted);

  const Mail shortOutput{
      u"a@b"_s, u"s"_s, {{u"short"_s, Cut::KeepMiddleOut}, {preferences, Cut::KeepStart}}};
  QVERIFY(readLink(cutMailLink(shortOutput)).body.startsWith(u"shortppp"_s));
}

void TestSupportMail::cutsTheRestAtLast() {
  const Mail mail{
      u"a@b"_s, u"s"_s, {{QString(200000, u't')}, {u"output"_s, Cut::KeepMiddleOut}, {u"\nend"_s}}};
  const QString link = cutMailLink(mail);
  QVERIFY(link.size() <= longestMailLink);
  QVERIFY(readLink(link).body.startsWith(u"ttt"_s));
  QVERIFY(readLink(link).body.endsWith(u"\nend"_s));
}

void TestSupportMail::neverExceedsTheLimit_data() {
  QTest::addColumn<QString>("text");
  QTest::newRow("plain") << u"x"_s;
  QTest::newRow("three bytes a character") << u"\n"_s;
  QTest::newRow("nine bytes") << u"日"_s;
  QTest::newRow("twelve bytes a pair") << u"🎬"_s;
  QTest::newRow("mixed") << u"a🎬"_s;
}

void TestSupportMail::neverExceedsTheLimit() {
  QFETCH(QString, text);
  for (const qsizetype limit : {1000, 1001, 1002, 1003, 1013, 5000}) {
    for (const Cut cut : {Cut::Last, Cut::KeepStart, Cut::KeepMiddleOut}) {
      const Mail mail{u"a@b"_s, u"s"_s, {{u"Hello "_s}, {text.repeated(6000), cut}, {u"end"_s}}};
      const QString link = cutMailLink(mail, limit);
      QVERIFY(link.size() <= limit);
      const QString body = readLink(link).body;
      QVERIFY(body.startsWith(u"Hello "_s));
      QVERIFY(!body.contains(QChar::ReplacementCharacter));
      QVERIFY(body.contains(u"left out"_s));
    }
  }
}

void TestSupportMail::problemReport() {
  SupportFacts made = facts();
  made.isUserAdmin = true;
  made.crashLogs = 2;
  made.preferences = "[General]\nkey=1\n";
  const QString details(401, u'd');
  const Read read = readLink(mailtoLink(problemReportMail(made, u"It broke"_s, details, true)));
  QCOMPARE(read.address, u"support@decant.example"_s);
  QCOMPARE(read.subject, u"Decant v1.2.3 (45) Problem Report"_s);
  QCOMPARE(
      read.body,
      QString(u"Hello\nA fatal error in Decant occured (It broke).\n\nBye\n\nP.S. Details: "_s +
              details +
              u"\n\n\nP.P.S: Hardware: Box 3 Software: Debian 12 6.1 Admin: 1 Problems: 2\n\n"
              u"Preferences: W0dlbmVyYWxdCmtleT0xCg==\n"_s));
}

void TestSupportMail::problemReportWithoutCrashes() {
  const Read read = readLink(mailtoLink(problemReportMail(facts(), u"m"_s, u""_s, false)));
  QVERIFY(read.body.startsWith(u"Hello\nA  error in Decant occured (m).\n"_s));
  QVERIFY(read.body.endsWith(u" Admin: 0\n\nPreferences: \n"_s));
}

void TestSupportMail::supportRequest() {
  SupportFacts made = facts();
  QCOMPARE(readLink(mailtoLink(supportRequestMail(made, u"x@y"_s, u"Help"_s))).body,
           u"Help\n\n\n\nP.S: Hardware: Box 3 Software: Debian 12 6.1\n"_s);
  made.crashLogs = 1;
  made.preferences = "a";
  const Read read = readLink(mailtoLink(supportRequestMail(made, u"x@y"_s, u"Help"_s)));
  QCOMPARE(read.address, u"x@y"_s);
  QCOMPARE(read.subject, u"Decant v1.2.3 (45) Support Request"_s);
  QCOMPARE(read.body,
           u"Help\n\n\n\nP.S: Hardware: Box 3 Software: Debian 12 6.1 Problems: 1\nYQ=="_s);
}

QTEST_GUILESS_MAIN(TestSupportMail)
#include "tst_supportmail.moc"
