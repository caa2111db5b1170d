#include <QDir>
#include <QTest>

#include "DesktopBench.h"
#include "RealFileRevealer.h"
#include "UrlOpener.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;

class TestFileRevealer final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init();
  void cleanup();
  void namesAreEncoded_data();
  void namesAreEncoded();
  void aFolderIsRevealedToo();
  void withoutAnAnswerTheFolderIsOpened_data();
  void withoutAnAnswerTheFolderIsOpened();
  void foldersAreEncodedToo();
  void aSilentFileManagerHoldsUpNobody();
  void aMissingFileOpensItsFolder();
  void nothingCanShowTheFolder();
  void theBusStartsTheFileManager();
  void mayEndBeforeTheAnswer();

 private:
  [[nodiscard]] QString makeFile(const QString &name) const {
    return wholefile::made(m_bench->path(name));
  }
  [[nodiscard]] QString folderUri() const { return u"file://"_s + m_bench->path({}); }
  [[nodiscard]] QList<QUrl> folder() const { return {QUrl(folderUri())}; }

  std::unique_ptr<DesktopBench> m_bench;
};

void TestFileRevealer::init() {
  QTest::failOnWarning(QRegularExpression(u".*"_s));
  m_bench = std::make_unique<DesktopBench>();
}

void TestFileRevealer::cleanup() {
  m_bench.reset();
}

void TestFileRevealer::namesAreEncoded_data() {
  QTest::addColumn<QString>("name");
  QTest::addColumn<QString>("encoded");
  QTest::newRow("plain") << u"movie-1_a.mp4"_s << u"movie-1_a.mp4"_s;
  QTest::newRow("blanks") << u"my movie.mp4"_s << u"my%20movie.mp4"_s;
  QTest::newRow("percent") << u"100%25.mp4"_s << u"100%2525.mp4"_s;
  QTest::newRow("fragment and query") << u"#1?.mp4"_s << u"%231%3F.mp4"_s;
  QTest::newRow("umlauts") << u"Männer.mp4"_s << u"M%C3%A4nner.mp4"_s;
  QTest::newRow("beyond 16 bits") << u"🎬.mp4"_s << u"%F0%9F%8E%AC.mp4"_s;
  QTest::newRow("line break") << u"two\nlines.mp4"_s << u"two%0Alines.mp4"_s;
  QTest::newRow("quotes") << u"\"it's\".mp4"_s << u"%22it%27s%22.mp4"_s;
  QTest::newRow("backslash") << u"a\\b.mp4"_s << u"a%5Cb.mp4"_s;
  QTest::newRow("brackets, plus, semicolon") << u"[a]+b;c.mp4"_s << u"%5Ba%5D%2Bb%3Bc.mp4"_s;
}

void TestFileRevealer::namesAreEncoded() {
  QFETCH(QString, name);
  QFETCH(QString, encoded);
  const QString path = makeFile(name);
  QVERIFY(!path.isNull());
  QVERIFY(m_bench->startServices({u"filemanager"_s}));
  RecordingUrlOpener opener;
  RealFileRevealer revealer(m_bench->bus(), opener);
  revealer.reveal(path);
  const QStringList asked{u"ShowItems [\"%1/%2\"] \"\""_s.arg(folderUri(), encoded)};
  QTRY_COMPARE(m_bench->services().log(), asked);
  m_bench->settle(u"org.freedesktop.FileManager1"_s);
  QCOMPARE(opener.opened, QList<QUrl>());
  QCOMPARE(m_bench->logged(), QStringList());
}

void TestFileRevealer::aFolderIsRevealedToo() {
  QVERIFY(QDir().mkpath(m_bench->path(u"Films"_s)));
  QVERIFY(m_bench->startServices({u"filemanager"_s}));
  RecordingUrlOpener opener;
  RealFileRevealer revealer(m_bench->bus(), opener);
  revealer.reveal(m_bench->path(u"Films"_s));
  const QStringList asked{u"ShowItems [\"%1/Films\"] \"\""_s.arg(folderUri())};
  QTRY_COMPARE(m_bench->services().log(), asked);
}

void TestFileRevealer::withoutAnAnswerTheFolderIsOpened_data() {
  QTest::addColumn<QStringList>("services");
  QTest::addColumn<bool>("bus");
  QTest::addColumn<QString>("why");
  QTest::newRow("no file manager") << QStringList() << true << u"FileManager1"_s;
  QTest::newRow("it refuses") << QStringList{u"filemanager:refuses"_s} << true << u"not today"_s;
  QTest::newRow("no bus") << QStringList() << false << u"there is no session bus"_s;
}

void TestFileRevealer::withoutAnAnswerTheFolderIsOpened() {
  QFETCH(QStringList, services);
  QFETCH(bool, bus);
  QFETCH(QString, why);
  QVERIFY(m_bench->startServices(services));
  const QString path = makeFile(u"movie.mp4"_s);
  RecordingUrlOpener opener;
  RealFileRevealer revealer(bus ? m_bench->bus() : noBus(), opener);
  revealer.reveal(path);
  QTRY_COMPARE(opener.opened, folder());
  revealer.reveal(path);
  QTRY_COMPARE(opener.opened, folder() + folder());
  QCOMPARE(m_bench->logged().size(), 1);
  QVERIFY2(m_bench->logged().at(0).contains(why), qPrintable(m_bench->logged().at(0)));
}

void TestFileRevealer::foldersAreEncodedToo() {
  QVERIFY(QDir().mkpath(m_bench->path(u"100% #1 ä"_s)));
  const QString path = makeFile(u"100% #1 ä/movie.mp4"_s);
  QVERIFY(!path.isNull());
  RecordingUrlOpener opener;
  RealFileRevealer revealer(noBus(), opener);
  revealer.reveal(path);
  QCOMPARE(opener.opened.size(), 1);
  QCOMPARE(opener.opened.at(0).toLocalFile(), m_bench->path(u"100% #1 ä"_s));
  revealer.reveal(u'/' + path);
  QCOMPARE(opener.opened.at(1).host(), QString());
  revealer.reveal(m_bench->path(u"link/../gone.mp4"_s));
  QCOMPARE(opener.opened.at(2).path(), m_bench->path(u"link/.."_s));
  revealer.reveal(u"/gone.mp4"_s);
  QCOMPARE(opener.opened.at(3), QUrl(u"file:///"_s));
}

void TestFileRevealer::aSilentFileManagerHoldsUpNobody() {
  QVERIFY(m_bench->startServices({u"pausing"_s, u"filemanager"_s}));
  RecordingUrlOpener opener;
  RealFileRevealer revealer(m_bench->bus(), opener, std::chrono::milliseconds(100));
  revealer.reveal(makeFile(u"movie.mp4"_s));
  QCOMPARE(opener.opened, QList<QUrl>());
  QTRY_COMPARE(opener.opened, folder());
}

void TestFileRevealer::aMissingFileOpensItsFolder() {
  QVERIFY(m_bench->startServices({u"filemanager"_s}));
  RecordingUrlOpener opener;
  RealFileRevealer revealer(m_bench->bus(), opener);
  revealer.reveal(m_bench->path(u"gone.mp4"_s));
  QCOMPARE(opener.opened, folder());
  m_bench->settle(u"org.freedesktop.FileManager1"_s);
  QCOMPARE(m_bench->services().log(), QStringList());
}

void TestFileRevealer::nothingCanShowTheFolder() {
  NullUrlOpener opener;
  RealFileRevealer revealer(m_bench->bus(), opener);
  revealer.reveal(u"/no-such-folder/gone.mp4"_s);
  QCOMPARE(m_bench->logged(),
           QStringList{u"Warning: nothing could show the folder /no-such-folder"_s});
}

void TestFileRevealer::theBusStartsTheFileManager() {
  const QString log = m_bench->path(u"started"_s);
  QVERIFY(m_bench->privateBus().makeActivatable(u"org.freedesktop.FileManager1"_s,
                                                m_bench->serviceCommand(log, {u"filemanager"_s})));
  RecordingUrlOpener opener;
  RealFileRevealer revealer(m_bench->bus(), opener);
  revealer.reveal(makeFile(u"movie.mp4"_s));
  QTRY_COMPARE(MockService::logOf(log).size(), 1);
  QCOMPARE(opener.opened, QList<QUrl>());
}

void TestFileRevealer::mayEndBeforeTheAnswer() {
  QVERIFY(m_bench->startServices({u"pausing"_s, u"filemanager:refuses"_s}));
  RecordingUrlOpener opener;
  {
    RealFileRevealer revealer(m_bench->bus(), opener);
    revealer.reveal(makeFile(u"movie.mp4"_s));
    QTRY_VERIFY(m_bench->services().isFrozen());
  }
  m_bench->services().thaw();
  m_bench->settle(u"org.freedesktop.FileManager1"_s);
  QCOMPARE(opener.opened, QList<QUrl>());
}

QTEST_GUILESS_MAIN(TestFileRevealer)
#include "tst_filerevealer.moc"
