#include <QDirIterator>
#include <QImage>
#include <QTemporaryDir>

#include "EnvironmentWatch.h"
#include "LivePage.h"
#include "PageTest.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// What a page in the web view may reach: its links, and what it may not see or leave behind.
class TestWebFence final : public PageTest {
  Q_OBJECT

 private Q_SLOTS:
  void linkGoesToTheBrowser_data();
  void linkGoesToTheBrowser();
  void linkLeadsNowhere_data();
  void linkLeadsNowhere();
  void linkToOnlinePageStaysInside();
  void linkWithinThePageStaysInside();
  void frameLeadsNowhere();
  void runsNoScriptOfPages();
  void localPageSeesItsFolderOnly();
  void onlinePageSeesNoFile();
  void keepsNothing();
  void leavesTheEnvironmentAlone();

 private:
  void furnish() override { m_b->putLibrary(u"OstrakWeb"_s); }
  static QByteArray pageWithLink(const QString &link, const QByteArray &more = {}) {
    return "<title>links</title><body style='margin:0'><a href='" + link.toUtf8() + "' " + more +
           " style='display:block;width:300px;height:200px'>link</a>";
  }
  [[nodiscard]] QList<QUrl> &opened() { return m_b->program.opener().opened; }
};

void TestWebFence::linkGoesToTheBrowser_data() {
  QTest::addColumn<QString>("link");
  QTest::addColumn<QByteArray>("more");
  QTest::newRow("web") << u"https://decant.example/a?b=c#d"_s << QByteArray();
  QTest::newRow("mail") << u"mailto:support@decant.example"_s << QByteArray();
  QTest::newRow("in a new window")
      << u"https://decant.example/new"_s << QByteArray("target='_blank'");
}

void TestWebFence::linkGoesToTheBrowser() {
  QFETCH(QString, link);
  QFETCH(QByteArray, more);
  m_b->putPage(u"page.html"_s, pageWithLink(link, more));
  LivePage page(*m_b);
  QVERIFY(page.show());
  QVERIFY(page.hasTitle(u"links"_s));
  QVERIFY(page.clickLink());
  QTRY_COMPARE_WITH_TIMEOUT(opened(), QList<QUrl>{QUrl(link)}, LivePage::patience);
  QCOMPARE(page.ask(u"document.title"_s), u"links"_s);
}

void TestWebFence::linkLeadsNowhere_data() {
  QTest::addColumn<QString>("link");
  QTest::newRow("another file") << u"other.html"_s;
  QTest::newRow("a script") << u"javascript:document.title='script'"_s;
  QTest::newRow("the engine") << u"chrome://gpu"_s;
}

void TestWebFence::linkLeadsNowhere() {
  QFETCH(QString, link);
  m_b->putPage(u"page.html"_s, pageWithLink(link));
  m_b->putPage(u"other.html"_s, "<title>other</title>text");
  LivePage page(*m_b);
  QVERIFY(page.show());
  QVERIFY(page.hasTitle(u"links"_s));
  QVERIFY(page.clickLink());
  QCOMPARE(page.ask(u"document.title"_s), u"links"_s);
  QCOMPARE(opened(), QList<QUrl>());
}

void TestWebFence::linkToOnlinePageStaysInside() {
  m_b->server.put(u"/new.html"_s, "<title>online</title>text");
  m_b->putPage(u"page.html"_s, pageWithLink(m_b->server.address(u"/new.html"_s)));
  m_b->server.drop(u"/new.html"_s);
  LivePage page(*m_b);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"links"_s));
  QTRY_VERIFY_WITH_TIMEOUT(!m_b->server.asked.isEmpty() && !page->isLoadingOnlineCopy(),
                           LivePage::patience);
  m_b->server.release();
  QVERIFY(page.clickLink());
  QVERIFY(page.hasTitle(u"online"_s));
  QCOMPARE(opened(), QList<QUrl>());
}

void TestWebFence::linkWithinThePageStaysInside() {
  m_b->putPage(u"page.html"_s,
               pageWithLink(u"#below"_s) + "<div style='height:3000px'></div><p id='below'>x");
  LivePage page(*m_b);
  QVERIFY(page.show());
  QVERIFY(page.hasTitle(u"links"_s));
  QVERIFY(page.clickLink());
  QVERIFY(page.becomes(u"window.scrollY > 1000"_s, u"true"_s));
  QCOMPARE(opened(), QList<QUrl>());
}

void TestWebFence::frameLeadsNowhere() {
  m_b->server.put(u"/frame.html"_s, "<title>frame</title>text");
  m_b->server.put(u"/new.html"_s, "<title>online</title>text<iframe src='/frame.html'></iframe>");
  LivePage page(*m_b);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"online"_s));
  QVERIFY(!m_b->server.asked.contains(u"/frame.html"_s));
  QCOMPARE(opened(), QList<QUrl>());
}

void TestWebFence::runsNoScriptOfPages() {
  const QByteArray script = "<script>document.title = 'script'; window.open('/popup')</script>";
  m_b->putPage(u"page.html"_s, "<title>local</title>text" + script);
  m_b->server.put(u"/new.html"_s, "<title>online</title>text" + script);
  m_b->server.hold(u"/new.html"_s);
  LivePage page(*m_b);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"local"_s));
  m_b->server.release();
  QVERIFY(page.hasTitle(u"online"_s));
  QCOMPARE(m_b->server.asked, QStringList{u"/new.html"_s});
}

void TestWebFence::localPageSeesItsFolderOnly() {
  QImage picture(7, 3, QImage::Format_RGB32);
  picture.fill(Qt::red);
  QVERIFY(picture.save(m_b->program.library().resDir() + u"/inside.png"_s));
  QVERIFY(picture.save(m_b->program.path(u"outside.png"_s)));
  m_b->server.put(u"/web.png"_s, "no matter", "image/png");
  m_b->putPage(u"page.html"_s,
               "<title>local</title><img src='inside.png'><img src='../../outside.png'>"
               "<img src='" +
                   m_b->server.address(u"/web.png"_s).toUtf8() + "'>");
  LivePage page(*m_b);
  QVERIFY(page.show());
  QVERIFY(page.hasTitle(u"local"_s));
  QCOMPARE(page.ask(u"[...document.images].map(i => i.naturalWidth).join()"_s), u"7,0,0"_s);
  QCOMPARE(m_b->server.asked, QStringList());
}

void TestWebFence::onlinePageSeesNoFile() {
  QImage picture(7, 3, QImage::Format_RGB32);
  picture.fill(Qt::red);
  const QString inside = m_b->program.library().resDir() + u"/inside.png"_s;
  QVERIFY(picture.save(inside));
  m_b->server.put(u"/new.html"_s, "<title>online</title>text<img src='" +
                                      QUrl::fromLocalFile(inside).toEncoded() + "'>");
  LivePage page(*m_b);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"online"_s));
  QCOMPARE(page.ask(u"document.images[0].naturalWidth"_s), u"0"_s);
}

// No cookie comes back, nothing is answered from a cache, and no file is written.
void TestWebFence::keepsNothing() {
  m_b->server.put(u"/new.html"_s, "<title>online</title>text", "text/html", "200 OK",
                  "Set-Cookie: a=b; Max-Age=9999\r\nCache-Control: max-age=9999\r\n");
  for (int i = 1; i <= 2; ++i) {
    LivePage page(*m_b);
    QVERIFY(page.show(u"/new.html"_s));
    QVERIFY(page.hasTitle(u"online"_s));
    QCOMPARE(m_b->server.asked.size(), i);
  }
  QVERIFY(!m_b->server.questions.last().contains("Cookie"));
  QStringList written;
  QDirIterator files(QDir::homePath(), QDir::Files | QDir::Hidden | QDir::System,
                     QDirIterator::Subdirectories);
  while (files.hasNext())
    written.append(files.next());
  QCOMPARE(written, QStringList());
}

// But for the first page of a process: then the engine's threads, which read it, run.
void TestWebFence::leavesTheEnvironmentAlone() {
  LivePage first(*m_b);
  QVERIFY(first.show());
  QVERIFY(first.hasTitle(u"local"_s));
  EnvironmentWatch watch;
  LivePage later(*m_b);
  QPalette dark;
  dark.setColor(QPalette::Base, Qt::black);
  later->setPalette(dark);
  QVERIFY(later.show());
  QVERIFY(later.hasTitle(u"local"_s));
  QVERIFY(watch.looks() > 0);
  QCOMPARE(watch.changes(), 0);
}

int main(int argc, char **argv) {
  const QTemporaryDir home;
  qputenv("HOME", home.path().toUtf8());
  qputenv("XDG_CACHE_HOME", home.filePath(u"home-cache"_s).toUtf8());
  qputenv("XDG_DATA_HOME", home.filePath(u"home-data"_s).toUtf8());
  qputenv("XDG_CONFIG_HOME", home.filePath(u"home-config"_s).toUtf8());
  return runWebTest<TestWebFence>(argc, argv);
}
#include "tst_webfence.moc"
