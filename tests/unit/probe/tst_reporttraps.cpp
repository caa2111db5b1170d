#include <QList>
#include <QObject>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include "Exceptions.h"
#include "Reports.h"

using namespace Qt::StringLiterals;
using decant::ProbeOutcome;

// Reports that mislead: names and tags that look like report lines, bytes that are no text, and
// reports that are damaged at random.
class TestReportTraps final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void deceptiveNames_data();
  void deceptiveNames();
  void shortPathsDoNoHarm_data();
  void shortPathsDoNoHarm();
  void deceptiveTags_data();
  void deceptiveTags();
  void bytesThatAreNoText();
  void damagedReports_data();
  void damagedReports();
};

namespace {

QStringList usualLines() {
  return {durationLine(), videoLine(), u"  Stream #0:1(eng): Audio: aac, 48000 Hz, stereo"_s,
          u"    Metadata:"_s, u"      title           : Main"_s};
}

// Whether the outcome is that of `usualLines`.
bool isUsual(const ProbeOutcome &outcome) {
  return outcome.record && outcome.alerts.isEmpty() &&
         outcome.record->informationString ==
             u"Duration: 01:30:00  Bitrate: 2000 kb/s  Resolution: 1280x720  Audiotracks: 1 (0)" &&
         textsOf(outcome.record->audioTrackInformation) == QStringList{u"#1: eng (aac)"_s} &&
         outcome.record->videoTrackID == 0;
}

}  // namespace

void TestReportTraps::deceptiveNames_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("printed");
  const auto row = [](const char *title, const QString &name, const QString &printed = {}) {
    QTest::newRow(title) << name << (printed.isNull() ? name : printed);
  };
  row("line break", u"two\nlines.mkv"_s);
  row("stream line", u"a\n  Stream #0:5: Video: prores, 99x99.mkv"_s);
  row("stream word", u"a\nStream"_s);
  row("duration line", u"a\nDuration: 00:00:01.0, start: 0"_s);
  row("duration without colon", u"Duration: x\nDuration"_s);
  row("carriage return", u"a\rStream of thoughts.mkv"_s);
  row("line separator", u"a\u2028Stream of thoughts.mkv"_s);
  row("quotes", u"it's 'quoted': \"so\".mkv"_s);
  row("control characters", u"a\x01\x1b[31m\nStream.mkv"_s, u"a??[31m\nStream.mkv"_s);
  row("tab and bell", u"a\t\x07\nDuration.mkv"_s, u"a\t?\nDuration.mkv"_s);
  row("patterns", u"%n %@ \\E.*[a-z]+\nStream.mkv"_s);
  row("leading dash", u"-i\nStream.mkv"_s);
  row("beyond the basic plane", u"🎬\nStream 🎬.mkv"_s);
}

void TestReportTraps::deceptiveNames() {
  QFETCH(QString, name);
  QFETCH(QString, printed);
  const QString folder = u"/movies/"_s;
  const QStringList lines = usualLines()
                            << QString(folder + printed + u": some remark"_s)
                            << QString(u"Error opening '"_s + folder + printed + u'\'');
  const auto outcome =
      decant::parseReport(reportOf(lines, folder + printed), sourceAt(folder + name), {});
  QVERIFY(isUsual(outcome));
  QCOMPARE(outcome.record->fileName, name);

  // A report of the error alone.
  const QString refusal = folder + printed + u": Invalid data found when processing input\n"_s;
  const auto refused = decant::parseReport(refusal, sourceAt(folder + name), {});
  QVERIFY(!refused.record);
  QCOMPARE(identifiersOf(refused.alerts), QStringList{u"plain"_s});
}

void TestReportTraps::shortPathsDoNoHarm_data() {
  QTest::addColumn<QString>("path");
  QTest::newRow("end of the unit") << u"/s"_s;
  QTest::newRow("part of a folder") << u"/usr"_s;
  QTest::newRow("root") << u"/"_s;
  QTest::newRow("none") << QString();
  QTest::newRow("relative word of the report") << u"h264"_s;
}

void TestReportTraps::shortPathsDoNoHarm() {
  QFETCH(QString, path);
  QVERIFY(isUsual(decant::parseReport(reportOf(usualLines(), path), sourceAt(path), {})));
}

void TestReportTraps::deceptiveTags_data() {
  QTest::addColumn<QString>("tags");  // one or more whole lines
  QTest::newRow("value of two lines")
      << u"    comment         : one\n                    : Stream #0:9: Video: prores\n"
         "                    : Duration: 1:2:3, bitrate: 1 kb/s"_s;
  QTest::newRow("line separator in a value")
      << u"    title           : one\u2028Stream\u2028Duration\u2029Duration: 1:2:3"_s;
  QTest::newRow("next line in a value") << u"    title           : a\u0085Stream\u0085Duration"_s;
  QTest::newRow("key is Duration") << u"    Duration        : 1:2:3"_s;
  QTest::newRow("key is Stream") << u"    Stream          : Video: prores"_s;
  QTest::newRow("key begins with Stream") << u"    StreamNumber    : 4"_s;
  QTest::newRow("long key begins with Stream") << u"    StreamingProviderName: Video: prores"_s;
  QTest::newRow("words that begin with Duration") << u"    Duration in minutes: 45"_s;
  QTest::newRow("words that begin with Streaming")
      << u"    Streaming video source: Video: prores"_s;
  QTest::newRow("empty value") << u"    StreamNumber    : "_s;
  QTest::newRow("key with a colon") << u"    x:Stream        : a\u2028Stream"_s;
  QTest::newRow("stream group")
      << u"  Stream group #0:0[0x1]: Tile Grid: hevc, 4032x3024 (default)"_s;
  QTest::newRow("key is that of a stream") << u"    Stream #0:5=Video: prores, 9x9"_s;
  QTest::newRow("key is that of a stream, padded") << u"    Stream #0:5     : Video: prores"_s;
  QTest::newRow("key is that of a duration") << u"    Duration: 1:2:3 : x"_s;
  QTest::newRow("log line") << u"[h264 @ 0x55d6c1d42a80] Stream #0: Video: prores, 1x1"_s;
  QTest::newRow("capitals") << u"      DURATION        : 00:00:01.5"_s;
}

void TestReportTraps::deceptiveTags() {
  QFETCH(QString, tags);
  const QStringList lines = usualLines();
  QVERIFY(isUsual(parsed(QStringList{u"  Metadata:"_s, tags} + lines)));
  QVERIFY(isUsual(parsed(lines + QStringList{tags})));
}

void TestReportTraps::bytesThatAreNoText() {
  QByteArray bytes = reportOf(usualLines()).toUtf8();
  bytes.replace("Main", "M\xe4\xff\xc3in \xed\xa0\x80");
  QVERIFY(bytes.contains('\xff'));
  QVERIFY(
      isUsual(decant::parseReport(QString::fromUtf8(bytes), sourceAt(u"/movies/movie.mkv"_s), {})));
}

void TestReportTraps::damagedReports_data() {
  QTest::addColumn<quint32>("seed");
  for (quint32 seed = 1; seed <= 20; ++seed) {
    QTest::addRow("seed %u", seed) << seed;
  }
}

// Every damaged report is read or refused with the one documented error; a record always has the
// shape that is relied on.
void TestReportTraps::damagedReports() {
  QFETCH(quint32, seed);
  QRandomGenerator random(seed);
  const QString intact = reportOf(usualLines() << u"  Stream #0:2[0x2](ger): Subtitle: subrip"_s
                                               << u"      mimetype        : image/png"_s);
  const QList<QString> pieces = {u"\n"_s,
                                 u"Stream"_s,
                                 u"Duration: "_s,
                                 u":"_s,
                                 u"Video: "_s,
                                 u"Audio: "_s,
                                 u"x"_s,
                                 u" Hz"_s,
                                 u"|refs: "_s,
                                 u"[0x"_s,
                                 u"("_s,
                                 u"99999999999999999999"_s,
                                 u"\u2028"_s,
                                 u"\r"_s,
                                 QString(QChar(0)),
                                 QString(QChar(0xd800))};
  for (int round = 0; round < 200; ++round) {
    QString report = intact;
    for (int change = 0; change < 8; ++change) {
      const auto at = random.bounded(report.size());
      const auto length = random.bounded(qsizetype{12});
      report.replace(at, length, pieces[random.bounded(pieces.size())]);
    }
    try {
      const auto outcome = decant::parseReport(report, sourceAt(u"/movies/movie.mkv"_s), {});
      if (!outcome.record) {
        QVERIFY(!outcome.alerts.isEmpty());
        continue;
      }
      QVERIFY(outcome.record->videoTrackID);
      for (const auto &track : outcome.record->audioTrackInformation) {
        const auto words = track.text.split(u' ').size();
        QVERIFY2(words == (track.text.endsWith(u" [5.1]") ? 4 : 3), qUtf8Printable(track.text));
      }
    } catch (const ostrak::RangeError &error) {
      QCOMPARE(error.name(), u"RangeException"_s);
      QVERIFY(!error.reason().isEmpty());
    }
  }
}

QTEST_GUILESS_MAIN(TestReportTraps)
#include "tst_reporttraps.moc"
