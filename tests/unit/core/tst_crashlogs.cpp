#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "Logging.h"

using namespace Qt::StringLiterals;

class TestCrashLogs final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void namesOfThisProgram_data();
  void namesOfThisProgram();
  void foldersInOrder();
};

void TestCrashLogs::namesOfThisProgram_data() {
  QTest::addColumn<QString>("file");
  QTest::addColumn<bool>("ours");
  QTest::newRow("systemd") << u"core.decant.1000.0123456789abcdef.4711.1700000000000000.zst"_s
                           << true;
  QTest::newRow("apport") << u"_usr_lib_decant_decant.1000.crash"_s << true;
  QTest::newRow("plain") << u"decant-2026-11-21.crash"_s << true;
  QTest::newRow("case") << u"DECANT.crash"_s << true;
  QTest::newRow("diacritics") << u"dé\u0308cänt.crash"_s << true;
  QTest::newRow("hidden") << u".decant.crash"_s << false;
  QTest::newRow("other program") << u"core.ffmpeg.1000.0123.4711.1700.zst"_s << false;
  QTest::newRow("other program in our folder") << u"_usr_lib_decant_ffmpeg.1000.crash"_s << false;
  QTest::newRow("name inside") << u"my-decant.crash"_s << false;
  QTest::newRow("shorter") << u"deca"_s << false;
}

void TestCrashLogs::namesOfThisProgram() {
  QFETCH(QString, file);
  QFETCH(bool, ours);
  const QTemporaryDir folder;
  QVERIFY(QFile(folder.filePath(file)).open(QIODevice::WriteOnly));
  QCOMPARE(ostrak::appCrashLogs(u"Décant"_s, {folder.path()}),
           ours ? QStringList{file} : QStringList());
}

void TestCrashLogs::foldersInOrder() {
  const QTemporaryDir first;
  const QTemporaryDir second;
  QVERIFY(QFile(first.filePath(u"decant-b"_s)).open(QIODevice::WriteOnly));
  QVERIFY(QFile(second.filePath(u"decant-a"_s)).open(QIODevice::WriteOnly));
  QCOMPARE(ostrak::appCrashLogs(u"Decant"_s, {first.path(), u"/no/such/folder"_s, second.path()}),
           (QStringList{u"decant-b"_s, u"decant-a"_s}));
}

QTEST_GUILESS_MAIN(TestCrashLogs)
#include "tst_crashlogs.moc"
