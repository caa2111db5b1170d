#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <thread>

#include "Defaults.h"
#include "Logging.h"
#include "ScratchProgram.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// The system log and the rings; the capture file has a test of its own.
class TestLogging final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void goesToTheSystemLogAtEveryLevel();
  void levelsOutOfRangeAreTheNearest();
  void theEleventhMessageOverwritesTheFirst();
  void levelsHaveRingsOfTheirOwn();
  void theGeneralRingHas43Slots();
  void entriesBeginWithTheDate();
  void aLaunchBeginsTheRingsAgain();
  void dataIsNeverAFormat();
  void manyThreadsFillTheRing();
  void withoutTheLibrary();
  void qtsOwnMessages();

 private:
  [[nodiscard]] static QString ringText(int level, int position);

  std::unique_ptr<ScratchProgram> m_program;
};

void TestLogging::init() {
  QTest::failOnWarning(QRegularExpression(u".?"_s));
  m_program.reset();
  m_program = std::make_unique<ScratchProgram>();
}

// The message of a ring's slot, without its date.
QString TestLogging::ringText(int level, int position) {
  const QString entry = defaultString(u"ostrak_asl_lev%1_pos%2"_s.arg(level).arg(position));
  return entry.section(u" message: "_s, 1);
}

void TestLogging::goesToTheSystemLogAtEveryLevel() {
  for (int level = 0; level < 8; ++level)
    tk_log_level(level, u"Info: level %i"_s, level);
  const auto logged = m_program->loggedWithLevel();
  QCOMPARE(logged.size(), 8);
  for (int level = 0; level < 8; ++level) {
    QCOMPARE(logged.at(level).level, level);
    QCOMPARE(logged.at(level).message, u"Info: level %1"_s.arg(level));
    QCOMPARE(ringText(level, 0), u"Info: level %1"_s.arg(level));
  }
}

void TestLogging::levelsOutOfRangeAreTheNearest() {
  deliverLog(-1, u"low"_s);
  deliverLog(8, u"high"_s);
  QCOMPARE(m_program->loggedWithLevel().at(0).level, 0);
  QCOMPARE(m_program->loggedWithLevel().at(1).level, 7);
  QCOMPARE(ringText(0, 0), u"low"_s);
  QCOMPARE(ringText(7, 0), u"high"_s);
}

void TestLogging::theEleventhMessageOverwritesTheFirst() {
  for (int number = 1; number <= 10; ++number)
    tk_log_level(3, u"message %i"_s, number);
  for (int slot = 0; slot < 10; ++slot)
    QCOMPARE(ringText(3, slot), u"message %1"_s.arg(slot + 1));
  tk_log_level(3, u"message 11"_s);
  QCOMPARE(ringText(3, 0), u"message 11"_s);
  QCOMPARE(ringText(3, 1), u"message 2"_s);
  QVERIFY(defaultString(u"ostrak_asl_lev3_pos10"_s).isNull());
}

void TestLogging::levelsHaveRingsOfTheirOwn() {
  _tk_log_toprefs(3, u"error"_s);
  _tk_log_toprefs(4, u"warning"_s);
  _tk_log_toprefs(3, u"second error"_s);
  QCOMPARE(ringText(3, 0), u"error"_s);
  QCOMPARE(ringText(3, 1), u"second error"_s);
  QCOMPARE(ringText(4, 0), u"warning"_s);
  QVERIFY(m_program->logged().isEmpty());
}

void TestLogging::theGeneralRingHas43Slots() {
  const auto slot = [](int position) {
    return defaultString(u"ostrak_logtoprefs_pos%1"_s.arg(position)).section(u" message: "_s, 1);
  };
  for (int number = 1; number <= 43; ++number)
    log_to_prefs(u"note %1"_s.arg(number));
  QCOMPARE(slot(0), u"note 1"_s);
  QCOMPARE(slot(42), u"note 43"_s);
  log_to_prefs(u"note 44"_s);
  QCOMPARE(slot(0), u"note 44"_s);
  QCOMPARE(slot(1), u"note 2"_s);
  QVERIFY(slot(43).isNull());
  QVERIFY(m_program->logged().isEmpty());
}

void TestLogging::entriesBeginWithTheDate() {
  tk_log_level(5, u"Info: %@"_s, u"a"_s);
  static const QRegularExpression entry(
      u"^date: \\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000 message: Info: a$"_s);
  const QString text = defaultString(u"ostrak_asl_lev5_pos0"_s);
  QVERIFY2(entry.match(text).hasMatch(), qPrintable(text));
  const auto date = QDateTime::fromString(text.sliced(6, 19) + u"Z"_s, u"yyyy-MM-dd hh:mm:sst"_s);
  constexpr qint64 anHour = 3600;
  QVERIFY(qAbs(date.secsTo(QDateTime::currentDateTimeUtc())) < anHour);
}

void TestLogging::aLaunchBeginsTheRingsAgain() {
  for (int number = 1; number <= 3; ++number)
    tk_log_level(3, u"old %i"_s, number);
  m_program->restart();
  QCOMPARE(ringText(3, 2), u"old 3"_s);
  tk_log_level(3, u"new"_s);
  QCOMPARE(ringText(3, 0), u"new"_s);
  QCOMPARE(ringText(3, 1), u"old 2"_s);
}

void TestLogging::dataIsNeverAFormat() {
  tk_log_level(3, u"Error: could not open %@"_s, u"/50%@%n%s.mkv"_s);
  QCOMPARE(m_program->logged(), QStringList{u"Error: could not open /50%@%n%s.mkv"_s});
  deliverLog(3, u"100% %@"_s);
  QCOMPARE(m_program->logged().last(), u"100% %@"_s);
}

void TestLogging::manyThreadsFillTheRing() {
  constexpr int writers = 4;
  constexpr int messages = 25;
  std::vector<std::thread> threads;
  for (int writer = 0; writer < writers; ++writer) {
    threads.emplace_back([writer] {
      for (int number = 0; number < messages; ++number) {
        tk_log_level(6, u"Info: %i-%i"_s, writer, number);
      }
    });
  }
  for (std::thread &thread : threads)
    thread.join();
  QCOMPARE(m_program->logged().size(), writers * messages);
  tk_log_level(6, u"Info: last"_s);
  // A hundred messages later the ring is at its first slot again: none was counted twice.
  QCOMPARE(ringText(6, 0), u"Info: last"_s);
}

void TestLogging::withoutTheLibrary() {
  m_program.reset();
  tk_log_level(7, u"Info: nobody listens"_s);
  log_to_prefs(u"nobody keeps it"_s);
  m_program = std::make_unique<ScratchProgram>();
  QVERIFY(m_program->logged().isEmpty());
  QVERIFY(ringText(7, 0).isNull());
}

void TestLogging::qtsOwnMessages() {
  const QtMessageHandler before = installQtMessageLog();
  qDebug("said %d", 1);
  qInfo("said %d", 2);
  qWarning("said %s", "50%@");
  qCritical("said %d", 4);
  qInstallMessageHandler(before);
  const auto logged = m_program->loggedWithLevel();
  QCOMPARE(m_program->logged(), (QStringList{u"Info: said 1"_s, u"Info: said 2"_s,
                                             u"Warning: said 50%@"_s, u"Error: said 4"_s}));
  QCOMPARE(logged.at(0).level, 7);
  QCOMPARE(logged.at(1).level, 6);
  QCOMPARE(logged.at(2).level, 4);
  QCOMPARE(logged.at(3).level, 3);
}

QTEST_GUILESS_MAIN(TestLogging)
#include "tst_logging.moc"
