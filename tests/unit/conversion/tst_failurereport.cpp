#include <QTest>
#include <QUrlQuery>

#include "ProblemReport.h"
#include "SupportMail.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

const QString address = u"help@decant.example"_s;

ostrak::SupportFacts exampleFacts() {
  ostrak::SupportFacts facts;
  facts.appName = u"Decant"_s;
  facts.appVersion = u"1.2"_s;
  facts.machineType = u"Model 7"_s;
  facts.systemVersion = u"Debian 12"_s;
  facts.preferences = "[General]\n\xff";
  return facts;
}

FailedRun exampleRun() {
  return {u"/a&b/ü?.mkv"_s,
          {u"-i"_s, u"/a&b/ü?.mkv"_s, u"-y"_s, u"/out.mp4"_s},
          u"50% done + more;\nfailed=1"_s,
          u"MKVFileInfo: x"_s};
}

// The mail as a mail program reads it out of the link.
struct ReadMail {
  QString address, subject, body;
};
ReadMail read(const QUrl &link) {
  const QUrlQuery query(link);
  return {link.path(), query.queryItemValue(u"subject"_s, QUrl::FullyDecoded),
          query.queryItemValue(u"body"_s, QUrl::FullyDecoded)};
}

}  // namespace

class TestFailureReport : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void wholeLink() {
    QCOMPARE(
        problemReportLink(exampleFacts(), exampleRun(), address).toEncoded(),
        QByteArray("mailto:help@decant.example?subject=Decant%20v1.2%20Problem%20Report&body="
                   "Hello%0AConversion%20of%20a%20file%20failed.%0A%0ABye%0A%0AP.S.%20Details:%20"
                   "-i%20/a%26b/%C3%BC%3F.mkv%20-y%20/out.mp4%20"
                   "50%25%20done%20%2B%20more%3B%0Afailed%3D1%20MKVFileInfo:%20x"
                   "%0A%0A%0AP.P.S:%20Hardware:%20Model%207%20Software:%20Debian%2012%20"
                   "Preferences:%20W0dlbmVyYWxdCv8%3D"));
  }

  void mailProgramGetsTheExactText() {
    const ReadMail mail = read(problemReportLink(exampleFacts(), exampleRun(), address));
    QCOMPARE(mail.address, u"help@decant.example"_s);
    QCOMPARE(mail.subject, u"Decant v1.2 Problem Report"_s);
    QCOMPARE(mail.body,
             u"Hello\nConversion of a file failed.\n\nBye\n\nP.S. Details: -i /a&b/ü?.mkv -y "
             "/out.mp4 50% done + more;\nfailed=1 MKVFileInfo: x\n\n\nP.P.S: Hardware: Model 7 "
             "Software: Debian 12 Preferences: W0dlbmVyYWxdCv8="_s);
  }

  void withoutAnAddressTheBuiltInOneIsUsed() {
    QCOMPARE(read(problemReportLink(exampleFacts(), exampleRun(), {})).address,
             ostrak::builtInSupportAddress());
  }

  void factsThatAreMissingAreEmpty() {
    QCOMPARE(
        read(problemReportLink({}, {}, {})).body,
        u"Hello\nConversion of a file failed.\n\nBye\n\nP.S. Details:   \n\n\nP.P.S: Hardware:  "
        "Software:  Preferences: "_s);
  }

  void outputIsNotShortened() {
    FailedRun run = exampleRun();
    run.jobOutput = QString(20'000, u'x');
    QVERIFY(read(problemReportLink(exampleFacts(), run, address)).body.contains(run.jobOutput));
  }

  void longReportFitsOneArgument_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("preferences");
    QTest::newRow("output") << QString(400'000, u'x') << 100;
    QTest::newRow("output that grows by escaping") << QString(200'000, QChar(0xFFFD)) << 100;
    QTest::newRow("preferences") << u"short"_s << 400'000;
    QTest::newRow("both") << QString(400'000, u'x') << 400'000;
  }
  void longReportFitsOneArgument() {
    QFETCH(QString, output);
    QFETCH(int, preferences);
    ostrak::SupportFacts facts = exampleFacts();
    FailedRun run = exampleRun();
    run.jobOutput = output;
    facts.preferences = QByteArray(preferences, 'p');
    const QUrl link = problemReportLink(facts, run, address);
    QVERIFY(link.toEncoded().size() <= ostrak::longestMailLink);
    QVERIFY(link.toEncoded().size() > ostrak::longestMailLink - 100);
    const QString body = read(link).body;
    QVERIFY(body.contains(run.arguments.join(u' ')));
    QVERIFY(body.contains(run.recordDescription));
    QVERIFY(body.contains(facts.machineType));
    // The cut is told.
    QVERIFY(body.contains(u"left out"));
  }
};

QTEST_GUILESS_MAIN(TestFailureReport)
#include "tst_failurereport.moc"
