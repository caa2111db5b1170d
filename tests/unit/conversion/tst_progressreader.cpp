#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <limits>

#include "ProgressReader.h"

using namespace decant;
using namespace Qt::StringLiterals;

class TestProgressReader : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".?"_s));
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(u"movie.mkv.log"_s);
  }

  void seconds_data() {
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<double>("seconds");  // negative: nothing
    const auto row = [](const char *name, const QByteArray &part, double seconds) {
      QTest::newRow(name) << part << seconds;
    };
    row("a block of ffmpeg 5.1",
        "frame=25\nfps=0.00\nstream_0_0_q=-1.0\nbitrate= 123.4kbits/s\ntotal_size=1024\n"
        "out_time_us=1040000\nout_time_ms=1040000\nout_time=00:00:01.040000\ndup_frames=0\n"
        "drop_frames=0\nspeed=2.08x\nprogress=continue\n",
        1.04);
    row("microseconds", "out_time_ms=2500000\n", 2.5);
    row("first of two", "out_time_ms=1000000\nout_time_ms=2000000\n", 1);
    row("first is zero", "out_time_ms=0\nout_time_ms=2000000\n", -1);
    row("first is not known", "out_time_ms=N/A\nout_time_ms=2000000\n", -1);
    row("first is negative", "out_time_ms=-23220\nout_time_ms=2000000\n", -1);
    row("zero", "out_time_ms=0\n", -1);
    row("negative zero", "out_time_ms=-0\n", -1);
    row("negative", "out_time_ms=-9223372036854775807\n", -1);
    row("not a number", "out_time_ms=nan\n", -1);
    row("endless", "out_time_ms=inf\n", -1);
    row("too large", "out_time_ms=1e999\n", -1);
    row("no value", "out_time_ms=\n", -1);
    row("letters", "out_time_ms=abc\n", -1);
    row("fraction", "out_time_ms=1500000.5\n", 1.5000005);
    row("exponent", "out_time_ms=2e6\n", 2);
    row("blanks before it", "out_time_ms=  3000000\n", 3);
    row("something after it", "out_time_ms=3000000 us\n", 3);
    row("very long", "out_time_ms=360000000000000\n", 360000000);
    row("not at the line's beginning", "xout_time_ms=1000000\n out_time_ms=1000000\n", -1);
    row("other keys", "out_time_us=1000000\nout_time=00:00:01\nOUT_TIME_MS=1000000\n", -1);
    row("no key at all", "out_time_ms\n", -1);
    row("nothing", "", -1);
    row("breaks only", "\n\r\n\n", -1);
    row("carriage returns", "frame=1\r\nout_time_ms=1000000\r\n", 1);
    row("form feed", "frame=1\fout_time_ms=1000000\v", 1);
    row("without a break", "out_time_ms=4000000", 4);
    row("not UTF-8", "frame=\xff\xc3\nout_time_ms=5000000\n\x80", 5);
    row("not UTF-8 in the value",
        "out_time_ms=\xff"
        "5000000\n",
        -1);
    row("zero byte",
        QByteArray("out_time_ms=50000\0"
                   "00\n",
                   21),
        0.05);
  }
  void seconds() {
    QFETCH(QByteArray, part);
    QFETCH(double, seconds);
    const std::optional<double> found = progressSeconds(part);
    QCOMPARE(found.has_value(), seconds >= 0);
    if (found) QCOMPARE(*found, seconds);
  }

  void percent_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<int>("runtime");
    QTest::addColumn<double>("percent");
    QTest::newRow("half") << 50.0 << 100 << 50.0;
    QTest::newRow("all") << 100.0 << 100 << 100.0;
    QTest::newRow("more than all") << 101.0 << 100 << 100.0;
    QTest::newRow("a little") << 0.001 << 1 << 0.1;
    QTest::newRow("negative") << -5.0 << 100 << 0.0;
    QTest::newRow("endless") << std::numeric_limits<double>::infinity() << 100 << 100.0;
  }
  void percent() {
    QFETCH(double, seconds);
    QFETCH(int, runtime);
    const std::optional<double> found = progressPercent(seconds, runtime);
    QVERIFY(found.has_value());
    QTEST(*found, "percent");
  }

  void noPercentWithoutARunningTime() {
    QVERIFY(!progressPercent(5, {}));
    QVERIFY(!progressPercent(5, 0));
    QVERIFY(!progressPercent(0, 0));
    QVERIFY(!progressPercent(5, -1));
    QVERIFY(!progressPercent(std::numeric_limits<double>::quiet_NaN(), 10));
  }

  void fileThatIsNotThereYet() {
    ProgressReader reader(m_path);
    QVERIFY(!reader.read());
    write("out_time_ms=1000000\n");
    QCOMPARE(reader.read(), std::optional(1.0));
  }

  void onlyTheNewPartIsRead() {
    ProgressReader reader(m_path);
    write("out_time_ms=1000000\n");
    QCOMPARE(reader.read(), std::optional(1.0));
    QCOMPARE(reader.lastFileSize(), 20U);
    QVERIFY(!reader.read());
    append("out_time_ms=2000000\nout_time_ms=3000000\n");
    QCOMPARE(reader.read(), std::optional(2.0));
    QVERIFY(!reader.read());
    append("progress=end\n");
    QVERIFY(!reader.read());
  }

  void tornLineWaits() {
    ProgressReader reader(m_path);
    write("out_time_ms=12");
    QVERIFY(!reader.read());
    QCOMPARE(reader.lastFileSize(), 0U);
    append("000000\nout_ti");
    QCOMPARE(reader.read(), std::optional(12.0));
    append("me_ms=13000000\n");
    QCOMPARE(reader.read(), std::optional(13.0));
  }

  void everyCutGivesTheWholeNumber() {
    const QByteArray line = "frame=1\nout_time_ms=7000000\n";
    for (qsizetype cut = 0; cut < line.size(); ++cut) {
      ProgressReader reader(m_path);
      write(line.first(cut));
      QVERIFY(!reader.read());
      append(line.sliced(cut));
      QCOMPARE(reader.read(), std::optional(7.0));
    }
  }

  void shrunkenFileIsReadAnew() {
    ProgressReader reader(m_path);
    write("frame=1\nfps=2\nout_time_ms=1000000\n");
    QCOMPARE(reader.read(), std::optional(1.0));
    write("out_time_ms=2000000\n");
    QCOMPARE(reader.read(), std::optional(2.0));
    write("");
    QVERIFY(!reader.read());
    append("out_time_ms=3000000\n");
    QCOMPARE(reader.read(), std::optional(3.0));
  }

  void vanishedFileDoesNoHarm() {
    ProgressReader reader(m_path);
    write("out_time_ms=1000000\n");
    QVERIFY(reader.read());
    QVERIFY(QFile::remove(m_path));
    QVERIFY(!reader.read());
  }

  void folderInItsPlaceDoesNoHarm() {
    ProgressReader reader(m_folder->path());
    QVERIFY(!reader.read());
  }

  void endlessLineIsNotWaitedFor() {
    ProgressReader reader(m_path);
    const QByteArray line(100'000, 'x');
    write(line);
    QVERIFY(!reader.read());
    QCOMPARE(reader.lastFileSize(), quint64(line.size()));
    append("\nout_time_ms=1000000\n");
    QCOMPARE(reader.read(), std::optional(1.0));
  }

 private:
  void write(const QByteArray &bytes) { put(bytes, QFile::WriteOnly | QFile::Truncate); }
  void append(const QByteArray &bytes) { put(bytes, QFile::Append); }
  void put(const QByteArray &bytes, QFile::OpenMode mode) {
    QFile file(m_path);
    QVERIFY(file.open(mode));
    QCOMPARE(file.write(bytes), bytes.size());
  }

  std::unique_ptr<QTemporaryDir> m_folder;
  QString m_path;
};

QTEST_GUILESS_MAIN(TestProgressReader)
#include "tst_progressreader.moc"
