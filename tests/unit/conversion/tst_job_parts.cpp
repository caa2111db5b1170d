#include <sys/resource.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "Clock.h"
#include "ConversionTool.h"
#include "FreeSpace.h"
#include "JobNotification.h"
#include "OwnFile.h"
#include "Stopwatch.h"
#include "Volumes.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;
using namespace std::chrono_literals;

namespace {

void write(const QString &path, const QByteArray &bytes) {
  if (!wholefile::write(path, bytes)) qFatal("a file of the test cannot be written");
}

}  // namespace

// The small pieces that a job is composed of.
class TestJobParts final : public QObject {
  Q_OBJECT

 private:
  QTemporaryDir m_folder;
  [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }

 private Q_SLOTS:
  void cleanup() {
    for (const QString &name : QDir(m_folder.path()).entryList(QDir::Files | QDir::System))
      QFile::remove(path(name));
  }

  void stopwatchLeavesPausesOut() {
    FakeClock clock;
    clock.now = 7h;
    Stopwatch watch(clock);
    QCOMPARE(watch.seconds(), 0.0);
    clock.now += 1500ms;
    QCOMPARE(watch.seconds(), 1.5);
    watch.resume();  // runs already
    watch.pause();
    watch.pause();
    clock.now += 1h;
    QCOMPARE(watch.seconds(), 1.5);
    watch.resume();
    clock.now += 1s;
    QCOMPARE(watch.seconds(), 2.5);
  }

  void ownFileIsNeverMadeOverAnother() {
    OwnFile file;
    QCOMPARE(OwnFile::create(path(u"new"_s), file), OwnFile::Creation::created);
    QVERIFY(file.isThere());
    write(path(u"old"_s), "theirs");
    QCOMPARE(OwnFile::create(path(u"old"_s), file), OwnFile::Creation::exists);
    QVERIFY(!file.isThere());
    file.remove();
    QVERIFY(QFile::exists(path(u"old"_s)));
    QVERIFY(QFile::link(path(u"nowhere"_s), path(u"link"_s)));
    QCOMPARE(OwnFile::create(path(u"link"_s), file), OwnFile::Creation::exists);
    QCOMPARE(OwnFile::create(path(u"none/new"_s), file), OwnFile::Creation::impossible);
    file.remove();
  }

  // No descriptor is left: that says nothing about the name.
  void ownFileIsNotMadeOverWhatCannotBeOpened() {
    write(path(u"old"_s), "theirs");
    struct rlimit before {};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    struct rlimit none = before;
    none.rlim_cur = 0;
    OwnFile file;
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const OwnFile::Creation taken = OwnFile::create(path(u"old"_s), file);
    const OwnFile::Creation fresh = OwnFile::create(path(u"new"_s), file);
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    QCOMPARE(taken, OwnFile::Creation::exists);
    QCOMPARE(fresh, OwnFile::Creation::impossible);
  }

  void ownFileIsRemovedWhileWritten() {
    OwnFile file;
    QCOMPARE(OwnFile::create(path(u"movie"_s), file), OwnFile::Creation::created);
    write(path(u"movie"_s), "grows");
    QVERIFY(file.isThere());
    file.remove();
    QVERIFY(!QFile::exists(path(u"movie"_s)));
    QVERIFY(!file.isThere());
  }

  void sealedFileIsRemovedOnlyUnchanged_data() {
    QTest::addColumn<QByteArray>("later");
    QTest::addColumn<bool>("removed");
    QTest::newRow("unchanged") << QByteArray() << true;
    QTest::newRow("longer") << QByteArray("more than before") << false;
    QTest::newRow("as long, other bytes") << QByteArray("BYTES") << false;
  }
  void sealedFileIsRemovedOnlyUnchanged() {
    QFETCH(QByteArray, later);
    QFETCH(bool, removed);
    OwnFile file;
    QCOMPARE(OwnFile::create(path(u"movie"_s), file), OwnFile::Creation::created);
    write(path(u"movie"_s), "bytes");
    // The system's clock for files is coarse: an older date stands for a change that is later.
    QFile dated(path(u"movie"_s));
    QVERIFY(dated.open(QIODevice::ReadWrite));
    const QDateTime past = QDateTime::currentDateTime().addDays(-1);
    QVERIFY(dated.setFileTime(past, QFileDevice::FileModificationTime));
    dated.close();
    file.seal();
    if (!later.isEmpty()) write(path(u"movie"_s), later);
    QCOMPARE(file.isThere(), removed);
    file.remove();
    QCOMPARE(!QFile::exists(path(u"movie"_s)), removed);
  }

  void sealingWhatIsGoneOwnsNothing() {
    OwnFile file;
    QCOMPARE(OwnFile::create(path(u"movie"_s), file), OwnFile::Creation::created);
    QVERIFY(QFile::rename(path(u"movie"_s), path(u"away"_s)));
    write(path(u"movie"_s), "theirs");
    file.seal();
    file.remove();
    QVERIFY(QFile::exists(path(u"movie"_s)));
    QVERIFY(QFile::exists(path(u"away"_s)));
  }

  void freeSpaceOfTheDestinationsFolder_data() {
    QTest::addColumn<std::optional<quint64>>("free");
    QTest::addColumn<quint64>("freed");
    QTest::addColumn<QString>("message");
    using Bytes = std::optional<quint64>;
    const QString full = u"There is not enough free space on your target disk for conversion."_s;
    QTest::newRow("more") << Bytes(1001) << quint64(0) << QString();
    QTest::newRow("exactly") << Bytes(1000) << quint64(0) << QString();
    QTest::newRow("a byte short") << Bytes(999) << quint64(0) << full;
    QTest::newRow("with what is replaced") << Bytes(900) << quint64(100) << QString();
    QTest::newRow("short all the same") << Bytes(900) << quint64(99) << full;
    QTest::newRow("not known") << Bytes() << quint64(0) << QString();
  }
  void freeSpaceOfTheDestinationsFolder() {
    QFETCH(std::optional<quint64>, free);
    QFETCH(quint64, freed);
    QFETCH(QString, message);
    FakeVolumes volumes;
    volumes.free = free;
    QCOMPARE(checkFreeSpace(volumes, u"/a/movie.m4v"_s, 1000, freed), message);
  }

  void freeSpaceIsAskedOfTheRightFolder() {
    struct Asked final : Volumes {
      std::optional<quint64> freeSpace(const QString &folder) const override {
        folders.append(folder);
        return {};
      }
      std::optional<quint64> maximumFileSize(const QString &folder) const override {
        folders.append(folder);
        return {};
      }
      mutable QStringList folders;
    } volumes;
    QVERIFY(checkFreeSpace(volumes, u"/a/b c/movie.m4v"_s, 1).isNull());
    QCOMPARE(volumes.folders, (QStringList{u"/a/b c"_s, u"/a/b c"_s}));
  }

  void toolsThatCanBeRun_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("usable");
    QTest::newRow("a program") << u"/bin/true"_s << true;
    QTest::newRow("a file that is no program") << u"/etc/passwd"_s << false;
    QTest::newRow("a folder") << u"/bin"_s << false;
    QTest::newRow("a device") << u"/dev/null"_s << false;
    QTest::newRow("nothing") << u"/nowhere/ffmpeg"_s << false;
    QTest::newRow("no name") << QString() << false;
  }
  void toolsThatCanBeRun() {
    QFETCH(QString, path);
    QFETCH(bool, usable);
    QCOMPARE(isUsableTool(path), usable);
  }

  void notificationsHaveIdsOfTheirOwn() {
    MKVFileInfo info;
    info.fileName = u"100%@ & <more>.mkv"_s;
    info.destinationURL = QUrl::fromLocalFile(u"/out/100%.m4v"_s);
    const Notification one = endNotification(u"Decant"_s, info, false);
    const Notification two = endNotification(u"Decant"_s, info, false);
    QVERIFY(one.id != two.id);
    QCOMPARE(one.text, u"Decant has finished converting the file 100%@ & <more>.mkv."_s);
    QCOMPARE(one.path, u"/out/100%.m4v"_s);
  }
};

QTEST_GUILESS_MAIN(TestJobParts)
#include "tst_job_parts.moc"
