#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "File.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestFileListing final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void listsChildren();
  void listsEverythingBelow();
  void locationsAreListed();
  void nothingWhenUnreadable_data();
  void nothingWhenUnreadable();
  void linkLoopsEnd();
  void namesThatAreNotText();
  void sizeOfAFolder();
  void deepFolders();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  void write(const QString &name, const QByteArray &bytes = "x") const {
    QVERIFY(wholefile::write(path(name), bytes));
  }
  // a, .hidden, sub/b, sub/inner/c, and a link to sub.
  void fill() const {
    QVERIFY(QDir().mkpath(path(u"sub/inner"_s)));
    write(u"a"_s, "1");
    write(u".hidden"_s, "22");
    write(u"sub/b"_s, "333");
    write(u"sub/inner/c"_s, "4444");
    QVERIFY(QFile::link(u"sub"_s, path(u"link"_s)));
  }
  static QStringList sorted(std::optional<QStringList> names) {
    if (!names) return {u"(nothing)"_s};
    names->sort();
    return *names;
  }
  std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFileListing::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_folder = std::make_unique<QTemporaryDir>();
}

void TestFileListing::listsChildren() {
  fill();
  QCOMPARE(sorted(dirContents(m_folder->path())),
           (QStringList{u".hidden"_s, u"a"_s, u"link"_s, u"sub"_s}));
  QCOMPARE(sorted(dirContentsAbsolute(path(u"sub"_s))),
           (QStringList{path(u"sub/b"_s), path(u"sub/inner"_s)}));
  QCOMPARE(sorted(dirContentsAbsolute(path(u"sub/"_s))),
           (QStringList{path(u"sub/b"_s), path(u"sub/inner"_s)}));
  QCOMPARE(dirContents(path(u"link"_s)).value_or(QStringList()).size(), 2);
}

void TestFileListing::listsEverythingBelow() {
  fill();
  QCOMPARE(sorted(dirContentsRecursive(m_folder->path())),
           (QStringList{u".hidden"_s, u"a"_s, u"link"_s, u"sub"_s, u"sub/b"_s, u"sub/inner"_s,
                        u"sub/inner/c"_s}));
  QCOMPARE(sorted(dirContentsRecursiveAbsolute(path(u"sub"_s))),
           (QStringList{path(u"sub/b"_s), path(u"sub/inner"_s), path(u"sub/inner/c"_s)}));
}

void TestFileListing::locationsAreListed() {
  fill();
  const QUrl sub = QUrl::fromLocalFile(path(u"sub"_s));
  const auto children = dirContents(sub);
  QVERIFY(children);
  QCOMPARE(children->size(), 2);
  QVERIFY(children->contains(QUrl::fromLocalFile(path(u"sub/b"_s))));
  const auto below = dirContentsRecursive(sub);
  QVERIFY(below);
  QCOMPARE(below->size(), 3);
  QVERIFY(below->contains(QUrl::fromLocalFile(path(u"sub/inner/c"_s))));

  const QUrl web(u"https://example.org/"_s);
  QVERIFY(!dirContents(web));
  QVERIFY(!dirContentsRecursive(web));
  const QUrl missing = QUrl::fromLocalFile(path(u"missing"_s));
  QVERIFY(!dirContents(missing));
  QVERIFY(!dirContentsRecursive(missing));
  // Something is there, but it holds nothing.
  const QUrl file = QUrl::fromLocalFile(path(u"a"_s));
  QVERIFY(!dirContents(file));
  QCOMPARE(dirContentsRecursive(file), QList<QUrl>());
}

void TestFileListing::nothingWhenUnreadable_data() {
  QTest::addColumn<QString>("name");
  QTest::newRow("missing") << u"missing"_s;
  QTest::newRow("a file") << u"a"_s;
  QTest::newRow("a FIFO") << u"fifo"_s;
  QTest::newRow("a link to itself") << u"loop"_s;
}

void TestFileListing::nothingWhenUnreadable() {
  QFETCH(QString, name);
  fill();
  QVERIFY(QFile::link(u"loop"_s, path(u"loop"_s)));
  QCOMPARE(::mkfifo(QFile::encodeName(path(u"fifo"_s)).constData(), 0600), 0);
  QVERIFY(!dirContents(path(name)));
  QVERIFY(!dirContentsAbsolute(path(name)));
  QVERIFY(!dirContentsRecursive(path(name)));
  QVERIFY(!dirContentsRecursiveAbsolute(path(name)));
  QCOMPARE(directorySize(path(name)), 0);
}

void TestFileListing::linkLoopsEnd() {
  QVERIFY(QDir().mkpath(path(u"one/two"_s)));
  QVERIFY(QFile::link(path(u"one"_s), path(u"one/two/back"_s)));
  QVERIFY(QFile::link(u"."_s, path(u"here"_s)));
  QVERIFY(QFile::link(u".."_s, path(u"up"_s)));
  QCOMPARE(sorted(dirContentsRecursive(m_folder->path())),
           (QStringList{u"here"_s, u"one"_s, u"one/two"_s, u"one/two/back"_s, u"up"_s}));
}

void TestFileListing::namesThatAreNotText() {
  const QByteArray name = QFile::encodeName(m_folder->path()) + "/bad-\xff\xfe";
  QCOMPARE(::mkdir(name.constData(), 0700), 0);
  const QByteArray inner = name + "/\xc3";
  FILE *handle = std::fopen(inner.constData(), "w");
  QVERIFY(handle);
  QCOMPARE(std::fputs("12345", handle) >= 0, true);
  std::fclose(handle);
  const auto listed = dirContentsRecursive(m_folder->path());
  QVERIFY(listed);
  QCOMPARE(listed->size(), 2);
  QVERIFY(listed->at(0).startsWith(u"bad-"_s));
  // The bytes lead there even though the text would not.
  QCOMPARE(directorySize(m_folder->path()), 5);
  ::unlink(inner.constData());
  ::rmdir(name.constData());
}

void TestFileListing::sizeOfAFolder() {
  QVERIFY(QDir().mkpath(path(u"empty/a/b"_s)));
  QCOMPARE(directorySize(m_folder->path()), 0);
  QCOMPARE(directorySize(QUrl::fromLocalFile(m_folder->path())), 0);
  fill();
  const quint64 linkItself = 3;  // "sub"
  QCOMPARE(directorySize(m_folder->path()), 10 + linkItself);
  QCOMPARE(directorySize(QUrl::fromLocalFile(m_folder->path())), 10 + linkItself);
  QCOMPARE(directorySize(QUrl(u"https://example.org/"_s)), 0);
}

// Deeper than a program may have open descriptors for each level.
void TestFileListing::deepFolders() {
  QString deepest;
  for (int level = 0; level < 1500; ++level)
    deepest += u"/d"_s;
  QVERIFY(QDir().mkpath(m_folder->path() + deepest));
  QCOMPARE(dirContentsRecursive(m_folder->path()).value_or(QStringList()).size(), 1500);
}

QTEST_GUILESS_MAIN(TestFileListing)
#include "tst_filelisting.moc"
