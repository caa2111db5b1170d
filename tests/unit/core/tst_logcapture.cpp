#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <thread>

#include "Logging.h"
#include "ScratchProgram.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// The capture file. Once on, capture stays on, so the first case is the one that finds it off.
class TestLogCapture final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void aMissingFolderLeavesItOff();
  void lines_data();
  void lines();
  void cuts_data();
  void cuts();
  void replacesAnEarlierFile();
  void linesOfThreadsStayWhole();
  void whatCannotBeEncoded();

 private:
  [[nodiscard]] QString capture(const QString &name, quint64 maxSize = 0);

  std::unique_ptr<ScratchProgram> m_program;
};

void TestLogCapture::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

QString TestLogCapture::capture(const QString &name, quint64 maxSize) {
  const QString path = m_program->path(name);
  tk_log_enablecapturetofile(QUrl::fromLocalFile(path), maxSize);
  return path;
}

void TestLogCapture::aMissingFolderLeavesItOff() {
  const QString path = capture(u"none/log.txt"_s);
  QCOMPARE(m_program->logged(),
           QStringList{QString(u"could not open file "_s + path + u" for log file usage"_s)});
  QCOMPARE(m_program->loggedWithLevel().first().level, 3);
  tk_log_level(3, u"Error: not captured"_s);
  QVERIFY(!QFile::exists(path));
  QVERIFY(QDir(m_program->root()).entryList({u"*.txt"_s}, QDir::Files).isEmpty());
}

void TestLogCapture::lines_data() {
  QTest::addColumn<int>("level");
  QTest::addColumn<QString>("name");
  int level = 0;
  for (const char *name :
       {"Emergency", "Alert", "Critical", "Error", "Warning", "Notice", "Info", "Debug"}) {
    QTest::newRow(name) << level++ << QString::fromLatin1(name);
  }
}

void TestLogCapture::lines() {
  QFETCH(int, level);
  QFETCH(QString, name);
  const QString path = capture(u"log.txt"_s);
  tk_log_level(level, u"Info: %@"_s, u"ä 50%"_s);
  const QString line = QString::fromUtf8(wholefile::read(path));
  const QRegularExpression wanted(
      u"^(?:Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) \\d\\d "
      u"\\d?\\d\\D\\d\\d(?:[^\\n]{0,5})  Decant\\[%1\\] <%2>: Info: ä 50%\\n$"_s
          .arg(QCoreApplication::applicationPid())
          .arg(name));
  QVERIFY2(wanted.match(line).hasMatch(), qPrintable(line));
}

void TestLogCapture::cuts_data() {
  QTest::addColumn<quint64>("limit");
  QTest::addColumn<int>("kept");
  QTest::newRow("to its end") << quint64{600} << 600;
  QTest::newRow("just fits") << quint64{1000} << 1000;
  QTest::newRow("a byte too long") << quint64{999} << 999;
  QTest::newRow("no limit") << quint64{0} << 1000;
  QTest::newRow("a large limit") << quint64{std::numeric_limits<quint64>::max()} << 1000;
}

void TestLogCapture::cuts() {
  QFETCH(quint64, limit);
  QFETCH(int, kept);
  QByteArray before;
  for (int at = 0; before.size() < 1000; ++at)
    before += QByteArray::number(at) + ' ';
  before.truncate(1000);
  const QString path = m_program->path(u"log.txt"_s);
  QVERIFY(wholefile::write(path, before));
  (void)capture(u"log.txt"_s, limit);
  QCOMPARE(wholefile::read(path), before.last(kept));
  tk_log_level(4, u"Warning: after"_s);
  QVERIFY(wholefile::read(path).startsWith(before.last(kept)));
  QVERIFY(wholefile::read(path).endsWith("<Warning>: Warning: after\n"));
}

void TestLogCapture::replacesAnEarlierFile() {
  const QString first = capture(u"first.txt"_s);
  tk_log_level(3, u"Error: one"_s);
  const auto openFiles = [] {
    return QDir(u"/proc/self/fd"_s).entryList(QDir::System | QDir::Files).size();
  };
  const auto before = openFiles();
  const QString second = capture(u"second.txt"_s);
  QCOMPARE(openFiles(), before);
  tk_log_level(3, u"Error: two"_s);
  QCOMPARE(wholefile::read(first).count('\n'), 1);
  QVERIFY(wholefile::read(second).endsWith("Error: two\n"));
  QCOMPARE(wholefile::read(second).count('\n'), 1);
  (void)capture(u"none/third.txt"_s);
  tk_log_level(3, u"Error: three"_s);
  QVERIFY(wholefile::read(second).endsWith("Error: three\n"));
}

void TestLogCapture::linesOfThreadsStayWhole() {
  const QString path = capture(u"log.txt"_s);
  constexpr int writers = 4;
  constexpr int messages = 50;
  std::vector<std::thread> threads;
  for (int writer = 0; writer < writers; ++writer) {
    threads.emplace_back([] {
      for (int number = 0; number < messages; ++number)
        tk_log_level(6, u"Info: whole"_s);
    });
  }
  for (std::thread &thread : threads)
    thread.join();
  const QByteArrayList lines = wholefile::read(path).trimmed().split('\n');
  QCOMPARE(lines.size(), writers * messages);
  for (const QByteArray &line : lines)
    QVERIFY(line.endsWith("<Info>: Info: whole"));
}

void TestLogCapture::whatCannotBeEncoded() {
  const QString path = capture(u"log.txt"_s);
  const QString halfCharacter(QChar(0xD800));
  tk_log_level(5, u"Info: %@"_s, halfCharacter);
  // The line within the message brings its own line break.
  QCOMPARE(wholefile::read(path).count('\n'), 2);
  QVERIFY(wholefile::read(path).contains("<Error>: could not open create data from string "));
  QCOMPARE(m_program->loggedWithLevel().first().level, 3);
  QCOMPARE(m_program->loggedWithLevel().last().level, 5);
  QCOMPARE(m_program->logged().size(), 2);
}

QTEST_GUILESS_MAIN(TestLogCapture)
#include "tst_logcapture.moc"
