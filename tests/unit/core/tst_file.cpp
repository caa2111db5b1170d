#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "File.h"
#include "Ostrak.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestFile final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void fileSizes();
  void existence_data();
  void existence();
  void writeablePath_data();
  void writeablePath();
  void aliasesDoNotExist();
  void immutableFilesAreRestricted();
  void identity();
  void contentsOfOddThings_data();
  void contentsOfOddThings();
  void contentsAreReplacedAtOnce();
  void nulNamesNothing();
  void temporaryFolders();
  void resolvesLinks();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  void write(const QString &name, const QByteArray &bytes = "x") const {
    QVERIFY(wholefile::write(path(name), bytes));
  }
  // A folder with one of everything.
  void fill() const {
    write(u"file"_s, "12345");
    QVERIFY(QDir().mkpath(path(u"folder"_s)));
    QVERIFY(QFile::link(u"file"_s, path(u"link"_s)));
    QVERIFY(QFile::link(u"nowhere"_s, path(u"dangling"_s)));
    QVERIFY(QFile::link(u"loop"_s, path(u"loop"_s)));
    QCOMPARE(::mkfifo(QFile::encodeName(path(u"fifo"_s)).constData(), 0600), 0);
  }
  std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFile::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_folder = std::make_unique<QTemporaryDir>();
}

void TestFile::fileSizes() {
  fill();
  QCOMPARE(fileSize(path(u"file"_s)), 5);
  QCOMPARE(fileSize(path(u"link"_s)), 4);  // of the link itself
  QCOMPARE(fileSize(path(u"missing"_s)), 0);
  QCOMPARE(fileSize(QUrl::fromLocalFile(path(u"file"_s))), 5);
  QCOMPARE(fileSize(QUrl::fromLocalFile(path(u"link"_s))), 5);
  QCOMPARE(fileSize(QUrl::fromLocalFile(path(u"folder"_s))), 0);
  QCOMPARE(fileSize(QUrl::fromLocalFile(path(u"loop"_s))), 0);
  QCOMPARE(fileSize(QUrl(u"https://example.org/file"_s)), 0);
  QCOMPARE(fileOrDirectorySize(QUrl::fromLocalFile(path(u"file"_s))), 5);
  write(u"folder/inner"_s, "123");
  QCOMPARE(fileOrDirectorySize(QUrl::fromLocalFile(path(u"folder"_s))), 3);
}

void TestFile::existence_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<bool>("exists");
  QTest::addColumn<bool>("isFolder");
  QTest::newRow("file") << u"file"_s << true << false;
  QTest::newRow("folder") << u"folder"_s << true << true;
  QTest::newRow("link") << u"link"_s << true << false;
  QTest::newRow("dangling link") << u"dangling"_s << false << false;
  QTest::newRow("link to itself") << u"loop"_s << false << false;
  QTest::newRow("FIFO") << u"fifo"_s << true << false;
  QTest::newRow("missing") << u"missing"_s << false << false;
  QTest::newRow("below a file") << u"file/x"_s << false << false;
}

void TestFile::existence() {
  QFETCH(QString, name);
  fill();
  const QUrl location = QUrl::fromLocalFile(path(name));
  QTEST(fileExists(path(name)), "exists");
  QTEST(fileExists(location), "exists");
  QTEST(fileIsDirectory(location), "isFolder");
  QVERIFY(!fileExists(QUrl(u"https://example.org"_s)));
  QVERIFY(!fileIsDirectory(QUrl(u"https://example.org"_s)));
}

void TestFile::writeablePath_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<bool>("writeable");
  QTest::newRow("new") << u"new.mp4"_s << true;
  QTest::newRow("existing") << u"file"_s << false;
  QTest::newRow("folder") << u"folder"_s << false;
  QTest::newRow("dangling link") << u"dangling"_s << false;
  QTest::newRow("link to itself") << u"loop"_s << false;
  QTest::newRow("FIFO") << u"fifo"_s << false;
  QTest::newRow("in a missing folder") << u"missing/new.mp4"_s << false;
  QTest::newRow("below a file") << u"file/new.mp4"_s << false;
  QTest::newRow("name too long") << QString(256, u'x') << false;
  QTest::newRow("longest name") << QString(255, u'x') << true;
  QTest::newRow("odd name") << u"-a\n'\"%n.mp4"_s << true;
}

void TestFile::writeablePath() {
  QFETCH(QString, name);
  fill();
  const auto all = [this] {
    return QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden);
  };
  const QStringList before = all();
  QTEST(isWriteablePath(path(name)), "writeable");
  QTEST(isWriteablePath(QUrl::fromLocalFile(path(name))), "writeable");
  QCOMPARE(all(), before);
  QCOMPARE(contents(path(u"file"_s)), QByteArray("12345"));
  QVERIFY(!isWriteablePath(QUrl(u"https://example.org/new"_s)));
  QVERIFY(!isWriteablePath(u"/proc/new"_s));
}

void TestFile::aliasesDoNotExist() {
  fill();
  for (const QString &name : {u"file"_s, u"link"_s, u"missing"_s}) {
    QVERIFY(!fileIsAlias(path(name)));
    QVERIFY(!fileIsAlias(QUrl::fromLocalFile(path(name))));
    QCOMPARE(fileAliasTarget(path(name)), std::optional<QString>());
    QCOMPARE(fileAliasTarget(QUrl::fromLocalFile(path(name))), std::optional<QString>());
  }
}

// Only some users and file systems can set the attribute; what was set has to be seen.
void TestFile::immutableFilesAreRestricted() {
  fill();
  for (const QString &name : {u"file"_s, u"folder"_s, u"link"_s, u"fifo"_s, u"missing"_s}) {
    QVERIFY(!fileIsRestricted(path(name)));
    QVERIFY(!fileIsRestricted(QUrl::fromLocalFile(path(name))));
  }
  const int file = ::open(QFile::encodeName(path(u"file"_s)).constData(), O_RDONLY | O_CLOEXEC);
  int flags = 0;
  const bool readable = ::ioctl(file, FS_IOC_GETFLAGS, &flags) == 0;
  int immutable = flags | FS_IMMUTABLE_FL;
  const bool isSet = readable && ::ioctl(file, FS_IOC_SETFLAGS, &immutable) == 0;
  const bool found = fileIsRestricted(path(u"file"_s));
  const bool foundByLink = fileIsRestricted(path(u"link"_s));
  if (isSet) ::ioctl(file, FS_IOC_SETFLAGS, &flags);
  ::close(file);
  QCOMPARE(found, isSet);
  QVERIFY(!foundByLink);
}

void TestFile::identity() {
  fill();
  QCOMPARE(::link(QFile::encodeName(path(u"file"_s)).constData(),
                  QFile::encodeName(path(u"hard"_s)).constData()),
           0);
  write(u"other"_s, "12345");
  QVERIFY(isSameFile(path(u"file"_s), path(u"file"_s)));
  QVERIFY(isSameFile(path(u"file"_s), path(u"./folder/../file"_s)));
  QVERIFY(isSameFile(path(u"file"_s), path(u"link"_s)));
  QVERIFY(isSameFile(path(u"file"_s), path(u"hard"_s)));
  QVERIFY(!isSameFile(path(u"file"_s), path(u"other"_s)));
  QVERIFY(!isSameFile(path(u"missing"_s), path(u"missing"_s)));
  QVERIFY(!fileIdentity(path(u"dangling"_s)));
  QVERIFY(!fileIdentity(-1));
  QCOMPARE(qHash(*fileIdentity(path(u"hard"_s))), qHash(*fileIdentity(path(u"link"_s))));
}

void TestFile::contentsOfOddThings_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<bool>("readable");
  QTest::newRow("file") << u"file"_s << true;
  QTest::newRow("link") << u"link"_s << true;
  QTest::newRow("folder") << u"folder"_s << false;
  QTest::newRow("FIFO") << u"fifo"_s << false;
  QTest::newRow("dangling link") << u"dangling"_s << false;
  QTest::newRow("link to itself") << u"loop"_s << false;
  QTest::newRow("missing") << u"missing"_s << false;
  QTest::newRow("endless device") << u"/dev/zero"_s << false;
  QTest::newRow("kernel file without a size") << u"/proc/self/status"_s << true;
}

void TestFile::contentsOfOddThings() {
  QFETCH(QString, path);
  QFETCH(bool, readable);
  fill();
  if (!path.startsWith(u'/')) path = m_folder->filePath(path);
  QCOMPARE(contents(path).has_value(), readable);
  QCOMPARE(contents(QUrl::fromLocalFile(path)).has_value(), readable);
  if (readable) QVERIFY(!contents(path)->isEmpty());
  QCOMPARE(contents(QUrl(u"https://example.org"_s)), std::optional<QByteArray>());
}

void TestFile::contentsAreReplacedAtOnce() {
  const QByteArray bytes("\0\xff\n", 3);
  setContents(path(u"new"_s), bytes);
  QCOMPARE(contents(path(u"new"_s)), bytes);
  const std::optional<FileIdentity> before = fileIdentity(path(u"new"_s));
  QFile open(path(u"new"_s));
  QVERIFY(open.open(QIODevice::ReadOnly));
  setContents(QUrl::fromLocalFile(path(u"new"_s)), QByteArray());
  QCOMPARE(contents(path(u"new"_s)), QByteArray());
  QVERIFY(fileIdentity(path(u"new"_s)) != before);
  QCOMPARE(fileIdentity(open.handle()), before);
  QCOMPARE(open.readAll(), bytes);  // who was reading goes on with the old file
  setContents(path(u"missing/new"_s), bytes);
  QVERIFY(!fileExists(path(u"missing"_s)));
}

// The system would read the path only up to its NUL.
void TestFile::nulNamesNothing() {
  fill();
  const QString name = path(u"file"_s) + QChar(u'\0') + u".mp4"_s;
  QVERIFY(!fileExists(name));
  QVERIFY(!isWriteablePath(path(u"new"_s) + QChar(u'\0')));
  QVERIFY(!fileIdentity(name));
  QCOMPARE(fileSize(name), 0);
  QVERIFY(!contents(name));
}

void TestFile::temporaryFolders() {
  QCOMPARE(makeTempFolder(), std::optional<QString>());
  OstrakSetup setup;
  setup.info = QJsonObject{{u"CFBundleIdentifier"_s, u"org.example.Test"_s}};
  setup.tempDir = m_folder->path();
  setup.persistence = UserDefaults::Persistence::InMemory;
  const Ostrak library(setup);
  const std::optional<QString> first = makeTempFolder();
  const std::optional<QString> second = makeTempFolder();
  QVERIFY(first && second && *first != *second);
  QVERIFY(first->startsWith(path(u"org.example.Test."_s)));
  QCOMPARE(first->size(), path(u"org.example.Test.XXXXXX"_s).size());
  QCOMPARE(dirContents(*first), QStringList());
  QCOMPARE(dirContents(*second), QStringList());
  struct stat info;
  QCOMPARE(::stat(QFile::encodeName(*first).constData(), &info), 0);
  QCOMPARE(info.st_mode & 0777u, 0700u);
}

void TestFile::resolvesLinks() {
  fill();
  const QString real = QFileInfo(m_folder->path()).canonicalFilePath();
  QCOMPARE(stringByResolvingSymlinksInPathFixed(path(u"link"_s)), QString(real + u"/file"_s));
  QCOMPARE(stringByResolvingSymlinksInPathFixed(path(u"folder/../link"_s)),
           QString(real + u"/file"_s));
  QCOMPARE(stringByResolvingSymlinksInPathFixed(path(u"missing/new"_s)),
           QString(real + u"/missing/new"_s));
  QCOMPARE(stringByResolvingSymlinksInPathFixed(path(u"loop"_s)), path(u"loop"_s));
  QCOMPARE(stringByResolvingSymlinksInPathFixed(u"/proc/self/root/.."_s), u"/"_s);
}

QTEST_GUILESS_MAIN(TestFile)
#include "tst_file.moc"
