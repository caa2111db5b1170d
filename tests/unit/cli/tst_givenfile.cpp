#include <QObject>
#include <QRegularExpression>
#include <QTest>
#include <QUrl>

#include "GivenFile.h"
#include "Url.h"

using namespace decant;
using namespace Qt::StringLiterals;

class TestGivenFile final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }
  void absolute_data();
  void absolute();
  void refused_data();
  void refused();
  void throughALocation_data() { absolute_data(); }
  void throughALocation();
};

void TestGivenFile::absolute_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QString>("path");
  const auto row = [](const char *name, const QString &path) {
    QTest::newRow(name) << QByteArray(name) << path;
  };
  row("film.mkv", u"/some folder/film.mkv"_s);
  row("./a/../film.mkv", u"/some folder/./a/../film.mkv"_s);
  row("a//film.mkv", u"/some folder/a//film.mkv"_s);
  row("folder/", u"/some folder/folder/"_s);
  row("/other/./film.mkv", u"/other/./film.mkv"_s);
  row("//Host/film.mkv", u"//Host/film.mkv"_s);
  row("file:film.mkv", u"/some folder/file:film.mkv"_s);
  row("pipe:1.mkv", u"/some folder/pipe:1.mkv"_s);
  row("-film.mkv", u"/some folder/-film.mkv"_s);
  row("-", u"/some folder/-"_s);
  row("100%n %41.mkv", u"/some folder/100%n %41.mkv"_s);
  row("a?b#c;d.mkv", u"/some folder/a?b#c;d.mkv"_s);
  row("it's \"quoted\" \\.mkv", u"/some folder/it's \"quoted\" \\.mkv"_s);
  row("two\nlines.mkv", u"/some folder/two\nlines.mkv"_s);
  row("\xef\xbb\xbfmark.mkv", u"/some folder/\ufeffmark.mkv"_s);
  row("Größe \xf0\x9f\x8e\xac.mkv", u"/some folder/Größe 🎬.mkv"_s);
  row("e\xcc\x81.mkv", u"/some folder/e\u0301.mkv"_s);
}

void TestGivenFile::absolute() {
  QFETCH(const QByteArray, name);
  const GivenFile file = givenFile(name, "/some folder");
  QVERIFY(!file.refused());
  QTEST(file.path, "path");
  QCOMPARE(file.given.toUtf8(), name);
}

void TestGivenFile::refused_data() {
  QTest::addColumn<QByteArray>("name");
  QTest::addColumn<QByteArray>("workingFolder");
  QTest::addColumn<QString>("shown");
  QTest::newRow("no name") << QByteArray("") << QByteArray("/w") << QString(u""_s);
  QTest::newRow("Latin-1") << QByteArray(
                                  "Gr\xf6\xdf"
                                  "e.mkv")
                           << QByteArray("/w") << u"Gr\\xf6\\xdfe.mkv"_s;
  QTest::newRow("in a folder that is not UTF-8")
      << QByteArray("film.mkv") << QByteArray("/w\xff") << u"/w\\xff/film.mkv"_s;
  QTest::newRow("no working folder") << QByteArray("film.mkv") << QByteArray() << u"film.mkv"_s;
}

void TestGivenFile::refused() {
  QFETCH(const QByteArray, name);
  QFETCH(const QByteArray, workingFolder);
  QFETCH(const QString, shown);
  const GivenFile file = givenFile(name, workingFolder);
  QVERIFY(file.refused());
  QVERIFY2(file.refusal.contains(shown), qUtf8Printable(file.refusal));
  if (shown.contains(u"\\x"_s)) QVERIFY(file.refusal.contains(u"rename"_s));
}

// Sources travel as locations: the path has to survive that.
void TestGivenFile::throughALocation() {
  QFETCH(const QString, path);
  QCOMPARE(ostrak::fileURL(path).toLocalFile(), path);
  QCOMPARE(QUrl::fromEncoded(ostrak::fileURL(path).toEncoded()).toLocalFile(), path);
}

QTEST_GUILESS_MAIN(TestGivenFile)
#include "tst_givenfile.moc"
