#include <QList>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>
#include <QUrl>

#include "Exceptions.h"
#include "Reports.h"

using namespace Qt::StringLiterals;
using decant::ProbeOutcome;

// The grammar, line kind by line kind, with its edge cases.
class TestReportParser final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u"."_s)); }
  void audioLine_data();
  void audioLine();
  void heAac_data();
  void heAac();
  void subtitleLine_data();
  void subtitleLine();
  void durationLines_data();
  void durationLines();
  void brokenGrammarThrows_data();
  void brokenGrammarThrows();
  void lineBreaks_data();
  void lineBreaks();
  void oneDuration_data();
  void oneDuration();
};

void TestReportParser::audioLine_data() {
  QTest::addColumn<QString>("line");
  QTest::addColumn<QString>("text");
  QTest::addColumn<int>("rate");

  const auto row = [](const char *name, const char *line, const char *text, int rate) {
    QTest::newRow(name) << QString::fromUtf8(line) << QString::fromUtf8(text) << rate;
  };
  row("plain", "Stream #0:1(eng): Audio: aac, 48000 Hz, stereo, fltp", "#1: eng (aac)", 48000);
  row("without language", "Stream #0:1: Audio: aac, 44100 Hz, stereo", "#1: unk (aac)", 44100);
  row("id", "Stream #0:2[0x101](ger): Audio: mp2, 48000 Hz", "#2: ger (mp2)", 48000);
  row("id without language", "Stream #0:2[0x1c0]: Audio: mp2, 48000 Hz", "#2: unk (mp2)", 48000);
  row("id full of digits", "Stream #0:3[0x1bd](deu): Audio: ac3, 48000 Hz", "#3: deu (ac3)", 48000);
  row("id never closed", "Stream #0:3[0x1bd(deu): Audio: ac3, 48000 Hz", "#3: [0x1bd(deu (ac3)",
      48000);
  row("other input", "Stream #1:12(und): Audio: opus, 48000 Hz", "#12: und (opus)", 48000);
  row("profile", "Stream #0:1(eng): Audio: dts (DTS-HD MA), 96000 Hz, stereo", "#1: eng (dts)",
      96000);
  row("profile and tag", "Stream #0:1: Audio: aac (LC) (mp4a / 0x6134706D), 8000 Hz, mono",
      "#1: unk (aac)", 8000);
  row("5.1", "Stream #0:1(eng): Audio: ac3, 48000 Hz, 5.1, fltp", "#1: eng (ac3) [5.1]", 48000);
  row("5.1(side)", "Stream #0:1(eng): Audio: ac3, 48000 Hz, 5.1(side), fltp", "#1: eng (ac3) [5.1]",
      48000);
  row("6.1", "Stream #0:1(eng): Audio: dts, 48000 Hz, 6.1, fltp", "#1: eng (dts) [5.1]", 48000);
  row("7.1", "Stream #0:1(eng): Audio: truehd, 48000 Hz, 7.1, s32", "#1: eng (truehd) [5.1]",
      48000);
  row("layout at the end", "Stream #0:1(eng): Audio: ac3, 48000 Hz, 5.1", "#1: eng (ac3)", 48000);
  row("4.0", "Stream #0:1(eng): Audio: ac3, 48000 Hz, 4.0, fltp", "#1: eng (ac3)", 48000);
  row("no rate", "Stream #0:1(eng): Audio: aac, 2 channels", "#1: eng (aac)", 0);
  row("rate is no number", "Stream #0:1(eng): Audio: aac, many Hz", "#1: eng (aac)", 0);
  row("rate at once", "Stream #0:1(eng): Audio: aac 7 Hz", "#1: eng (aac)", 0);
  row("absurd rate", "Stream #0:1(eng): Audio: aac, 99999999999999999999999 Hz", "#1: eng (aac)",
      std::numeric_limits<int>::max());
  row("absurd index", "Stream #0:99999999999999999999(eng): Audio: aac, 48000 Hz",
      "#2147483647: eng (aac)", 48000);
  row("no index", "Stream #0:(eng): Audio: aac, 48000 Hz", "#0: eng (aac)", 48000);
  row("region", "Stream #0:1(pt-BR): Audio: aac, 48000 Hz", "#1: pt-BR (aac)", 48000);
  row("language of two words", "Stream #0:1(Swiss German): Audio: aac, 48000 Hz",
      "#1: Swiss-German (aac)", 48000);
  row("no codec", "Stream #0:1(eng): Audio: , 48000 Hz", "#1: eng ()", 48000);
  row("nothing known", "Stream #0:1(eng): Audio: none", "#1: eng (none)", 0);
  row("indented by a tab", "\tStream #0:1(eng): Audio: aac, 48000 Hz", "#1: eng (aac)", 48000);
}

void TestReportParser::audioLine() {
  QFETCH(QString, line);
  QFETCH(QString, text);
  QFETCH(int, rate);
  const ProbeOutcome outcome = parsed({durationLine(), videoLine(), line});
  QVERIFY(outcome.record);
  QCOMPARE(textsOf(outcome.record->audioTrackInformation), QStringList{text});
  QCOMPARE(outcome.record->audioTrackInformation.first().HZ, rate);
  QVERIFY(outcome.record->informationString.endsWith(u"Audiotracks: 1 (0)"_s));
}

void TestReportParser::heAac_data() {
  QTest::addColumn<QString>("profile");
  QTest::addColumn<bool>("convert");
  QTest::addColumn<QString>("codec");
  QTest::newRow("v1, on") << u"HE-AAC"_s << true << u"he-aac"_s;
  QTest::newRow("v1, off") << u"HE-AAC"_s << false << u"aac"_s;
  QTest::newRow("v2, on") << u"HE-AACv2"_s << true << u"he-aac"_s;
  QTest::newRow("v2, off") << u"HE-AACv2"_s << false << u"aac"_s;
  QTest::newRow("LC, on") << u"LC"_s << true << u"aac"_s;
}

void TestReportParser::heAac() {
  QFETCH(QString, profile);
  QFETCH(bool, convert);
  QFETCH(QString, codec);
  const QString line = u"  Stream #0:3: Audio: aac ("_s + profile + u"), 44100 Hz, stereo, fltp"_s;
  const ProbeOutcome outcome = parsed({videoLine(), line}, convert);
  const QString text = u"#3: unk ("_s + codec + u')';
  QCOMPARE(textsOf(outcome.record->audioTrackInformation), QStringList{text});
}

void TestReportParser::subtitleLine_data() {
  QTest::addColumn<QString>("codec");
  QTest::addColumn<bool>("usable");
  for (const char *codec : {"ssa", "subrip", "srt", "sami", "subviewer", "microdvd", "subrip (srt)",
                            "subviewer1 (default)"}) {
    QTest::newRow(codec) << QString::fromLatin1(codec) << true;
  }
  for (const char *codec : {"ass", "ass (default)", "mov_text (tx3g / 0x67337874)", "dvd_subtitle",
                            "hdmv_pgs_subtitle (pgssub)", "webvtt", "none"}) {
    QTest::newRow(codec) << QString::fromLatin1(codec) << false;
  }
}

void TestReportParser::subtitleLine() {
  QFETCH(QString, codec);
  QFETCH(bool, usable);
  const ProbeOutcome outcome = parsed({videoLine(), u"  Stream #0:7(eng): Subtitle: "_s + codec});
  QCOMPARE(outcome.record->subtitleTrackIDs, usable ? QList<int>{7} : QList<int>());
  QVERIFY(outcome.record->informationString.endsWith(u"Audiotracks: 0 (1)"_s));
}

void TestReportParser::durationLines_data() {
  QTest::addColumn<QStringList>("lines");
  QTest::addColumn<QString>("summary");  // its first two fields
  QTest::addColumn<int>("seconds");      // -1: unknown

  const QString plain = u"  Duration: 01:52:07.46, start: 0.000000, bitrate: 9871 kb/s"_s;
  const QString unknown = u"  Duration: N/A, start: 0.000000, bitrate: N/A"_s;
  const auto row = [](const char *name, const QStringList &lines, const char *summary,
                      int seconds) {
    QTest::newRow(name) << lines << QString::fromLatin1(summary) << seconds;
  };
  row("plain", {plain}, "Duration: 01:52:07  Bitrate: 9871 kb/s  ", 6727);
  row("none", {}, "Duration: (null)  Bitrate: (null)  ", -1);
  row("N/A", {unknown}, "Duration: N/A, start: 0  Bitrate: (null)  ", -1);
  row("two", {plain, u"  Duration: 00:00:05.00, start: 0.0, bitrate: 7 kb/s"_s},
      "Duration: 00:00:05  Bitrate: 7 kb/s  ", 5);
  row("the last has no time", {plain, unknown}, "Duration: N/A, start: 0  Bitrate: 9871 kb/s  ",
      6727);
  row("no fraction", {u"Duration: 00:01:02 bitrate: 1 kb/s"_s},
      "Duration: 00:01:02 bitrate: 1 kb/s  Bitrate: 1 kb/s  ", 62);
  row("bitrate twice", {u"Duration: 00:01:02.1 bitrate: 1 kb/s bitrate: 2"_s},
      "Duration: 00:01:02  Bitrate: 1 kb/s   ", 62);
  row("absurd hours", {u"Duration: 99999999999:00:01.0, bitrate: 1 kb/s"_s},
      "Duration: 99999999999:00:01  Bitrate: 1 kb/s  ", std::numeric_limits<int>::max());
  row("negative", {u"Duration: -99999999999:00:01.0, bitrate: 1 kb/s"_s},
      "Duration: -99999999999:00:01  Bitrate: 1 kb/s  ", std::numeric_limits<int>::min());
  row("letters", {u"Duration: aa:1x:02.0, bitrate: 1 kb/s"_s},
      "Duration: aa:1x:02  Bitrate: 1 kb/s  ", 62);
  row("lower case",
      {u"  duration: 00:00:05.00, bitrate: 7 kb/s"_s, plain,
       u"    DURATION        : 00:00:09.000000000"_s},
      "Duration: 01:52:07  Bitrate: 9871 kb/s  ", 6727);
  row("tag of that name",
      {u"    Duration        : 3600"_s, plain, u"    Duration        : Duration: 1"_s},
      "Duration: 01:52:07  Bitrate: 9871 kb/s  ", 6727);
  row("tag whose long name begins so", {plain, u"    DurationInTheCinema: 2 hours"_s},
      "Duration: 01:52:07  Bitrate: 9871 kb/s  ", 6727);
}

void TestReportParser::durationLines() {
  QFETCH(QStringList, lines);
  QFETCH(QString, summary);
  QFETCH(int, seconds);
  const ProbeOutcome outcome = parsed(lines + QStringList{videoLine()});
  QCOMPARE(outcome.record->informationString,
           QString(summary + u"Resolution: 1280x720  Audiotracks: 0 (0)"_s));
  QCOMPARE(outcome.record->runtimeSeconds,
           seconds == -1 ? std::optional<int>() : std::optional<int>(seconds));
}

void TestReportParser::brokenGrammarThrows_data() {
  QTest::addColumn<QString>("line");
  QTest::newRow("no bitrate") << u"  Duration: 00:00:05.00, start: 0.000000"_s;
  QTest::newRow("duration without colon") << u"  Duration 00:00:05.00, bitrate: 7 kb/s"_s;
  QTest::newRow("duration without blank") << u"  Duration:00:00:05.00, bitrate: 7 kb/s"_s;
  QTest::newRow("stream without pieces") << u"  Stream"_s;
  QTest::newRow("stream without label") << u"  Stream #0 Video h264"_s;
}

void TestReportParser::brokenGrammarThrows() {
  QFETCH(QString, line);
  QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)parsed({videoLine(), line}));
}

void TestReportParser::lineBreaks_data() {
  QTest::addColumn<QString>("lineBreak");
  QTest::newRow("LF") << u"\n"_s;
  QTest::newRow("CR LF") << u"\r\n"_s;
  QTest::newRow("CR") << u"\r"_s;
  QTest::newRow("VT") << u"\v"_s;
  QTest::newRow("line separator") << QString(QChar(0x2028));
  QTest::newRow("next line") << QString(QChar(0x85));
}

void TestReportParser::lineBreaks() {
  QFETCH(QString, lineBreak);
  const QString report =
      QStringList{durationLine(), videoLine(), u"  Stream #0:1: Audio: aac, 48000 Hz"_s}.join(
          lineBreak);
  const auto outcome = decant::parseReport(report, sourceAt(u"/movies/movie.mkv"_s), {});
  QCOMPARE(outcome.record->runtimeSeconds, std::optional<int>(5400));
  QVERIFY(outcome.record->informationString.contains(u"Bitrate: 2000 kb/s "_s));
  QCOMPARE(textsOf(outcome.record->audioTrackInformation), QStringList{u"#1: unk (aac)"_s});
}

void TestReportParser::oneDuration_data() {
  QTest::addColumn<QStringList>("lines");
  QTest::addColumn<int>("seconds");
  QTest::newRow("one") << QStringList{durationLine()} << 5400;
  QTest::newRow("none") << QStringList{videoLine()} << -1;
  QTest::newRow("two") << QStringList{durationLine(), durationLine()} << -1;
  QTest::newRow("anywhere in the line") << QStringList{u"the Duration: 00:01:00.5"_s} << 60;
  QTest::newRow("N/A") << QStringList{u"  Duration: N/A, bitrate: N/A"_s} << -1;
  QTest::newRow("tag in capitals")
      << QStringList{durationLine(), u"  DURATION        : 1"_s} << 5400;
}

void TestReportParser::oneDuration() {
  QFETCH(QStringList, lines);
  QFETCH(int, seconds);
  const QString path = u"/movies/Duration: 1:2:3.mkv"_s;
  const auto found = decant::durationInReport(reportOf(lines, path), QUrl::fromLocalFile(path));
  QCOMPARE(found.value_or(-1), seconds);
}

QTEST_GUILESS_MAIN(TestReportParser)
#include "tst_reportparser.moc"
