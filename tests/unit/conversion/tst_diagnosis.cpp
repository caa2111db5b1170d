#include <QTest>

#include "BracketingTranslator.h"
#include "Diagnosis.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

const auto noSpace = u"av_interleaved_write_frame(): No space left on device"_s;
const auto timedOut = u"/mnt/a.mp4: Operation timed out"_s;
const auto badDescriptor = u"Error writing trailer of /out/a.mp4: Bad file descriptor"_s;
const auto readError = u"[matroska,webm @ 0x5581] Read error at pos. 81 (0x51)"_s;
const auto decodingError = u"Error while decoding stream #0:1: Invalid data found"_s;
const auto oldTag =
    u"[mp4 @ 0x1] track 0: could not find tag, codec not currently supported in container"_s;
const auto newTag =
    u"[mp4 @ 0x1] Could not find tag for codec vp8 in stream #0, codec not currently supported in "
    "container"_s;

// A failed run with embedded subtitles that were converted, and a subtitle file.
DiagnosisFacts withSubtitles(const QString &output) {
  return {output, {}, false, true, true};
}

}  // namespace

class TestDiagnosis : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void rules_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("kind");
    const auto row = [](const char *name, const QString &output, const char *kind) {
      QTest::newRow(name) << output << QString::fromLatin1(kind);
    };
    row("no space", noSpace, "noSpace");
    row("timed out", timedOut, "unreliableDisk");
    row("connection timed out", u"/net/a.mp4: Connection timed out"_s, "unreliableDisk");
    row("bad descriptor", badDescriptor, "unreliableDisk");
    row("both", timedOut + badDescriptor, "unreliableDisk");
    row("damage", readError + decodingError, "damagedSource");
    row("damage in the other order", decodingError + u'x' + readError, "damagedSource");
    row("removed", u"USER_REMOVED"_s, "sourceRemoved");
    row("tag, older text", oldTag, "videoNotEmbeddable");
    row("tag, today's text", newTag, "videoNotEmbeddable");
    // Order clashes: the earlier rule decides.
    row("space before disk", timedOut + noSpace, "noSpace");
    row("disk before damage", readError + decodingError + timedOut, "unreliableDisk");
    row("damage before removed", u"USER_REMOVED"_s + readError + decodingError, "damagedSource");
    row("removed before tag", newTag + u"USER_REMOVED"_s, "sourceRemoved");
    row("tag before subtitles", oldTag, "videoNotEmbeddable");
    row("all", newTag + oldTag + u"USER_REMOVED"_s + readError + decodingError + timedOut + noSpace,
        "noSpace");
  }
  void rules() {
    QFETCH(QString, output);
    QFETCH(QString, kind);
    QCOMPARE(failureKindName(failureKindOf({output, {}, true, false, false})), kind);
    // Subtitles are suspected only when the output tells nothing.
    QCOMPARE(failureKindName(failureKindOf(withSubtitles(output))), kind);
    QCOMPARE(failureKindName(failureKindOf(withSubtitles(u"\uFFFD"_s + output + u"end"_s))), kind);
  }

  void unclaimed_data() {
    QTest::addColumn<QString>("output");
    QTest::newRow("nothing") << QString();
    QTest::newRow("an ordinary warning") << u"[mp4 @ 0x1] Timestamps are unset in a packet"_s;
    QTest::newRow("read error alone") << readError;
    QTest::newRow("decoding error alone") << decodingError;
    QTest::newRow("other case") << noSpace.toUpper();
    QTest::newRow("torn") << u"No space left on devic"_s;
    QTest::newRow("older text, another track")
        << u"track 1: could not find tag, codec not currently supported in container"_s;
    QTest::newRow("today's text, another stream")
        << u"Could not find tag for codec dts in stream #1, codec not currently supported in container"_s;
    QTest::newRow("today's text, stream 10")
        << u"Could not find tag for codec dts in stream #10, codec not currently supported in "
           "container"_s;
    QTest::newRow("another complaint about stream 0")
        << u"Could not find tag for codec vp8 in stream #0, ignored"_s;
    QTest::newRow("trailer") << u"Error writing trailer of a.mp4: Input/output error"_s;
  }
  void unclaimed() {
    QFETCH(QString, output);
    QCOMPARE(failureKindOf({output, {}, true, true, false}), FailureKind::unknown);
  }

  void subtitles_data() {
    QTest::addColumn<bool>("disabled");
    QTest::addColumn<bool>("tracks");
    QTest::addColumn<bool>("file");
    QTest::addColumn<QString>("kind");
    QTest::newRow("none") << false << false << false << u"unknown"_s;
    QTest::newRow("embedded") << false << true << false << u"embeddedSubtitles"_s;
    QTest::newRow("embedded, not converted") << true << true << false << u"unknown"_s;
    QTest::newRow("file") << false << false << true << u"subtitleFile"_s;
    QTest::newRow("file, embedded not converted") << true << true << true << u"subtitleFile"_s;
    QTest::newRow("file alone, embedded off") << true << false << true << u"subtitleFile"_s;
    QTest::newRow("embedded before file") << false << true << true << u"embeddedSubtitles"_s;
    QTest::newRow("nothing at all") << true << false << false << u"unknown"_s;
  }
  void subtitles() {
    QFETCH(bool, disabled);
    QFETCH(bool, tracks);
    QFETCH(bool, file);
    const FailureKind kind = failureKindOf({u"Conversion failed!"_s, {}, disabled, tracks, file});
    QTEST(failureKindName(kind), "kind");
  }

  void explanations_data() {
    QTest::addColumn<DiagnosisFacts>("facts");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const DiagnosisFacts &facts, const char *title,
                        const char *text) {
      QTest::newRow(name) << facts << QString::fromLatin1(title) << QString::fromLatin1(text);
    };
    row("noSpace", {noSpace, {}, true, false, false}, "Conversion Failed",
        "Movie conversion failed because there is not enough free space left on the destination "
        "volume. Please make sure your harddisk has enough free space before starting conversion");
    row("unreliableDisk", {timedOut, {}, true, false, false}, "Conversion Failed",
        "Movie conversion failed but it seems the reason is that the disk or network volume to "
        "save "
        "the movie is having problems. Try converting to a reliable disk and copying the file to "
        "its "
        "destination later.");
    row("damagedSource", {readError + decodingError, {}, true, false, false}, "Conversion Failed",
        "Movie conversion failed because the movie seems to be too damaged to convert - playback "
        "may "
        "work but converting it is impossible.");
    row("sourceRemoved", {u"USER_REMOVED"_s, {}, true, false, false}, "Conversion Failed",
        "Movie conversion failed because you've removed/renamed the source movie file or unmounted "
        "it's volume.");
    row("videoNotEmbeddable", {newTag, {}, true, false, false}, "Conversion Failed",
        "Movie conversion failed because you are trying to convert a movie with a video track that "
        "can't be embedded into MP4s.");
    row("embeddedSubtitles", {u""_s, {}, false, true, false}, "Information",
        "A problem occured - this is most likely related to the subtitles embedded into the movie. "
        "Please disable conversion of embedded subtitles in the preferences and try again.");
    row("subtitleFile", {u""_s, {}, true, false, true}, "Information",
        "A problem occured - this is most likely related to the subtitle file you have specified. "
        "Please try again without the subtitle file.");
  }
  void explanations() {
    QFETCH(DiagnosisFacts, facts);
    const Diagnosis diagnosis = diagnose(facts);
    QCOMPARE(failureKindName(diagnosis.kind), QString::fromLatin1(QTest::currentDataTag()));
    QTEST(diagnosis.title, "title");
    QTEST(diagnosis.text, "text");
    QCOMPARE(diagnosis.buttons, QStringList{u"OK"_s});
    QVERIFY(!diagnosis.offersReport);
  }

  void unknownShowsTheRun() {
    const Diagnosis diagnosis =
        diagnose({u"Conversion failed!%@"_s, {u"-i"_s, u"/a %@ b.mkv"_s}, true, false, false});
    QCOMPARE(failureKindName(diagnosis.kind), u"unknown"_s);
    QCOMPARE(diagnosis.title, u"Information"_s);
    QCOMPARE(diagnosis.text,
             u"A problem prevented the file from being converted. You can contact our support with "
             "this information so that we can fix this problem.\n\nCommand-line: -i /a %@ b.mkv\n"
             "Command-output: Conversion failed!%@"_s);
    QCOMPARE(diagnosis.buttons, (QStringList{u"Send to support"_s, u"Cancel"_s}));
    QVERIFY(diagnosis.offersReport);
  }

  void unknownShows400Characters_data() {
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("400") << 400 << 400;
    QTest::newRow("401") << 401 << 400;
    QTest::newRow("many") << 100'000 << 400;
  }
  void unknownShows400Characters() {
    QFETCH(int, length);
    QFETCH(int, shown);
    const QStringList arguments{QString(500, u'a')};
    const Diagnosis diagnosis = diagnose({QString(length, u'x'), arguments, true, false, false});
    const QString end =
        u"Command-line: "_s + arguments[0] + u"\nCommand-output: "_s + QString(shown, u'x');
    QVERIFY(diagnosis.text.endsWith(end));
  }

  void aRunThatNeverSpokeIsNoNullText() {
    QVERIFY(diagnose({}).text.endsWith(u"Command-line: \nCommand-output: "));
  }

  void wordsAreTranslatedAndKindsAreNot() {
    const BracketingTranslator translator;
    const Diagnosis full = diagnose({noSpace, {}, true, false, false});
    QCOMPARE(full.title, u"<Conversion Failed>"_s);
    QVERIFY(full.text.startsWith(u"<Movie") && full.text.endsWith(u"conversion>"));
    QCOMPARE(full.buttons, QStringList{u"<OK>"_s});
    QCOMPARE(failureKindName(full.kind), u"noSpace"_s);
    const Diagnosis unknown = diagnose({u"x"_s, {u"-i"_s}, true, false, false});
    QCOMPARE(unknown.title, u"<Information>"_s);
    QVERIFY(unknown.text.endsWith(u"Command-line: -i\nCommand-output: x>"));
    QCOMPARE(unknown.buttons, (QStringList{u"<Send to support>"_s, u"<Cancel>"_s}));
  }

  void unfinishedFile_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("unfinished");
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("warnings") << QString(noSpace + decodingError) << false;
    QTest::newRow("trailer") << u"x Error writing trailer of /out/a.mp4: No space left"_s << true;
    QTest::newRow("closing") << u"Error closing file /out/a.mp4"_s << true;
    QTest::newRow("another error about it") << u"Error opening file"_s << false;
  }
  void unfinishedFile() {
    QFETCH(QString, output);
    QTEST(saysUnfinishedFile(output), "unfinished");
  }

  void cutOffSource_data() {
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("cutOff");
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("damaged") << QString(readError + decodingError) << false;
    QTest::newRow("a corrupt packet only") << u"Packet corrupt (stream = 1, dts = 9)."_s << false;
    QTest::newRow("a path with those words, of Matroska")
        << u"/x/File ended prematurely.mkv: corrupt input packet in stream 1"_s << false;
    QTest::newRow("a path with those words, of MP4")
        << u"/x/a: partial file.mp4: corrupt input packet in stream 1"_s << false;
    QTest::newRow("Matroska") << u"[matroska,webm @ 0x1] File ended prematurely"_s << true;
    QTest::newRow("Matroska, of old")
        << u"[matroska,webm @ 0x1] File ended prematurely at pos. 9 (0x9)"_s << true;
    QTest::newRow("MP4") << u"[mov,mp4 @ 0x1] stream 0, offset 0xd12d: partial file"_s << true;
  }
  void cutOffSource() {
    QFETCH(QString, output);
    QTEST(saysSourceIsCutOff(output), "cutOff");
  }

  // Every phrase of the rules is noticed in a line, each as one of its own.
  void tellingLines() {
    Phrases seen = 0;
    for (const QString &line :
         {noSpace, timedOut, u"Bad file descriptor"_s, readError, decodingError, u"USER_REMOVED"_s,
          oldTag, newTag, u"Error writing trailer"_s, u"Error closing file"_s,
          u"[matroska,webm @ 0x1] File ended prematurely at pos. 9 (0x9)"_s,
          u"stream 0, offset 0xd12d"_s, u"stream 0: partial file"_s}) {
      const Phrases phrases = tellingPhrases(line.toLatin1());
      QVERIFY2(phrases != 0 && (phrases & seen) == 0, qPrintable(line));
      seen |= phrases;
    }
    QCOMPARE(tellingPhrases("an ordinary line"), Phrases(0));
    QCOMPARE(tellingPhrases({}), Phrases(0));
  }
};

QTEST_GUILESS_MAIN(TestDiagnosis)
#include "tst_diagnosis.moc"
