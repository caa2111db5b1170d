#include <linux/magic.h>
#include <sys/resource.h>

#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <filesystem>

#include "RealVolumes.h"

using namespace Qt::StringLiterals;
using Bytes = std::optional<quint64>;

class TestVolumes final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  // Another program may write meanwhile, so the two readings need not be equal.
  void freeSpaceIsWhatTheUserMayWrite() {
    const QTemporaryDir folder;
    const Bytes space = RealVolumes().freeSpace(folder.path());
    QVERIFY(space);
    // Not Qt's look at it, which finds no volume where the root is not mounted by itself.
    const auto storage = std::filesystem::space(folder.path().toStdString());
    QVERIFY(*space <= storage.capacity);
    const auto difference = static_cast<qint64>(storage.available) - static_cast<qint64>(*space);
    QVERIFY(std::abs(difference) < static_cast<qint64>(storage.capacity / 10));
  }

  void aMissingFolderHasNoAnswer() {
    const QTemporaryDir folder;
    QCOMPARE(RealVolumes().freeSpace(folder.filePath(u"none"_s)), Bytes());
  }

  void maximumFileSize_data() {
    QTest::addColumn<quint64>("type");
    QTest::addColumn<quint64>("limit");
    QTest::addColumn<Bytes>("maximum");
    const quint64 none = RLIM_INFINITY;
    const quint64 fat = 4'294'967'295;
    QTest::newRow("no bound") << quint64{EXT4_SUPER_MAGIC} << none << Bytes();
    QTest::newRow("FAT") << quint64{MSDOS_SUPER_MAGIC} << none << Bytes(fat);
    QTest::newRow("limit") << quint64{TMPFS_MAGIC} << quint64{1000} << Bytes(1000);
    QTest::newRow("limit below FAT's") << quint64{MSDOS_SUPER_MAGIC} << quint64{7} << Bytes(7);
    QTest::newRow("limit above FAT's") << quint64{MSDOS_SUPER_MAGIC} << fat + 10 << Bytes(fat);
    QTest::newRow("unknown type") << quint64{0} << none << Bytes();
  }

  void maximumFileSize() {
    QFETCH(quint64, type);
    QFETCH(quint64, limit);
    QTEST(maximumFileSizeOf(type, limit), "maximum");
  }

  void theProcessLimitIsRead() {
    const QTemporaryDir folder;
    rlimit before;
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit lowered = before;
    lowered.rlim_cur = 123'456'789;
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &lowered), 0);
    const Bytes maximum = RealVolumes().maximumFileSize(folder.path());
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &before), 0);
    QCOMPARE(maximum, Bytes(123'456'789));
  }
};

QTEST_GUILESS_MAIN(TestVolumes)
#include "tst_volumes.moc"
