#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "FolderTree.h"
#include "SmallDisk.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// A watched folder that comes, goes and changes its name, or one of those above it.
class TestFolderRoot final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void goes_data();
  void goes();
  void comesBack_data();
  void comesBack();
  void awayAndBack();
  void anotherInItsPlace();
  void linkInItsPlace();
  void comesLate();
  void nothingOnTheWayCounts();
  void theWholeFileSystem();
  void unmounted();

 private:
  [[nodiscard]] QString path(const QString &name) const { return m_folder->filePath(name); }
  static bool settle(FolderTree &tree) {
    tree.readEvents();
    while (tree.isWalking()) {
      tree.walkOne();
      tree.readEvents();
    }
    return tree.takeNews().changed;
  }
  void write(const QString &name) const {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write("x"), 1);
  }
  void make(const QString &name) const { QVERIFY(QDir().mkpath(path(name))); }
  void move(const QString &from, const QString &to) const {
    QVERIFY(QDir().rename(path(from), path(to)));
  }
  // Takes the watched folder "top/mid/root" away.
  void takeAway(const QString &how) const {
    if (how == u"deleted"_s) QVERIFY(QDir(path(u"top/mid/root"_s)).removeRecursively());
    if (how == u"renamed"_s) move(u"top/mid/root"_s, u"top/mid/other"_s);
    if (how == u"moved"_s) move(u"top/mid/root"_s, u"elsewhere"_s);
    if (how == u"parent renamed"_s) move(u"top/mid"_s, u"top/other"_s);
    if (how == u"grandparent renamed"_s) move(u"top"_s, u"other"_s);
    if (how == u"grandparent deleted"_s) QVERIFY(QDir(path(u"top"_s)).removeRecursively());
  }
  static void ways() {
    QTest::addColumn<QString>("how");
    for (const QString &how : {u"deleted"_s, u"renamed"_s, u"moved"_s, u"parent renamed"_s,
                               u"grandparent renamed"_s, u"grandparent deleted"_s})
      QTest::newRow(qPrintable(how)) << how;
  }

  std::unique_ptr<QTemporaryDir> m_folder;
  std::unique_ptr<FolderTree> m_tree;
};

void TestFolderRoot::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_tree.reset();
  m_folder = std::make_unique<QTemporaryDir>();
  make(u"top/mid/root/sub"_s);
  m_tree = std::make_unique<FolderTree>(QFile::encodeName(path(u"top/mid/root"_s)));
  QVERIFY(!settle(*m_tree));
  QCOMPARE(m_tree->watched(), 2U);
}

void TestFolderRoot::goes_data() {
  ways();
}

void TestFolderRoot::goes() {
  QFETCH(const QString, how);
  takeAway(how);
  QVERIFY(settle(*m_tree));
  QCOMPARE(m_tree->watched(), 0U);
  for (const QString &name :
       {u"top/mid/other"_s, u"elsewhere"_s, u"top/other/root"_s, u"other/mid/root"_s})
    if (QFile::exists(path(name))) write(name + u"/sub/file"_s);
  QVERIFY(!settle(*m_tree));
}

void TestFolderRoot::comesBack_data() {
  ways();
}

void TestFolderRoot::comesBack() {
  QFETCH(const QString, how);
  takeAway(how);
  QVERIFY(settle(*m_tree));
  make(u"top/mid/root/new"_s);
  QVERIFY(settle(*m_tree));
  QVERIFY(!settle(*m_tree));
  write(u"top/mid/root/new/file"_s);
  QVERIFY(settle(*m_tree));
}

void TestFolderRoot::awayAndBack() {
  move(u"top"_s, u"other"_s);
  move(u"other"_s, u"top"_s);
  QVERIFY(!settle(*m_tree));
  write(u"top/mid/root/sub/file"_s);
  QVERIFY(settle(*m_tree));
}

void TestFolderRoot::anotherInItsPlace() {
  make(u"another/folder"_s);
  move(u"top/mid/root"_s, u"elsewhere"_s);
  move(u"another"_s, u"top/mid/root"_s);
  QVERIFY(settle(*m_tree));
  write(u"elsewhere/sub/file"_s);
  QVERIFY(!settle(*m_tree));
  write(u"top/mid/root/folder/file"_s);
  QVERIFY(settle(*m_tree));
}

void TestFolderRoot::linkInItsPlace() {
  move(u"top/mid/root"_s, u"elsewhere"_s);
  QVERIFY(QFile::link(path(u"elsewhere"_s), path(u"top/mid/root"_s)));
  QVERIFY(settle(*m_tree));
  QCOMPARE(m_tree->watched(), 0U);
}

void TestFolderRoot::comesLate() {
  FolderTree tree(QFile::encodeName(path(u"a/b/c"_s)));
  QVERIFY(!settle(tree));
  QCOMPARE(tree.watched(), 0U);
  make(u"a"_s);
  QVERIFY(!settle(tree));
  make(u"a/b"_s);
  QVERIFY(!settle(tree));
  make(u"a/b/c"_s);
  QVERIFY(settle(tree));
  write(u"a/b/c/file"_s);
  QVERIFY(settle(tree));
}

void TestFolderRoot::nothingOnTheWayCounts() {
  write(u"top/mid/file"_s);
  make(u"top/mid/root2"_s);
  make(u"top/new"_s);
  write(u"file"_s);
  QVERIFY(!settle(*m_tree));
}

void TestFolderRoot::theWholeFileSystem() {
  // Only begun: it may be large.
  FolderTree tree("/");
  tree.walkOne();
  QCOMPARE(tree.watched(), 1U);
  QVERIFY(tree.isWalking());
}

void TestFolderRoot::unmounted() {
  make(u"disk"_s);
  auto disk = std::make_unique<SmallDisk>(path(u"disk"_s));
  if (!disk->isThere()) qInfo("no file system may be mounted here: a plain folder takes its place");
  make(u"disk/sub"_s);
  FolderTree tree(QFile::encodeName(path(u"disk"_s)));
  QVERIFY(!settle(tree));
  QCOMPARE(tree.watched(), 2U);
  const bool wasThere = disk->isThere();
  disk.reset();
  if (!wasThere) QVERIFY(QDir(path(u"disk"_s)).removeRecursively());
  QVERIFY(settle(tree));
  QCOMPARE(tree.watched(), wasThere ? 1U : 0U);
}

QTEST_GUILESS_MAIN(TestFolderRoot)
#include "tst_folderroot.moc"
