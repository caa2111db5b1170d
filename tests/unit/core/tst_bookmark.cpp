#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include "Bookmark.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// What a bookmark finds again, and what it does not.
class TestBookmark final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    m_root = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_root->path()).mkpath(u"Films/New/Big"_s));
  }

  void staysWhereItIs() {
    const auto bookmark = bookmarkOfFolder(at("Films/New"));
    QVERIFY(bookmark);
    QCOMPARE(folderOfBookmark(*bookmark), at("Films/New"));
    QCOMPARE(bookmarkOfFolder(at("Films/New/")), bookmark);
    QVERIFY(bookmarkOfFolder(at("Films")) != bookmark);
  }

  void followsARename() {
    const auto bookmark = bookmarkOfFolder(at("Films/New"));
    QVERIFY(QDir().rename(at("Films/New"), at("Films/Old")));
    QCOMPARE(folderOfBookmark(*bookmark), at("Films/Old"));
  }

  void followsARenamedAncestor() {
    const auto bookmark = bookmarkOfFolder(at("Films/New/Big"));
    QVERIFY(QDir().rename(at("Films"), at("Movies")));
    QCOMPARE(folderOfBookmark(*bookmark), at("Movies/New/Big"));
  }

  void prefersTheRenamedFolderToAStranger() {
    const auto bookmark = bookmarkOfFolder(at("Films/New"));
    QVERIFY(QDir().rename(at("Films/New"), at("Films/Old")));
    QVERIFY(QDir().mkdir(at("Films/New")));
    QCOMPARE(folderOfBookmark(*bookmark), at("Films/Old"));
  }

  void theFolderAtItsPathWhenItsOwnIsGone_data() {
    QTest::addColumn<quint64>("otherFileSystem");
    QTest::addColumn<bool>("taken");
    QTest::newRow("a disk that numbers its files anew at each mount") << quint64{0} << true;
    QTest::newRow("the mount point of a disk that is away") << quint64{1} << false;
  }
  void theFolderAtItsPathWhenItsOwnIsGone() {
    QFETCH(quint64, otherFileSystem);
    QFETCH(bool, taken);
    auto bookmark = bookmarkOfFolder(at("Films/New/Big"));
    QVERIFY(bookmark);
    QJsonObject blob = QJsonDocument::fromJson(*bookmark).object();
    const quint64 fileSystem = blob.value(u"fileSystem"_s).toString().toULongLong();
    blob.insert(u"fileSystem"_s, QString::number(fileSystem ^ otherFileSystem));
    bookmark = QJsonDocument(blob).toJson();
    QVERIFY(QDir().mkdir(at("Films/New/fresh")));
    QVERIFY(QDir().rmdir(at("Films/New/Big")));
    QVERIFY(QDir().rename(at("Films/New/fresh"), at("Films/New/Big")));
    const std::optional<QString> found = folderOfBookmark(*bookmark);
    QCOMPARE(found.has_value(), taken);
    if (taken) QCOMPARE(found, at("Films/New/Big"));
  }

  void failsWhenTheFolderIsGone() {
    const auto bookmark = bookmarkOfFolder(at("Films/New/Big"));
    QVERIFY(QDir().rmdir(at("Films/New/Big")));
    QVERIFY(!folderOfBookmark(*bookmark));
  }

  void refusesWhatIsNoFolder_data() {
    QTest::addColumn<QByteArray>("bookmark");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("not JSON") << QByteArray("\x00\xff", 2);
    QTest::newRow("no path") << QByteArray("{}");
    QTest::newRow("relative") << QByteArray(R"({"path":"Films"})");
  }
  void refusesWhatIsNoFolder() {
    QFETCH(QByteArray, bookmark);
    QVERIFY(!folderOfBookmark(bookmark));
  }

  void onlyFoldersAreBookmarked() {
    QVERIFY(wholefile::write(at("Films/a.mkv")));
    QVERIFY(!bookmarkOfFolder(at("Films/a.mkv")));
    QVERIFY(!bookmarkOfFolder(at("nothing")));
  }

 private:
  QString at(const char *path) const { return m_root->filePath(QString::fromLatin1(path)); }
  std::unique_ptr<QTemporaryDir> m_root;
};

QTEST_GUILESS_MAIN(TestBookmark)
#include "tst_bookmark.moc"
