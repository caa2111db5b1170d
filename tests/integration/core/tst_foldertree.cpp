#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <memory>

#include "Descriptor.h"
#include "FolderTree.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// What a tree of folders notices. It is walked and read step by step here, so that a test can act
// in between.
class TestFolderTree final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void notices_data();
  void notices();
  void lookingIsNoChange();
  void newFolders();
  void filesBeforeTheWatchOfTheirFolder();
  void whatWasThereIsNoChange();
  void filesDuringTheFirstWalk();
  void movedWithin();
  void movedAway();
  void movedIn();
  void deletedFolders();
  void linksAreNotFollowed();
  void pathsLongerThanTheSystemTakes();
  void lostEvents();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  [[nodiscard]] std::unique_ptr<FolderTree> watch(const QString &name = u"root"_s) const {
    auto tree = std::make_unique<FolderTree>(QFile::encodeName(path(name)));
    (void)settle(*tree);
    return tree;
  }
  // Lets the tree do all that it has to do; whether something has changed.
  static bool settle(FolderTree &tree) {
    tree.readEvents();
    while (tree.isWalking()) {
      tree.walkOne();
      tree.readEvents();
    }
    return tree.takeNews().changed;
  }
  void write(const QString &name, const QByteArray &bytes = "x") const {
    QVERIFY(wholefile::write(path(name), bytes));
  }
  void make(const QString &name) const { QVERIFY(QDir().mkpath(path(name))); }
  void move(const QString &from, const QString &to) const {
    QCOMPARE(::rename(QFile::encodeName(path(from)).constData(),
                      QFile::encodeName(path(to)).constData()),
             0);
  }

  std::unique_ptr<QTemporaryDir> m_folder;
};

void TestFolderTree::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_folder = std::make_unique<QTemporaryDir>();
  make(u"root/sub/deep"_s);
  make(u"outside"_s);
  write(u"root/file"_s);
  write(u"root/sub/deep/file"_s);
}

void TestFolderTree::notices_data() {
  QTest::addColumn<QString>("folder");
  QTest::addColumn<QString>("change");
  for (const QString &folder : {u"root"_s, u"root/sub"_s, u"root/sub/deep"_s})
    for (const QString &change : {u"create"_s, u"write"_s, u"delete"_s, u"rename"_s, u"mode"_s,
                                  u"link"_s, u"make folder"_s})
      QTest::newRow(qPrintable(QString(folder + u", "_s + change))) << folder << change;
}

void TestFolderTree::notices() {
  QFETCH(const QString, folder);
  QFETCH(const QString, change);
  write(folder + u"/known"_s);
  const auto tree = watch();
  QCOMPARE(tree->watched(), 3U);
  QVERIFY(!settle(*tree));
  const QByteArray known = QFile::encodeName(path(folder + u"/known"_s));
  if (change == u"create"_s) write(folder + u"/new"_s, {});
  if (change == u"write"_s) write(folder + u"/known"_s, "more");
  if (change == u"delete"_s) QVERIFY(QFile::remove(path(folder + u"/known"_s)));
  if (change == u"rename"_s) move(folder + u"/known"_s, folder + u"/other"_s);
  if (change == u"mode"_s) QCOMPARE(::chmod(known.constData(), 0700), 0);
  if (change == u"link"_s) QVERIFY(QFile::link(u"known"_s, path(folder + u"/link"_s)));
  if (change == u"make folder"_s) make(folder + u"/new"_s);
  QVERIFY(settle(*tree));
  QVERIFY(!settle(*tree));
}

void TestFolderTree::lookingIsNoChange() {
  const auto tree = watch();
  QCOMPARE(wholefile::read(path(u"root/sub/deep/file"_s)), QByteArray("x"));
  QCOMPARE(QDir(path(u"root/sub"_s)).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
           QStringList{u"deep"_s});
  write(u"outside/file"_s);
  QVERIFY(!settle(*tree));
}

void TestFolderTree::newFolders() {
  const auto tree = watch();
  make(u"root/a/b/c"_s);
  QVERIFY(settle(*tree));
  QCOMPARE(tree->watched(), 6U);
  write(u"root/a/b/c/file"_s);
  QVERIFY(settle(*tree));
}

void TestFolderTree::filesBeforeTheWatchOfTheirFolder() {
  const auto tree = watch();
  make(u"root/new"_s);
  tree->readEvents();
  QVERIFY(tree->takeNews().changed);
  // Its making has been told, and nobody watches it yet.
  write(u"root/new/file"_s);
  make(u"root/new/below"_s);
  write(u"root/new/below/file"_s);
  QVERIFY(settle(*tree));
  write(u"root/new/below/file"_s, "more");
  QVERIFY(settle(*tree));
}

void TestFolderTree::whatWasThereIsNoChange() {
  // Made in the very moment before.
  for (int i = 0; i < 50; ++i) {
    const QString name = u"fresh%1"_s.arg(i);
    make(name + u"/sub"_s);
    write(name + u"/sub/file"_s);
    FolderTree tree(QFile::encodeName(path(name)));
    QVERIFY(!settle(tree));
  }
}

void TestFolderTree::filesDuringTheFirstWalk() {
  FolderTree tree(QFile::encodeName(path(u"root"_s)));
  timespec begun{};
  ::clock_gettime(CLOCK_REALTIME, &begun);
  const QByteArray file = QFile::encodeName(path(u"root/sub/deep/file"_s));
  struct stat found {};
  // The times of files go by steps.
  QTRY_VERIFY(([&] {
    write(u"root/sub/deep/file"_s, "more");
    if (::stat(file.constData(), &found) != 0) return false;
    return std::tie(found.st_ctim.tv_sec, found.st_ctim.tv_nsec) >
           std::tie(begun.tv_sec, begun.tv_nsec);
  }()));
  QVERIFY(settle(tree));
  QVERIFY(!settle(tree));
}

void TestFolderTree::movedWithin() {
  const auto tree = watch();
  make(u"root/other"_s);
  move(u"root/sub"_s, u"root/other/moved"_s);
  QVERIFY(settle(*tree));
  QCOMPARE(tree->watched(), 4U);
  write(u"root/other/moved/deep/file"_s, "more");
  QVERIFY(settle(*tree));
  make(u"root/other/moved/deep/new"_s);
  QVERIFY(settle(*tree));
  write(u"root/other/moved/deep/new/file"_s);
  QVERIFY(settle(*tree));
}

void TestFolderTree::movedAway() {
  const auto tree = watch();
  move(u"root/sub"_s, u"outside/sub"_s);
  QVERIFY(settle(*tree));
  QCOMPARE(tree->watched(), 1U);
  write(u"outside/sub/deep/file"_s, "more");
  QVERIFY(!settle(*tree));
  make(u"root/sub/deep"_s);
  QVERIFY(settle(*tree));
  write(u"root/sub/deep/new"_s);
  QVERIFY(settle(*tree));
}

void TestFolderTree::movedIn() {
  make(u"outside/a/b"_s);
  const auto tree = watch();
  move(u"outside/a"_s, u"root/a"_s);
  QVERIFY(settle(*tree));
  QCOMPARE(tree->watched(), 5U);
  write(u"root/a/b/file"_s);
  QVERIFY(settle(*tree));
}

void TestFolderTree::deletedFolders() {
  const auto tree = watch();
  QVERIFY(QDir(path(u"root/sub"_s)).removeRecursively());
  QVERIFY(settle(*tree));
  QCOMPARE(tree->watched(), 1U);
}

void TestFolderTree::linksAreNotFollowed() {
  QVERIFY(QFile::link(path(u"outside"_s), path(u"root/link"_s)));
  QVERIFY(QFile::link(path(u"root"_s), path(u"root/sub/circle"_s)));
  const auto tree = watch();
  QCOMPARE(tree->watched(), 3U);
  write(u"outside/file"_s);
  QVERIFY(!settle(*tree));
  QVERIFY(QFile::link(path(u"outside"_s), path(u"root/link2"_s)));
  QVERIFY(settle(*tree));
  write(u"outside/file"_s, "more");
  QVERIFY(!settle(*tree));
}

void TestFolderTree::pathsLongerThanTheSystemTakes() {
  const QByteArray name(200, 'n');
  Descriptor folder(::open(QFile::encodeName(path(u"root"_s)).constData(), O_PATH));
  constexpr size_t depth = 25;
  for (size_t i = 0; i < depth; ++i) {
    QCOMPARE(::mkdirat(folder.get(), name.constData(), 0700), 0);
    folder = Descriptor(::openat(folder.get(), name.constData(), O_PATH));
  }
  const auto tree = watch();
  QCOMPARE(tree->watched(), depth + 3);
  QCOMPARE(::mkdirat(folder.get(), "new", 0700), 0);
  QVERIFY(settle(*tree));
  const Descriptor file(::openat(folder.get(), "new/file", O_CREAT | O_WRONLY, 0600));
  QVERIFY(file);
  QVERIFY(settle(*tree));
  // The temporary folder cannot remove it by itself.
  QVERIFY(std::filesystem::remove_all(QFile::encodeName(path(u"root"_s)).toStdString()) > depth);
}

void TestFolderTree::lostEvents() {
  const int most = wholefile::read(u"/proc/sys/fs/inotify/max_queued_events"_s).trimmed().toInt();
  QVERIFY(most > 0);
  const auto tree = watch();
  // Each of them is two events.
  for (int i = 0; i <= most / 4; ++i) {
    move(u"root/file"_s, u"root/other"_s);
    move(u"root/other"_s, u"root/file"_s);
  }
  // Of these nothing is told any more.
  make(u"root/late/below"_s);
  write(u"root/late/below/file"_s);
  move(u"root/sub"_s, u"outside/sub"_s);
  QVERIFY(settle(*tree));
  QCOMPARE(tree->watched(), 3U);
  write(u"root/late/below/file"_s, "more");
  QVERIFY(settle(*tree));
  write(u"outside/sub/deep/file"_s, "more");
  QVERIFY(!settle(*tree));
}

QTEST_GUILESS_MAIN(TestFolderTree)
#include "tst_foldertree.moc"
