#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QUrlQuery>

#include "ScratchProgram.h"
#include "Url.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

class TestUrl final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { QTest::failOnWarning(QRegularExpression(u".*"_s)); }

  void readsAddresses_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::newRow("web") << u"https://decant.example/a?b=c#d"_s << true;
    QTest::newRow("mail") << u"mailto:a@b.org?subject=x%20y"_s << true;
    QTest::newRow("file") << u"file:///a%20b"_s << true;
    QTest::newRow("empty") << u""_s << false;
    QTest::newRow("blank") << u"https://x.org/a b"_s << false;
    QTest::newRow("broken percent") << u"https://x.org/%zz"_s << false;
    QTest::newRow("port") << u"https://x.org:port/"_s << false;
  }
  void readsAddresses() {
    QFETCH(QString, text);
    QFETCH(bool, valid);
    const QUrl url = URL(text);
    QCOMPARE(url.isValid(), valid);
    if (valid) QCOMPARE(url.toString(QUrl::FullyEncoded), text);
  }

  void locatesFiles_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << u"/a/b.mkv"_s << u"/a/b.mkv"_s;
    QTest::newRow("signs") << u"/a b/%n#?\"'\n;ä😀.mkv"_s << u"/a b/%n#?\"'\n;ä😀.mkv"_s;
    QTest::newRow("encoded stays") << u"/100%25"_s << u"/100%25"_s;
    QTest::newRow("no host") << u"//Host/b"_s << u"//Host/b"_s;
    QTest::newRow("root") << u"///"_s << u"///"_s;
    QTest::newRow("no host, signs") << u"//a b/%25#?ä"_s << u"//a b/%25#?ä"_s;
    QTest::newRow("nothing collapsed") << u"/a/../b/./c"_s << u"/a/../b/./c"_s;
    QTest::newRow("relative") << u"a.mkv"_s << QString(QDir::currentPath() + u"/a.mkv"_s);
    QTest::newRow("like a protocol")
        << u"pipe:1.mkv"_s << QString(QDir::currentPath() + u"/pipe:1.mkv"_s);
  }
  void locatesFiles() {
    QFETCH(QString, path);
    const QUrl location = fileURL(path);
    QVERIFY(location.isLocalFile());
    QVERIFY(location.host().isEmpty());
    QTEST(location.toLocalFile(), "expected");
    QTEST(QUrl::fromEncoded(location.toEncoded()).toLocalFile(), "expected");
  }

  void locatesNothing() { QVERIFY(!fileURL(u""_s).isValid()); }

  void findsResources() {
    ScratchProgram program;
    const QString pages = program.library().resDir() + u"/pages"_s;
    QVERIFY(QDir().mkpath(pages));
    const QString page = pages + u"/a b%.html"_s;
    QVERIFY(wholefile::write(page));
    QCOMPARE(resourcePath(u"pages/a b%.html"_s), page);
    QCOMPARE(resourceURL(u"pages/a b%.html"_s).toLocalFile(), page);
    for (const QString &absent : {u"none"_s, u""_s, u"../resources/pages"_s, u"/"_s, pages}) {
      QVERIFY2(resourcePath(absent).isNull(), qPrintable(absent));
      QVERIFY2(!resourceURL(absent).isValid(), qPrintable(absent));
    }
  }

  void findsNoResourcesWithoutProgram() { QVERIFY(resourcePath(u"ffmpeg"_s).isNull()); }

  void buildsFromParts() {
    UrlParts parts;
    parts.scheme = u"http"_s;
    parts.host = u"x.org"_s;
    parts.path = u"/a b/100%"_s;
    parts.query = u"q=1+1 %&r=ä#"_s;
    parts.user = u"me@home"_s;
    parts.password = u"p:w/"_s;
    parts.fragment = u"top here"_s;
    parts.port = 8080;
    QCOMPARE(
        URLWithScheme(parts).toString(QUrl::FullyEncoded),
        u"http://me%40home:p:w%2F@x.org:8080/a%20b/100%25?q=1%2B1%20%25&r=%C3%A4%23#top%20here"_s);
  }

  void buildsShort_data() {
    QTest::addColumn<QString>("query");
    QTest::addColumn<QString>("expected");
    QTest::newRow("no query") << QString() << u"https://x.org/p"_s;
    QTest::newRow("empty query") << u""_s << u"https://x.org/p?"_s;
    QTest::newRow("plus") << u"v=1+2++3"_s << u"https://x.org/p?v=1%2B2%2B%2B3"_s;
    QTest::newRow("only plus") << u"+"_s << u"https://x.org/p?%2B"_s;
    QTest::newRow("written as percent") << u"a=%2B"_s << u"https://x.org/p?a=%252B"_s;
  }
  void buildsShort() {
    QFETCH(QString, query);
    QTEST(URLWithHost(u"x.org"_s, u"/p"_s, query).toString(QUrl::FullyEncoded), "expected");
  }

  void readsPlusBack() {
    const QUrl url = URLWithHost(u"x.org"_s, u"/p"_s, u"mail=a+b@c.org"_s);
    QCOMPARE(QUrlQuery(url).queryItemValue(u"mail"_s, QUrl::FullyDecoded), u"a+b@c.org"_s);
  }

  void buildsNothing() {
    QVERIFY(!URLWithHost(u"x.org"_s, u"no slash"_s, u""_s).isValid());
    QVERIFY(!URLWithHost(u"bad host"_s, u"/p"_s, u""_s).isValid());
    QVERIFY(!URLWithScheme({}).isValid());
    UrlParts parts;
    parts.scheme = u"1http"_s;
    parts.host = u"x.org"_s;
    QVERIFY(!URLWithScheme(parts).isValid());
    parts.scheme = u"http"_s;
    QVERIFY(URLWithScheme(parts).isValid());
    parts.port = 65536;
    QVERIFY(!URLWithScheme(parts).isValid());
  }

  void addsComponents_data() {
    QTest::addColumn<QString>("location");
    QTest::addColumn<QString>("component");
    QTest::addColumn<QString>("expected");
    QTest::newRow("file") << u"file:///a"_s << u"b.mkv"_s << u"file:///a/b.mkv"_s;
    QTest::newRow("one slash") << u"file:///a/"_s << u"/b"_s << u"file:///a/b"_s;
    QTest::newRow("several") << u"file:///a"_s << u"b/c"_s << u"file:///a/b/c"_s;
    QTest::newRow("signs") << u"file:///a"_s << u"50% ?#"_s << u"file:///a/50%25%20%3F%23"_s;
    QTest::newRow("no path") << u"https://x.org"_s << u"a"_s << u"https://x.org/a"_s;
    QTest::newRow("query stays") << u"https://x.org/a?q=1"_s << u"b"_s
                                 << u"https://x.org/a/b?q=1"_s;
  }
  void addsComponents() {
    QFETCH(QString, location);
    QFETCH(QString, component);
    QTEST(add(QUrl(location), component).toString(QUrl::FullyEncoded), "expected");
  }

  void opens() {
    const QUrl address(u"https://decant.example/"_s);
    QVERIFY(!ostrak::open(address));
    ScratchProgram program;
    QVERIFY(ostrak::open(address));
    QVERIFY(!ostrak::open(QUrl()));
    QCOMPARE(program.opener().opened, QList<QUrl>{address});
  }
};

QTEST_GUILESS_MAIN(TestUrl)
#include "tst_url.moc"
