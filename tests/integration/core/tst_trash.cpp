#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <cerrno>
#include <csignal>

#include "RealTrashCan.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

class TestTrash final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void movesAndNotesWhereFrom();
  void namesDoNotClash();
  void namesAreCut_data();
  void namesAreCut();
  void movesALinkNotItsTarget();
  void failsClearly_data();
  void failsClearly();
  void failsWhenTheInfoCannotBeWritten();
  void failsOnAFullDisk_data();
  void failsOnAFullDisk();
  void failsOnAReadOnlyTrash_data();
  void failsOnAReadOnlyTrash();
  void usesTheVolumesOwnTrash();
  void distrustsAForeignTrash();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  QString makeFile(const QString &name, const QByteArray &bytes = "movie") const {
    return wholefile::made(path(name), bytes);
  }
  [[nodiscard]] QByteArray read(const QString &name) const { return wholefile::read(path(name)); }
  [[nodiscard]] QStringList entries(const QString &name) const {
    return QDir(path(name)).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System);
  }
  std::unique_ptr<QTemporaryDir> m_folder;
};

void TestTrash::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_folder = std::make_unique<QTemporaryDir>();
}

void TestTrash::movesAndNotesWhereFrom() {
  const QString movie = makeFile(u"Ä 100% movie.mkv"_s);
  const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
  QCOMPARE(RealTrashCan(path(u"data"_s)).moveToTrash(movie), QString());
  QVERIFY(!QFile::exists(movie));
  QCOMPARE(read(u"data/Trash/files/Ä 100% movie.mkv"_s), QByteArray("movie"));
  const QList<QByteArray> info = read(u"data/Trash/info/Ä 100% movie.mkv.trashinfo"_s).split('\n');
  QCOMPARE(info.value(0), QByteArray("[Trash Info]"));
  QVERIFY(info.value(1).startsWith("Path=/"));
  QCOMPARE(QByteArray::fromPercentEncoding(info.value(1).mid(5)),
           QFileInfo(m_folder->path()).canonicalFilePath().toUtf8() + "/Ä 100% movie.mkv");
  QVERIFY(info.value(1).endsWith("/%C3%84%20100%25%20movie.mkv"));
  QVERIFY(info.value(2).startsWith("DeletionDate="));
  const QDateTime date =
      QDateTime::fromString(QString::fromLatin1(info.value(2).mid(13)), Qt::ISODate);
  QVERIFY(date >= before && date <= QDateTime::currentDateTime());
}

void TestTrash::namesDoNotClash() {
  const RealTrashCan constTrash(path(u"data"_s));
  RealTrashCan trash = constTrash;
  for (int i = 0; i < 3; ++i) {
    QCOMPARE(trash.moveToTrash(makeFile(u"movie.mkv"_s, QByteArray::number(i))), QString());
  }
  QCOMPARE(read(u"data/Trash/files/movie.mkv"_s), QByteArray("0"));
  QCOMPARE(read(u"data/Trash/files/movie.2.mkv"_s), QByteArray("1"));
  QCOMPARE(read(u"data/Trash/files/movie.3.mkv"_s), QByteArray("2"));
  QCOMPARE(entries(u"data/Trash/info"_s).size(), 3);
  // A file without its .trashinfo, left by another program, is not overwritten.
  QFile::remove(path(u"data/Trash/info/movie.mkv.trashinfo"_s));
  QCOMPARE(trash.moveToTrash(makeFile(u"movie.mkv"_s, "3")), QString());
  QCOMPARE(read(u"data/Trash/files/movie.mkv"_s), QByteArray("0"));
  QCOMPARE(read(u"data/Trash/files/movie.4.mkv"_s), QByteArray("3"));
}

void TestTrash::namesAreCut_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("long stem") << QString(QString(251, u'a') + u".mkv"_s);
  QTest::newRow("two-byte characters") << QString(u'a' + QString(125, u'ä') + u".mkv"_s);
  QTest::newRow("long extension") << QString(u"a."_s + QString(253, u'b'));
  QTest::newRow("no extension") << QString(255, u'c');
}

void TestTrash::namesAreCut() {
  QFETCH(QString, name);
  RealTrashCan trash(path(u"data"_s));
  for (int i = 0; i < 2; ++i) {
    const QString movie = makeFile(name);
    QVERIFY(!movie.isEmpty());
    QCOMPARE(trash.moveToTrash(movie), QString());
    QVERIFY(!QFile::exists(movie));
  }
  const QStringList files = entries(u"data/Trash/files"_s);
  QCOMPARE(files.size(), 2);
  for (const QString &file : files) {
    QVERIFY(!file.contains(QChar::ReplacementCharacter));
    QVERIFY(read(u"data/Trash/info/%1.trashinfo"_s.arg(file))
                .contains(name.toUtf8().toPercentEncoding()));
  }
}

void TestTrash::movesALinkNotItsTarget() {
  const QString movie = makeFile(u"movie.mkv"_s);
  QVERIFY(QFile::link(movie, path(u"link.mkv"_s)));
  QCOMPARE(RealTrashCan(path(u"data"_s)).moveToTrash(path(u"link.mkv"_s)), QString());
  QVERIFY(QFile::exists(movie));
  QCOMPARE(entries(u"data/Trash/files"_s), QStringList{u"link.mkv"_s});
}

void TestTrash::failsClearly_data() {
  QTest::addColumn<QString>("obstacle");  // a file where a folder has to be
  QTest::newRow("no Trash folder") << u"data/Trash"_s;
  QTest::newRow("no folder of files") << u"data/Trash/files"_s;
  QTest::newRow("no folder of infos") << u"data/Trash/info"_s;
  QTest::newRow("no such file") << QString();
}

void TestTrash::failsClearly() {
  QFETCH(QString, obstacle);
  QDir().mkpath(path(u"data/Trash"_s));
  QString movie = path(u"missing.mkv"_s);
  if (!obstacle.isEmpty()) {
    QDir().rmdir(path(obstacle));
    QVERIFY(!makeFile(obstacle).isEmpty());
    movie = makeFile(u"movie.mkv"_s);
  }
  const QString failure = RealTrashCan(path(u"data"_s)).moveToTrash(movie);
  QVERIFY(failure.contains(movie));
  QCOMPARE(QFile::exists(movie), !obstacle.isEmpty());
  QVERIFY(!QFile::exists(u"files"_s));
}

// As on a full disk: the folder of infos leads to a file system that takes no files.
void TestTrash::failsWhenTheInfoCannotBeWritten() {
  const QString movie = makeFile(u"movie.mkv"_s);
  QDir().mkpath(path(u"data/Trash/files"_s));
  QVERIFY(QFile::link(u"/proc/self"_s, path(u"data/Trash/info"_s)));
  const QString failure = RealTrashCan(path(u"data"_s)).moveToTrash(movie);
  QVERIFY(failure.contains(movie));
  QVERIFY(QFile::exists(movie));
}

void TestTrash::failsOnAFullDisk_data() {
  QTest::addColumn<int>("room");  // bytes
  QTest::newRow("no room at all") << 0;
  QTest::newRow("room for the beginning") << 5;
}

// The .trashinfo file can be made, but not written: a limit of this process stands for the disk.
void TestTrash::failsOnAFullDisk() {
  QFETCH(int, room);
  const QString movie = makeFile(u"movie.mkv"_s);
  rlimit before;
  QCOMPARE(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{static_cast<rlim_t>(room), before.rlim_max};
  const bool limited = ::setrlimit(RLIMIT_FSIZE, &full) == 0;
  const QString failure = RealTrashCan(path(u"data"_s)).moveToTrash(movie);
  const bool unlimited = ::setrlimit(RLIMIT_FSIZE, &before) == 0;
  std::signal(SIGXFSZ, signalBefore);
  QVERIFY(limited && unlimited);
  QVERIFY(failure.contains(movie));
  if (room > 0) QVERIFY(failure.contains(qt_error_string(ENOSPC)));
  QVERIFY(QFile::exists(movie));
  QCOMPARE(entries(u"data/Trash/info"_s), QStringList());
  QCOMPARE(entries(u"data/Trash/files"_s), QStringList());
}

void TestTrash::failsOnAReadOnlyTrash_data() {
  QTest::addColumn<QString>("locked");
  QTest::newRow("infos") << u"data/Trash/info"_s;
  QTest::newRow("files") << u"data/Trash/files"_s;
  QTest::newRow("no Trash yet") << u"data"_s;
}

void TestTrash::failsOnAReadOnlyTrash() {
  QFETCH(QString, locked);
  const QString movie = makeFile(u"movie.mkv"_s);
  const bool isThere = locked != u"data"_s;
  QDir().mkpath(path(isThere ? u"data/Trash/files"_s : u"data"_s));
  if (isThere) QDir().mkpath(path(u"data/Trash/info"_s));
  for (const QString &folder :
       {QString(), u"data"_s, u"data/Trash"_s, u"data/Trash/files"_s, u"data/Trash/info"_s})
    ::chmod(QFile::encodeName(path(folder)).constData(), 0777);
  ::chmod(QFile::encodeName(path(locked)).constData(), 0555);
  const uid_t user = ::geteuid();
  // For root nothing is read-only.
  if (user == 0) QCOMPARE(::seteuid(65534), 0);
  const QString failure = RealTrashCan(path(u"data"_s)).moveToTrash(movie);
  if (user == 0) QCOMPARE(::seteuid(user), 0);
  ::chmod(QFile::encodeName(path(locked)).constData(), 0777);
  QVERIFY(failure.contains(movie));
  QVERIFY(QFile::exists(movie));
  QCOMPARE(entries(u"data/Trash/info"_s), QStringList());
}

void TestTrash::usesTheVolumesOwnTrash() {
  QTemporaryDir other(u"/dev/shm/trash-XXXXXX"_s);
  QVERIFY(other.isValid());
  struct stat here;
  struct stat there;
  QCOMPARE(::stat(QFile::encodeName(m_folder->path()).constData(), &here), 0);
  QCOMPARE(::stat(QFile::encodeName(other.path()).constData(), &there), 0);
  QVERIFY(here.st_dev != there.st_dev);

  const QString movie = other.filePath(u"movie-of-test.mkv"_s);
  QVERIFY(wholefile::write(movie));
  QCOMPARE(RealTrashCan(path(u"data"_s)).moveToTrash(movie), QString());
  QVERIFY(!QFile::exists(movie));
  QVERIFY(!QFile::exists(path(u"data/Trash"_s)));
  const QString trash = u"/dev/shm/.Trash-%1"_s.arg(::geteuid());
  const QString info = trash + u"/info/movie-of-test.mkv.trashinfo"_s;
  QVERIFY(wholefile::read(info).contains(
      QByteArray("\nPath=" + other.path().mid(9).toUtf8() + "/movie-of-test.mkv\n")));
  QVERIFY(QFile::remove(info));
  QVERIFY(QFile::remove(trash + u"/files/movie-of-test.mkv"_s));
}

void TestTrash::distrustsAForeignTrash() {
  const QString trash = u"/dev/shm/.Trash-%1"_s.arg(::geteuid());
  const QString aside = trash + u"-aside"_s;
  QFile::rename(trash, aside);
  QTemporaryDir other(u"/dev/shm/trash-XXXXXX"_s);
  QVERIFY(QFile::link(m_folder->path(), trash));
  const QString movie = other.filePath(u"movie.mkv"_s);
  QVERIFY(wholefile::write(movie));
  const QString failure = RealTrashCan(path(u"data"_s)).moveToTrash(movie);
  QFile::remove(trash);
  QFile::rename(aside, trash);
  QVERIFY(failure.contains(trash));
  QVERIFY(QFile::exists(movie));
}

QTEST_GUILESS_MAIN(TestTrash)
#include "tst_trash.moc"
