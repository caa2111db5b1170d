#include <QTest>

#include "ConversionMethod.h"
#include "Exceptions.h"
#include "PlanForTests.h"

using namespace decant;
using namespace Qt::StringLiterals;

class TestConversionArguments : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void withoutAudio() {
    const QStringList expected{u"-i"_s,      sourcePath,     u"-stats"_s,    u"-map"_s,
                               u"0:0"_s,     u"-scodec"_s,   u"mov_text"_s,  u"-vcodec"_s,
                               u"copy"_s,    u"-progress"_s, progressPath,   u"-loglevel"_s,
                               u"warning"_s, u"-y"_s,        destinationPath};
    QCOMPARE(expected.size(), 15);
    QCOMPARE(buildArguments(planWith({})), expected);
  }

  void withoutAudioNothingElseIsAdded() {
    ConversionPlan plan = planWith({});
    const QStringList plain = buildArguments(plan);
    plan.settings.FixSubtitleDuration = true;
    plan.settings.DisableBuiltinSubtitles = false;
    plan.settings.IncludeSurroundTrack = true;
    plan.settings.AudioVolume = 200;
    plan.settings.ExternalSubtitleEncoding = 8;
    plan.fileInfo.subtitleTrackIDs = {2, 3};
    plan.fileInfo.subtitleFileURL = QUrl::fromLocalFile(subtitlePath);
    plan.audioTrackIndex = 7;
    plan.fixup = true;
    QCOMPARE(buildArguments(plan), plain);
  }

  void streamableComesJustBeforeTheDestination_data() {
    QTest::addColumn<QStringList>("tracks");
    QTest::newRow("without audio") << QStringList{};
    QTest::newRow("with audio") << QStringList{u"#1: eng (ac3)"_s};
  }
  void streamableComesJustBeforeTheDestination() {
    QFETCH(QStringList, tracks);
    ConversionPlan plan = planWith(tracks);
    QStringList expected = buildArguments(plan);
    expected.removeLast();
    expected << u"-movflags"_s << u"faststart"_s << destinationPath;
    plan.settings.ProduceStreamableFiles = true;
    QCOMPARE(buildArguments(plan), expected);
  }

  void baseListWithAudio() {
    const QStringList expected{u"-i"_s,       sourcePath,     u"-stats"_s,    u"-map"_s,
                               u"0:0"_s,      u"-map"_s,      u"0:1"_s,       u"-scodec"_s,
                               u"mov_text"_s, u"-vcodec"_s,   u"copy"_s,      u"-acodec"_s,
                               u"copy"_s,     u"-progress"_s, progressPath,   u"-loglevel"_s,
                               u"warning"_s,  u"-y"_s,        destinationPath};
    QCOMPARE(expected.size(), 19);
    QCOMPARE(buildArguments(planWith({u"#1: eng (aac)"_s})), expected);
  }

  void streamsAreNamedByTheirNumbers() {
    ConversionPlan plan = planWith({u"#1: eng (aac)"_s, u"#12: ger (aac)"_s});
    plan.fileInfo.videoTrackID = 3;
    plan.audioTrackIndex = 1;
    const QStringList arguments = buildArguments(plan);
    QCOMPARE(arguments.mid(3, 4), (QStringList{u"-map"_s, u"0:3"_s, u"-map"_s, u"0:12"_s}));
  }

  void pathsStayAsTheyAre_data() {
    QTest::addColumn<QString>("path");
    QTest::newRow("blanks and quotes") << u"/a b/\"c\" 'd'.mkv"_s;
    QTest::newRow("percent signs") << u"/%n %20 %@ %s.mkv"_s;
    QTest::newRow("line break") << u"/a\nb.mkv"_s;
    QTest::newRow("like an option") << u"/-progress/-stats -y.mkv"_s;
    QTest::newRow("not collapsed") << u"/a/./b//../c.mkv"_s;
    QTest::newRow("foreign letters") << u"/映画/Füße 🎬.mkv"_s;
    QTest::newRow("marks of a location") << u"/a#b?c;d&e.mkv"_s;
  }
  void pathsStayAsTheyAre() {
    QFETCH(QString, path);
    ConversionPlan plan = planWith({u"#1: eng (ac3)"_s});
    plan.fileInfo.fileURL = QUrl::fromLocalFile(path);
    plan.fileInfo.destinationURL = QUrl::fromLocalFile(path + u".mp4"_s);
    plan.progressFile = path + u".log"_s;
    plan.fileInfo.subtitleFileURL = QUrl::fromLocalFile(path + u".srt"_s);
    const QStringList arguments = buildArguments(plan);
    QCOMPARE(arguments[1], path);
    QCOMPARE(arguments.last(), QString(path + u".mp4"_s));
    QCOMPARE(between(arguments, u"-progress"_s, u"-loglevel"_s), QStringList{path + u".log"_s});
    QCOMPARE(arguments.mid(2, 3), (QStringList{u"-i"_s, path + u".srt"_s, u"-stats"_s}));
  }

  void subtitleDurationsAreFixedFirst() {
    ConversionPlan plan = planWith({u"#1: eng (ac3)"_s});
    const QStringList without = buildArguments(plan);
    plan.settings.FixSubtitleDuration = true;
    QCOMPARE(buildArguments(plan), QStringList{u"-fix_sub_duration"_s} + without);
  }

  void everythingEnabled() {
    ConversionPlan plan = planWith({u"#1: eng (ac3)"_s, u"#3: eng (dts) [5.1]"_s});
    plan.fileInfo.audioTrackInformation[0].HZ = 96000;
    plan.fileInfo.subtitleTrackIDs = {4, 5};
    plan.fileInfo.subtitleFileURL = QUrl::fromLocalFile(subtitlePath);
    plan.settings.AudioVolume = 150;
    plan.settings.AACBitrate = 2;
    plan.settings.AC3SurroundBitrate = 0;
    plan.settings.IncludeSurroundTrack = true;
    plan.settings.DisableBuiltinSubtitles = false;
    plan.settings.ExternalSubtitleEncoding = 8;
    plan.settings.FixSubtitleDuration = true;
    plan.settings.ProduceStreamableFiles = true;
    const QStringList expected{u"-fix_sub_duration"_s,
                               u"-i"_s,
                               sourcePath,
                               u"-sub_charenc"_s,
                               u"CP1252"_s,
                               u"-i"_s,
                               subtitlePath,
                               u"-stats"_s,
                               u"-map"_s,
                               u"0:0"_s,
                               u"-map"_s,
                               u"[out]"_s,
                               u"-map"_s,
                               u"0:3"_s,
                               u"-map"_s,
                               u"1:0"_s,
                               u"-map"_s,
                               u"0:5"_s,
                               u"-map"_s,
                               u"0:4"_s,
                               u"-scodec"_s,
                               u"mov_text"_s,
                               u"-vcodec"_s,
                               u"copy"_s,
                               u"-acodec"_s,
                               u"aac"_s,
                               u"-filter_complex"_s,
                               u"[0:1]volume=1.50[out]"_s,
                               u"-ar"_s,
                               u"48000"_s,
                               u"-ac"_s,
                               u"2"_s,
                               u"-b:a"_s,
                               u"160k"_s,
                               u"-c:a:1"_s,
                               u"ac3"_s,
                               u"-ac:2"_s,
                               u"6"_s,
                               u"-b:a:1"_s,
                               u"384k"_s,
                               u"-progress"_s,
                               progressPath,
                               u"-loglevel"_s,
                               u"warning"_s,
                               u"-y"_s,
                               u"-movflags"_s,
                               u"faststart"_s,
                               destinationPath};
    QCOMPARE(buildArguments(plan), expected);
    QCOMPARE(completeArguments(plan), expected);
  }

  void filterComesAfterTheAudioMap() {
    ConversionPlan plan = planWith({u"#1: eng (aac)"_s});
    plan.fixup = true;
    const QStringList arguments = buildArguments(plan);
    QCOMPARE(arguments.size(), 21);
    QCOMPARE(arguments.mid(5, 5),
             (QStringList{u"-map"_s, u"0:1"_s, u"-absf"_s, u"aac_adtstoasc"_s, u"-scodec"_s}));
  }

  void furtherMapsComeBeforeTheFilter() {
    ConversionPlan plan = planWith({u"#1: eng (aac)"_s, u"#2: eng (ac3) [5.1]"_s});
    plan.fixup = true;
    plan.settings.IncludeSurroundTrack = true;
    plan.settings.DisableBuiltinSubtitles = false;
    plan.fileInfo.subtitleTrackIDs = {6};
    QCOMPARE(between(buildArguments(plan), u"-stats"_s, u"-scodec"_s),
             (QStringList{u"-map"_s, u"0:0"_s, u"-map"_s, u"0:1"_s, u"-map"_s, u"0:2"_s, u"-map"_s,
                          u"0:6"_s, u"-absf"_s, u"aac_adtstoasc"_s}));
  }

  void onlyACopiedAacTrackIsAskedAbout_data() {
    QTest::addColumn<QString>("track");
    QTest::addColumn<bool>("wanted");
    QTest::newRow("aac") << u"#1: eng (aac)"_s << true;
    QTest::newRow("aac 5.1") << u"#1: eng (aac) [5.1]"_s << true;
    QTest::newRow("he-aac, copied") << u"#1: eng (he-aac)"_s << false;
    QTest::newRow("ac3, copied") << u"#1: eng (ac3)"_s << false;
    QTest::newRow("dts, transcoded") << u"#1: eng (dts)"_s << false;
  }
  void onlyACopiedAacTrackIsAskedAbout() {
    QFETCH(QString, track);
    QFETCH(bool, wanted);
    ConversionPlan plan = planWith({track});
    plan.settings.ConversionPreset = ConversionPresetCustom;
    plan.settings.CustomUnknownHandling = ConversionMethodCopy;
    QCOMPARE(wantsFixupTest(plan.fileInfo, 0, plan.settings), wanted);
    // Whatever the answer is said to have been, only such a track gets the filter.
    plan.fixup = true;
    QCOMPARE(buildArguments(plan).contains(u"-absf"_s), wanted);
  }

  void withoutSuchATrackNothingIsAsked() {
    QVERIFY(!wantsFixupTest(recordWith({}), 0, {}));
    QVERIFY(!wantsFixupTest(recordWith({u"#1: eng (aac)"_s}), 1, {}));
  }

  void fixupTest() {
    MKVFileInfo record = recordWith({u"#4: eng (aac)"_s});
    record.videoTrackID = 2;
    const QStringList expected{u"-i"_s,   sourcePath,   u"-stats"_s, u"-t"_s,  u"1"_s,
                               u"-map"_s, u"0:2"_s,     u"-map"_s,   u"0:4"_s, u"-vcodec"_s,
                               u"copy"_s, u"-acodec"_s, u"copy"_s,   u"-y"_s,  u"/test.mp4"_s};
    QCOMPARE(fixupTestArguments(record, 4, u"/test.mp4"_s), expected);
  }

  void fixupAnswer() {
    QVERIFY(
        needsFixup("[mp4 @ 0x1] Malformed AAC bitstream detected: use the audio bitstream filter "
                   "'aac_adtstoasc' to fix it\n"));
    QVERIFY(needsFixup("aac_adtstoasc"));
    QVERIFY(!needsFixup("aac_adts toasc"));
    QVERIFY(!needsFixup({}));
  }

  void aPlanThatNamesNothingIsRefused() {
    ConversionPlan plan = planWith({u"#1: eng (dts)"_s});
    plan.audioTrackIndex = 1;
    QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)buildArguments(plan));
    plan.audioTrackIndex = 0;
    plan.settings.AACBitrate = 4;
    QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)buildArguments(plan));
    plan.settings.AACBitrate = 0;
    plan.fileInfo.subtitleFileURL = QUrl::fromLocalFile(subtitlePath);
    plan.settings.ExternalSubtitleEncoding = 39;
    QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)buildArguments(plan));
    plan.settings.ExternalSubtitleEncoding = 38;
    plan.settings.ConversionPreset = ConversionPresetCustom;
    plan.settings.CustomDTSHandling = 4;
    QVERIFY_THROWS_EXCEPTION(ostrak::RangeError, (void)buildArguments(plan));
  }
};

QTEST_GUILESS_MAIN(TestConversionArguments)
#include "tst_conversionarguments.moc"
