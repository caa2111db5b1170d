#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QMap>
#include <QObject>
#include <QRegularExpression>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include "SortedFiles.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace decant;

class TestSortedFiles final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void extensionsInTheirOrder();
  void withoutExtension_data();
  void withoutExtension();
  void moviesKeepTheirOrder();
  void everythingElseIsLeftOut();
  void subtitlesAreKnownByTheirStem();
  void contentOfSubDecides_data();
  void contentOfSubDecides();
  void subThatIsNoFileIsNoText();
  void pairing_data();
  void pairing();
  void writingDoesNotMatter_data();
  void writingDoesNotMatter();

 private:
  [[nodiscard]] QString write(const QString &name, const QByteArray &bytes) const {
    return wholefile::made(m_folder.filePath(name), bytes);
  }
  QTemporaryDir m_folder;
};

void TestSortedFiles::extensionsInTheirOrder() {
  QCOMPARE(movieFileTypes(), QStringList({u"mkv"_s, u"mp4"_s, u"mov"_s, u"ogm"_s, u"wmv"_s,
                                          u"mpg"_s, u"flv"_s, u"webm"_s, u"ts"_s}));
  QCOMPARE(subtitleFileTypes(), QStringList({u"srt"_s, u"ass"_s, u"ssa"_s, u"smi"_s, u"sub"_s}));
}

void TestSortedFiles::withoutExtension_data() {
  QTest::addColumn<QString>("path");
  QTest::addColumn<QString>("stem");
  QTest::addColumn<QString>("extension");
  QTest::newRow("plain") << u"/a/Film.MKV"_s << u"/a/Film"_s << u"mkv"_s;
  QTest::newRow("two dots") << u"/a/Film.en.srt"_s << u"/a/Film.en"_s << u"srt"_s;
  QTest::newRow("none") << u"/a/Film"_s << u"/a/Film"_s << QString();
  QTest::newRow("dot in the folder") << u"/a.mkv/Film"_s << u"/a.mkv/Film"_s << QString();
  QTest::newRow("hidden") << u"/a/.mkv"_s << u"/a/.mkv"_s << QString();
  QTest::newRow("hidden with extension") << u"/a/.x.mkv"_s << u"/a/.x"_s << u"mkv"_s;
  QTest::newRow("dot at the end") << u"/a/Film."_s << u"/a/Film"_s << QString();
  QTest::newRow("bare name") << u"Film.ts"_s << u"Film"_s << u"ts"_s;
  QTest::newRow("line break") << u"/a/Fi\nlm.mkv"_s << u"/a/Fi\nlm"_s << u"mkv"_s;
}

void TestSortedFiles::withoutExtension() {
  QFETCH(const QString, path);
  QTEST(decant::withoutExtension(path), "stem");
  QFETCH(const QString, extension);
  QCOMPARE(lowerExtension(path), extension);
}

void TestSortedFiles::moviesKeepTheirOrder() {
  const SortedFiles sorted =
      sortByName({u"/z.MKV"_s, u"/a.webm"_s, u"/m.Ts"_s, u"/b.mp4"_s, u"/a.webm"_s});
  QCOMPARE(sorted.movies,
           QStringList({u"/z.MKV"_s, u"/a.webm"_s, u"/m.Ts"_s, u"/b.mp4"_s, u"/a.webm"_s}));
  QVERIFY(sorted.others.isEmpty());
}

void TestSortedFiles::everythingElseIsLeftOut() {
  const QStringList others{u"/folder"_s, u"/read.txt"_s, u"/film.avi"_s, u"/.mkv"_s,
                           u"/film.m4v"_s};
  const SortedFiles sorted = sortByName(others);
  QCOMPARE(sorted.others, others);
  QVERIFY(sorted.movies.isEmpty());
  QVERIFY(sorted.subtitles.isEmpty());
}

void TestSortedFiles::subtitlesAreKnownByTheirStem() {
  const SortedFiles sorted =
      sortByName({u"/a.SRT"_s, u"/b.ass"_s, u"/c.ssa"_s, u"/d.smi"_s, u"/a.ass"_s, u"/b.en.srt"_s});
  const QMap<QString, QString> expected{{u"/a"_s, u"/a.ass"_s},
                                        {u"/b"_s, u"/b.ass"_s},
                                        {u"/b.en"_s, u"/b.en.srt"_s},
                                        {u"/c"_s, u"/c.ssa"_s},
                                        {u"/d"_s, u"/d.smi"_s}};
  QCOMPARE(sorted.subtitles, expected);
}

void TestSortedFiles::contentOfSubDecides_data() {
  QTest::addColumn<QByteArray>("bytes");
  QTest::addColumn<bool>("isText");
  QTest::newRow("pictures") << QByteArray("\x00\x00\x01\xBA rest", 9) << false;
  QTest::newRow("pictures, nothing else") << QByteArray("\x00\x00\x01\xBA", 4) << false;
  QTest::newRow("another pack") << QByteArray("\x00\x00\x01\xB9 rest", 9) << true;
  QTest::newRow("text") << QByteArray("{1}{25}Hello") << true;
  QTest::newRow("three bytes") << QByteArray("\x00\x00\x01", 3) << true;
  QTest::newRow("empty") << QByteArray() << true;
}

void TestSortedFiles::contentOfSubDecides() {
  QFETCH(const QByteArray, bytes);
  QFETCH(const bool, isText);
  const QString path = write(u"Film.SUB"_s, bytes);
  QCOMPARE(isTextSubtitle(path), isText);
  const SortedFiles sorted = sortByName({path});
  QCOMPARE(sorted.untested, QStringList(path));
  QVERIFY(sorted.subtitles.isEmpty());
}

void TestSortedFiles::subThatIsNoFileIsNoText() {
  const QString folder = m_folder.filePath(u"folder.sub"_s);
  QVERIFY(QDir().mkpath(folder));
  // Nobody writes to it: opening it for reading in the plain way would wait for ever.
  const QString pipe = m_folder.filePath(u"pipe.sub"_s);
  QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
  for (const QString &path : {folder, pipe, m_folder.filePath(u"gone.sub"_s)})
    QVERIFY(!isTextSubtitle(path));
}

void TestSortedFiles::pairing_data() {
  QTest::addColumn<QStringList>("subtitles");
  QTest::addColumn<QString>("expected");
  const auto row = [](const char *name, const QStringList &subtitles, const QString &expected) {
    QTest::newRow(name) << subtitles << expected;
  };
  row("none", {}, {});
  row("exact", {u"/f/Film.srt"_s}, u"/f/Film.srt"_s);
  row("with a language", {u"/f/Film.en.srt"_s}, u"/f/Film.en.srt"_s);
  row("a longer stem", {u"/f/Film2.srt"_s}, u"/f/Film2.srt"_s);
  row("exact before the others", {u"/f/Film-a.srt"_s, u"/f/Film.a.srt"_s, u"/f/Film.srt"_s},
      u"/f/Film.srt"_s);
  row("dot before other prefixes", {u"/f/Film-a.srt"_s, u"/f/Film.z.srt"_s}, u"/f/Film.z.srt"_s);
  row("dotted by path", {u"/f/Film.en.srt"_s, u"/f/Film.de.srt"_s}, u"/f/Film.de.srt"_s);
  row("prefixes by path", {u"/f/Film-b.srt"_s, u"/f/Film-a.srt"_s}, u"/f/Film-a.srt"_s);
  row("path, not stem, decides", {u"/f/Film.a.srt"_s, u"/f/Film.a-b.srt"_s}, u"/f/Film.a-b.srt"_s);
  row("another folder", {u"/g/Film.srt"_s}, {});
  row("a shorter stem", {u"/f/Fil.srt"_s}, {});
  row("another case", {u"/f/film.srt"_s}, {});
}

void TestSortedFiles::pairing() {
  QFETCH(const QStringList, subtitles);
  const QMap<QString, QString> known = sortByName(subtitles).subtitles;
  QTEST(pairedSubtitle(u"/f/Film.mkv"_s, known), "expected");
}

void TestSortedFiles::writingDoesNotMatter_data() {
  QTest::addColumn<QString>("movie");
  QTest::addColumn<QString>("subtitle");
  QTest::newRow("movie with a dot") << u"/f/./Film.mkv"_s << u"/f/Film.srt"_s;
  QTest::newRow("subtitle with a dot") << u"/f/Film.mkv"_s << u"/f/./Film.srt"_s;
  QTest::newRow("up and down again") << u"/f/../f/Film.mkv"_s << u"/f/Film.en.srt"_s;
  QTest::newRow("two slashes") << u"/f//Film.mkv"_s << u"/f/g/../Film2.srt"_s;
}

// The subtitle file keeps the path that it was given.
void TestSortedFiles::writingDoesNotMatter() {
  QFETCH(const QString, movie);
  QFETCH(const QString, subtitle);
  const QStringList others{u"/f/./Film9.srt"_s, u"/f/Film/../Film8.srt"_s};
  QCOMPARE(pairedSubtitle(movie, sortByName(QStringList{subtitle} + others).subtitles), subtitle);
}

QTEST_GUILESS_MAIN(TestSortedFiles)
#include "tst_sortedfiles.moc"
