#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QObject>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "ProgressFiles.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestProgressFiles final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_folder = std::make_unique<QTemporaryDir>();
  }

  void claimedNamesDiffer();
  void claimInNoFolderIsNothing();
  void spareFolderIsTakenWhereNothingElseIs();
  void sweepsWhatNobodyHolds_data();
  void sweepsWhatNobodyHolds();
  void sweepsNoFolder();
  void leavesWhatIsHeld();
  void leavesWhatAnotherProgramHolds();
  void leavesLinksAndFolders();
  void sweptBeforeItWasHeldIsClaimedAnew();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  void write(const QString &name, const QByteArray &bytes) const {
    QVERIFY(wholefile::write(path(name), bytes));
  }
  [[nodiscard]] QStringList names() const {
    return QDir(m_folder->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                   QDir::Name);
  }
  std::unique_ptr<QTemporaryDir> m_folder;
};

void TestProgressFiles::claimedNamesDiffer() {
  const OwnFile first = claimProgressFile(u"a.mkv"_s, m_folder->path());
  const OwnFile second = claimProgressFile(u"a.mkv"_s, m_folder->path());
  QCOMPARE(first.path(), path(u"a.mkv.log"_s));
  QCOMPARE(second.path(), path(u"a.mkv-0.log"_s));
  QVERIFY(first.isThere() && second.isThere());
}

void TestProgressFiles::claimInNoFolderIsNothing() {
  QVERIFY(claimProgressFile(u"a.mkv"_s, path(u"made/for it"_s)).isThere());
  QVERIFY(wholefile::write(path(u"no folder"_s)));
  QVERIFY(!claimProgressFile(u"a.mkv"_s, path(u"no folder"_s)).isThere());
}

void TestProgressFiles::spareFolderIsTakenWhereNothingElseIs() {
  const QString spare = path(u"spare"_s);
  const QString own = path(u"own"_s);
  QVERIFY(QDir().mkpath(own));
  QCOMPARE(progressFolder(own, spare), own);
  QCOMPARE(claimProgressFile(u"a.mkv"_s, own, spare).path(), path(u"own/a.mkv.log"_s));
  QVERIFY(!QFile::exists(spare));
  write(u"no folder"_s, "a file");
  const QString none = path(u"no folder"_s);
  QCOMPARE(progressFolder(none, spare), spare);
  QCOMPARE(claimProgressFile(u"a.mkv"_s, none, spare).path(), path(u"spare/a.mkv.log"_s));
}

void TestProgressFiles::sweepsWhatNobodyHolds_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<bool>("goes");
  QTest::newRow("empty") << u"a.mkv.log"_s << QByteArray() << true;
  QTest::newRow("report") << u"a.mkv.log"_s << QByteArray("frame=25\nfps=0.0\n") << true;
  QTest::newRow("report without video") << u"a.log"_s << QByteArray("bitrate=N/A\n") << true;
  QTest::newRow("hidden movie") << u".a.mkv.log"_s << QByteArray("frame=1\n") << true;
  QTest::newRow("line break") << u"a\nb.mkv.log"_s << QByteArray("frame=1\n") << true;
  QTest::newRow("another's log") << u"notes.log"_s << QByteArray("Dear diary\n") << false;
  QTest::newRow("another ending") << u"a.mkv"_s << QByteArray("frame=1\n") << false;
  QTest::newRow("empty movie") << u"a.mkv"_s << QByteArray() << false;
}

void TestProgressFiles::sweepsWhatNobodyHolds() {
  QFETCH(const QString, name);
  QFETCH(const QByteArray, bytes);
  QFETCH(const bool, goes);
  write(name, bytes);
  sweepProgressFiles(m_folder->path());
  QCOMPARE(names(), goes ? QStringList() : QStringList(name));
}

void TestProgressFiles::sweepsNoFolder() {
  sweepProgressFiles(path(u"nowhere"_s));
  QCOMPARE(names(), QStringList());
}

void TestProgressFiles::leavesWhatIsHeld() {
  OwnFile file = claimProgressFile(u"a.mkv"_s, m_folder->path());
  write(u"a.mkv.log"_s, "frame=1\n");
  sweepProgressFiles(m_folder->path());
  QVERIFY(file.isThere());
  file = OwnFile();
  sweepProgressFiles(m_folder->path());
  QCOMPARE(names(), QStringList());
}

void TestProgressFiles::leavesWhatAnotherProgramHolds() {
  write(u"a.mkv.log"_s, "frame=1\n");
  QProcess other;
  other.start(u"flock"_s, {path(u"a.mkv.log"_s), u"sh"_s, u"-c"_s, u"echo held; exec cat"_s});
  QTRY_VERIFY_WITH_TIMEOUT(other.bytesAvailable() > 0, 30'000);
  sweepProgressFiles(m_folder->path());
  QCOMPARE(names(), QStringList(u"a.mkv.log"_s));
  // Its end sets the file free, and nothing is done by it any more.
  other.closeWriteChannel();
  QVERIFY(other.waitForFinished());
  sweepProgressFiles(m_folder->path());
  QCOMPARE(names(), QStringList());
}

void TestProgressFiles::leavesLinksAndFolders() {
  QTemporaryDir elsewhere;
  const QString kept = elsewhere.filePath(u"kept.log"_s);
  QVERIFY(wholefile::write(kept));
  QVERIFY(QFile::link(kept, path(u"link.log"_s)));
  QVERIFY(QFile::link(u"nowhere"_s, path(u"dangling.log"_s)));
  QVERIFY(QDir().mkpath(path(u"folder.log"_s)));
  QCOMPARE(::mkfifo(QFile::encodeName(path(u"fifo.log"_s)).constData(), 0600), 0);
  sweepProgressFiles(m_folder->path());
  QCOMPARE(names(),
           QStringList({u"dangling.log"_s, u"fifo.log"_s, u"folder.log"_s, u"link.log"_s}));
  QVERIFY(QFile::exists(kept));
}

// Between the making of a file and its lock somebody may sweep.
void TestProgressFiles::sweptBeforeItWasHeldIsClaimedAnew() {
  OwnFile file;
  QCOMPARE(OwnFile::create(path(u"a.mkv.log"_s), file), OwnFile::Creation::created);
  sweepProgressFiles(m_folder->path());
  QVERIFY(!file.hold());
  QCOMPARE(OwnFile::create(path(u"a.mkv.log"_s), file), OwnFile::Creation::created);
  QVERIFY(file.hold());
}

QTEST_GUILESS_MAIN(TestProgressFiles)
#include "tst_progressfiles.moc"
