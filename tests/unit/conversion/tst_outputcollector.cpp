#include <QTest>
#include <random>

#include "OutputCollector.h"

using namespace decant;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kept = OutputCollector::headLimit + OutputCollector::tailLimit;

// Takes `output` in pieces of `size` bytes.
OutputCollector collected(const QByteArray &output, qsizetype size) {
  OutputCollector collector;
  for (qsizetype at = 0; at < output.size(); at += size)
    collector.add(QByteArrayView(output).sliced(at, std::min(size, output.size() - at)));
  return collector;
}

QString textOf(const QByteArray &output, qsizetype size = 1 << 20) {
  OutputCollector collector = collected(output, size);
  collector.finish({});
  return collector.text();
}

// Numbered lines of 50 bytes, break included.
QByteArray numberedLines(int from, int count) {
  QByteArray lines;
  for (int i = from; i < from + count; ++i)
    lines += QByteArray::number(i).rightJustified(8, '0') + QByteArray(41, '.') + '\n';
  return lines;
}

}  // namespace

class TestOutputCollector : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".?"_s)); }

  void lines_data() {
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QString>("text");
    const QByteArray statistics =
        "frame=  100 fps= 25 q=-1.0 size= 12kB time=00:00:04 bitrate= 20kbits/s";
    QTest::newRow("nothing") << QByteArray() << u""_s;
    QTest::newRow("one line") << QByteArray("abc\n") << u"abc"_s;
    QTest::newRow("lines run together") << QByteArray("abc\ndef\n") << u"abcdef"_s;
    QTest::newRow("last line without a break") << QByteArray("abc\ndef") << u"abcdef"_s;
    QTest::newRow("every break") << QByteArray("a\nb\rc\vd\fe\r\nf") << u"abcdef"_s;
    QTest::newRow("empty lines") << QByteArray("\n\n\r\r\na\n\n") << u"a"_s;
    QTest::newRow("other control characters stay") << QByteArray(
                                                          "a\tb\bc\x01"
                                                          "d\x0e"
                                                          "e\n")
                                                   << u"a\tb\bc\u0001d\u000ee"_s;
    QTest::newRow("zero byte") << QByteArray("a\0b\n", 4) << QString(u"a"_s + QChar(0) + u'b');
    QTest::newRow("statistics") << "a\n" + statistics + "\nb\n" << u"ab"_s;
    QTest::newRow("statistics between carriage returns")
        << "a\r" + statistics + "\r" + statistics + "\rb\r" << u"ab"_s;
    QTest::newRow("statistics without a break") << "a\n" + statistics << u"a"_s;
    QTest::newRow("in the other order") << QByteArray("bitrate=1 frame=2\nb") << u"b"_s;
    QTest::newRow("only one half") << QByteArray("frame=1\nbitrate=2\n") << u"frame=1bitrate=2"_s;
    QTest::newRow("a video's own line")
        << QByteArray("size= 1kB bitrate= 2\n") << u"size= 1kB bitrate= 2"_s;
    QTest::newRow("capitals") << QByteArray("Frame=1 bitrate=2\n") << u"Frame=1 bitrate=2"_s;
    QTest::newRow("foreign letters") << QByteArray(
                                            "\xc3\xa4\xff"
                                            "b\x80\n")
                                     << u"\uFFFD\uFFFD\uFFFDb\uFFFD"_s;
    QTest::newRow("foreign breaks are letters") << QByteArray(
                                                       "a\xc2\x85"
                                                       "b\xe2\x80\xa8"
                                                       "c\n")
                                                << u"a\uFFFD\uFFFDb\uFFFD\uFFFD\uFFFDc"_s;
  }
  void lines() {
    QFETCH(QByteArray, output);
    QFETCH(QString, text);
    // However the reads cut it, also in the middle of a statistics line.
    for (qsizetype size = 1; size <= output.size() + 1; ++size)
      QCOMPARE(textOf(output, size), text);
  }

  void unfinishedLineWaits() {
    OutputCollector collector;
    collector.add("abc\ndef");
    QCOMPARE(collector.text(), u"abc"_s);
    collector.add("g\n");
    QCOMPARE(collector.text(), u"abcdefg"_s);
  }

  void restIsAppendedWhole_data() {
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QString>("text");
    QTest::newRow("breaks and all")
        << QByteArray("a\n") << QByteArray("b\nc\r\n\nd") << u"ab\nc\r\n\nd"_s;
    QTest::newRow("completes a waiting line")
        << QByteArray("a\nb") << QByteArray("c\nd\n") << u"abcd\n"_s;
    QTest::newRow("completes waiting statistics")
        << QByteArray("frame=1 bit") << QByteArray("rate=2\nend\n") << u"end\n"_s;
    QTest::newRow("its own statistics stay")
        << QByteArray("a\n") << QByteArray("frame=1 bitrate=2\n") << u"aframe=1 bitrate=2\n"_s;
    QTest::newRow("nothing left") << QByteArray("a") << QByteArray() << u"a"_s;
    QTest::newRow("only a rest") << QByteArray() << QByteArray("\xe4!") << u"\uFFFD!"_s;
  }
  void restIsAppendedWhole() {
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, rest);
    OutputCollector collector;
    collector.add(before);
    collector.finish(rest);
    QTEST(collector.text(), "text");
  }

  void nothingIsLostBelowTheLimits() {
    const int count = int((kept - 2 * OutputCollector::lineLimit) / 49);
    const QByteArray output = numberedLines(0, count);
    QByteArray expected = output;
    expected.replace("\n", "");
    QCOMPARE(textOf(output, 4096), QString::fromLatin1(expected));
  }

  void floodKeepsHeadAndTail() {
    const QByteArray output = numberedLines(0, 200'000);
    const QString text = textOf(output, 65536);
    QVERIFY(text.size() <= kept);
    QVERIFY(text.size() > kept - 100);
    QByteArray whole = output;
    whole.replace("\n", "");
    const QString expected = QString::fromLatin1(whole);
    QCOMPARE(text.last(OutputCollector::tailLimit), expected.last(OutputCollector::tailLimit));
    const qsizetype head = text.size() - OutputCollector::tailLimit;
    QCOMPARE(text.first(head), expected.first(head));
  }

  void statisticsDoNotFillTheRoom() {
    const QByteArray statistics = "frame=1 fps=2 bitrate=3\r";
    QCOMPARE(textOf("a\n" + statistics.repeated(100'000) + "b\n"), u"ab"_s);
  }

  void tellingLinesOfAFloodAreKept_data() {
    QTest::addColumn<QByteArray>("line");
    for (const char *line :
         {"av_interleaved_write_frame(): No space left on device", "x: Operation timed out",
          "Bad file descriptor", "[matroska] Read error at pos. 12", "USER_REMOVED",
          "Error while decoding stream #0:1: Invalid data",
          "[mp4] track 0: could not find tag, codec not currently supported in container",
          "Could not find tag for codec vp8 in stream #0, codec not currently supported in "
          "container",
          "Error writing trailer of /out/a.mp4", "Error closing file /out/a.mp4"})
      QTest::newRow(line) << QByteArray(line);
  }
  void tellingLinesOfAFloodAreKept() {
    QFETCH(QByteArray, line);
    const QByteArray output =
        numberedLines(0, 20'000) + line + '\n' + numberedLines(20'000, 20'000);
    const QString text = textOf(output, 1000);
    QCOMPARE(text.count(QString::fromLatin1(line)), 1);
    QVERIFY(text.startsWith(u"00000000"));
    QVERIFY(text.endsWith(QString::fromLatin1(numberedLines(39'999, 1).trimmed())));
    QVERIFY(text.size() <= kept + line.size());
  }

  void tellingLinesOfTheTailAreNotDoubled() {
    const QByteArray line = "No space left on device";
    const QByteArray output = numberedLines(0, 40'000) + line + '\n' + numberedLines(0, 10);
    QCOMPARE(textOf(output).count(QString::fromLatin1(line)), 1);
  }

  void tellingLinesOfTheHeadAreNotDoubled() {
    const QByteArray line = "No space left on device";
    QCOMPARE(textOf(line + '\n' + numberedLines(0, 40'000)).count(QString::fromLatin1(line)), 1);
  }

  void floodOfTellingLinesStaysBounded() {
    QByteArray output;
    for (int i = 0; i < 50'000; ++i)
      output += "Error while decoding stream #0:1 " + QByteArray::number(i) + "\n";
    const QByteArray between = "Bad file descriptor in the middle\n";
    const QString text = textOf(output + between + output);
    QVERIFY(text.size() < kept + 1000);
    QVERIFY(text.contains(u"Bad file descriptor in the middle"));
  }

  void endlessLineStaysBounded() {
    const QByteArray phrase = "No space left on device";
    const QByteArray filler(OutputCollector::lineLimit, '.');
    OutputCollector collector;
    for (int i = 0; i < 100; ++i)
      collector.add(filler);
    collector.add(phrase);
    for (int i = 0; i < 1000; ++i)
      collector.add(filler);
    collector.finish({});
    const QString text = collector.text();
    QVERIFY(text.size() <= kept + 2 * OutputCollector::lineLimit);
    QVERIFY(text.contains(QString::fromLatin1(phrase)));
  }

  // The phrase stands at every place around that at which a long line is cut into pieces, whether
  // these overlap or not: the first, the one where the head ends, and one that falls out.
  void phrasesOfAnEndlessLineAreNeverTorn_data() {
    QTest::addColumn<qsizetype>("cut");
    const qsizetype limit = OutputCollector::lineLimit;
    for (const qsizetype step : {limit, limit - (longestTellingPhrase - 1)}) {
      for (const qsizetype piece : {qsizetype(1), OutputCollector::headLimit / step, qsizetype(12)})
        QTest::addRow("piece %d of %d", int(piece), int(step)) << piece * step;
    }
  }
  void phrasesOfAnEndlessLineAreNeverTorn() {
    QFETCH(qsizetype, cut);
    const QByteArray phrase = "No space left on device";
    for (qsizetype at = cut - phrase.size() - 1; at <= cut + 1; ++at) {
      const QByteArray output = QByteArray(at, '.') + phrase + QByteArray(kept, '.');
      if (!textOf(output, 50'000).contains(QString::fromLatin1(phrase)))
        QFAIL(qPrintable(u"torn at %1"_s.arg(at)));
    }
  }

  void everyCutGivesTheSame() {
    std::mt19937 random(7);
    const QByteArray alphabet = "abc \n\r\xe4";
    QByteArray output;
    for (int i = 0; i < 300'000; ++i)
      output +=
          i % 997 == 0 ? QByteArray("frame=1 bitrate=2\r") : QByteArray(1, alphabet[random() % 7]);
    const QString once = textOf(output);
    for (const qsizetype size : {1, 2, 7, 4096, 65536})
      QCOMPARE(textOf(output, size), once);
  }
};

QTEST_GUILESS_MAIN(TestOutputCollector)
#include "tst_outputcollector.moc"
