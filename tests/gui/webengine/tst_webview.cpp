#include <QFontInfo>
#include <QMenu>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include "LivePage.h"
#include "PageBrowser.h"
#include "PageTest.h"
#include "Renderers.h"
#include "ScrollRows.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// The web view with the real engine, and the online copy on a server of the test.
class TestWebView final : public PageTest {
  Q_OBJECT

 private Q_SLOTS:
  void showsLocalThenOnline();
  void followsRedirects();
  void refusesRedirectToFile();
  void keepsLocalWhenOnlineFails_data();
  void keepsLocalWhenOnlineFails();
  void keepsLocalWhenOnlineIsADownload();
  void keepsLocalWithoutConnection_data();
  void keepsLocalWithoutConnection();
  void showsHugeOnlinePage();
  void zoomsOnce_data();
  void zoomsOnce();
  void scrolls_data();
  void scrolls();
  void loadsOncePerView();
  void menuGoesWithTheView();
  void lettersAreThoseOfTheProgram();
  void onlineCopyFollowsAnEngineThatEnded();

 private:
  void furnish() override {
    m_b->putLibrary(u"OstrakWeb"_s);
    m_b->server.put(u"/new.html"_s, "<title>online</title><h1>Online page</h1>");
  }
  [[nodiscard]] PageServer &server() const { return m_b->server; }
};

void TestWebView::showsLocalThenOnline() {
  LivePage page(*m_b);
  server().hold(u"/new.html"_s);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"local"_s));
  QTRY_VERIFY_WITH_TIMEOUT(server().asked.contains(u"/new.html"_s), LivePage::patience);
  QCOMPARE(page.ask(u"document.title"_s), u"local"_s);
  server().release();
  QVERIFY(page.hasTitle(u"online"_s));
  QCOMPARE(m_b->told(), QStringList());
}

void TestWebView::followsRedirects() {
  LivePage page(*m_b);
  server().redirect(u"/old.html"_s, u"/older.html"_s);
  server().redirect(u"/older.html"_s, server().address(u"/new.html"_s));
  QVERIFY(page.show(u"/old.html"_s));
  QVERIFY(page.hasTitle(u"online"_s));
}

void TestWebView::refusesRedirectToFile() {
  LivePage page(*m_b);
  m_b->putPage(u"other.html"_s, "<title>other</title>text");
  server().redirect(u"/old.html"_s,
                    QUrl::fromLocalFile(m_b->program.library().resDir() + u"/other.html"_s)
                        .toString(QUrl::FullyEncoded));
  QVERIFY(page.show(u"/old.html"_s));
  QTRY_VERIFY_WITH_TIMEOUT(!server().asked.isEmpty(), LivePage::patience);
  QTRY_VERIFY_WITH_TIMEOUT(!page->isLoadingOnlineCopy(), LivePage::patience);
  QVERIFY(page.hasTitle(u"local"_s));
}

void TestWebView::keepsLocalWhenOnlineFails_data() {
  QTest::addColumn<QString>("path");
  QTest::newRow("not found") << u"/none.html"_s;
  QTest::newRow("a broken server") << u"/broken.html"_s;
  QTest::newRow("no answer") << u"/dropped.html"_s;
  QTest::newRow("nothing in it") << u"/empty.html"_s;
  QTest::newRow("an empty page") << u"/blank.html"_s;
  QTest::newRow("sent on for ever") << u"/round.html"_s;
}

void TestWebView::keepsLocalWhenOnlineFails() {
  QFETCH(QString, path);
  LivePage page(*m_b);
  server().put(u"/broken.html"_s, "<title>broken</title>sorry", "text/html",
               "500 Internal Server Error");
  server().drop(u"/dropped.html"_s);
  server().put(u"/empty.html"_s, {});
  server().put(u"/blank.html"_s, "<html><head><title>blank</title></head><body> </body></html>");
  server().redirect(u"/round.html"_s, u"/round.html"_s);
  QVERIFY(page.show(path));
  QTRY_VERIFY_WITH_TIMEOUT(server().asked.contains(path), LivePage::patience);
  QTRY_VERIFY_WITH_TIMEOUT(!page->isLoadingOnlineCopy(), LivePage::patience);
  QVERIFY(page.hasTitle(u"local"_s));
  QVERIFY(!page->textView());
}

// The engine calls it broken off, and nothing more comes.
void TestWebView::keepsLocalWhenOnlineIsADownload() {
  WebPatience patience;
  patience.online = std::chrono::seconds(2);
  LivePage page(*m_b, patience);
  server().put(u"/archive.zip"_s, "PK", "application/zip");
  QVERIFY(page.show(u"/archive.zip"_s));
  QTRY_VERIFY_WITH_TIMEOUT(server().asked.contains(u"/archive.zip"_s), LivePage::patience);
  QTRY_VERIFY_WITH_TIMEOUT(!page->isLoadingOnlineCopy(), LivePage::patience);
  QVERIFY(page.hasTitle(u"local"_s));
  QVERIFY(!page->textView());
}

void TestWebView::keepsLocalWithoutConnection_data() {
  QTest::addColumn<QString>("address");
  QTest::newRow("an unknown host") << u"http://nowhere.invalid/new.html"_s;
  QTest::newRow("a closed port") << u"closed"_s;
}

void TestWebView::keepsLocalWithoutConnection() {
  QFETCH(QString, address);
  const QString closed = server().address(u"/new.html"_s);
  server().close();
  LivePage page(*m_b);
  page->setRemoteHTMLURL(address == "closed"_L1 ? closed : address);
  QVERIFY(page.show());
  QVERIFY(page.hasTitle(u"local"_s));
  QTRY_VERIFY_WITH_TIMEOUT(!page->isLoadingOnlineCopy(), LivePage::patience);
  QVERIFY(page.hasTitle(u"local"_s));
  QVERIFY(!page->textView());
}

void TestWebView::showsHugeOnlinePage() {
  LivePage page(*m_b);
  QByteArray body = "<title>huge</title>";
  while (body.size() < 3 * 1024 * 1024)
    body += "<p>A line of a page that does not want to end.</p>\n";
  server().put(u"/huge.html"_s, body);
  QVERIFY(page.show(u"/huge.html"_s));
  QVERIFY(page.hasTitle(u"huge"_s));
}

void TestWebView::zoomsOnce_data() {
  QTest::addColumn<double>("factor");
  QTest::addColumn<QString>("zoom");
  QTest::addColumn<bool>("isForgotten");
  QTest::newRow("smaller") << 0.9 << u"0.9"_s << true;
  QTest::newRow("larger") << 1.25 << u"1.25"_s << true;
  QTest::newRow("too little to matter") << 1.00005 << u""_s << false;
}

void TestWebView::zoomsOnce() {
  QFETCH(double, factor);
  LivePage page(*m_b);
  page->setProperty("zoomFactor", factor);
  server().hold(u"/new.html"_s);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"local"_s));
  QTEST(page.ask(u"document.documentElement.style.zoom"_s), "zoom");
  QTEST(!page->zoomFactor().has_value(), "isForgotten");
  server().release();
  QVERIFY(page.hasTitle(u"online"_s));
  QCOMPARE(page.ask(u"document.documentElement.style.zoom"_s), u""_s);
}

void TestWebView::scrolls_data() {
  addScrollRows();
}

void TestWebView::scrolls() {
  QFETCH(QVariant, factor);
  QFETCH(bool, disabled);
  QFETCH(bool, scrolls);
  LivePage page(*m_b);
  page->setProperty("zoomFactor", factor);
  page->setDisableScrolling(disabled);
  QVERIFY(page.show());
  QVERIFY(page.hasTitle(u"local"_s));
  QCOMPARE(page.ask(u"document.documentElement.style.overflow"_s), scrolls ? u""_s : u"hidden"_s);
}

void TestWebView::loadsOncePerView() {
  LivePage page(*m_b);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"online"_s));
  const WebPage *shown = page->shownPage();
  page.window().window.hide();
  QVERIFY(page.window().show());
  page->repaint();
  // A second view on the same pages; when its copy is there, one of the first would be, too.
  LivePage second(*m_b);
  QVERIFY(second.show(u"/new.html"_s));
  QVERIFY(second.hasTitle(u"online"_s));
  QCOMPARE(page->shownPage(), shown);
  QCOMPARE(server().asked.count(u"/new.html"_s), 2);
}

// The menu does not hold up the program, which may close the window under it.
void TestWebView::menuGoesWithTheView() {
  auto page = std::make_unique<LivePage>(*m_b);
  QVERIFY(page->show());
  QVERIFY(page->hasTitle(u"local"_s));
  QPointer<QMenu> menu;
  int loops = -1;  // that the menu runs in
  QTimer look;
  connect(&look, &QTimer::timeout, this, [&] {
    menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu) return;
    look.stop();
    loops = QThread::currentThread()->loopLevel();
    if (loops > 0) menu->close();
  });
  look.start(20);
  // Again when the page, which may not have been drawn yet, has not heard it.
  for (int i = 0; i < 10 && loops < 0; ++i) {
    QWidget *surface = (*page)->shownPage()->widget().focusProxy();
    if (surface) QTest::mouseClick(surface, Qt::RightButton, {}, QPoint(40, 40));
    (void)QTest::qWaitFor([&] { return loops >= 0; }, 3000);
  }
  QCOMPARE(loops, 0);
  QCOMPARE(menu->actions().size(), 2);
  page.reset();
  QVERIFY(!menu);
}

void TestWebView::lettersAreThoseOfTheProgram() {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPixelSize(QFontInfo(before).pixelSize() + 9);
  QApplication::setFont(large);
  const QByteArray sheet =
      wholefile::read(buildtree::source(u"app/resources/documents/page.css"_s));
  QVERIFY(!sheet.isEmpty());
  m_b->putPage(u"page.css"_s, sheet);
  m_b->putPage(u"page.html"_s,
               "<title>local</title><link rel='stylesheet' href='page.css'><p>text<pre>text");
  LivePage page(*m_b);
  const bool isShown = page.show() && page.hasTitle(u"local"_s);
  QApplication::setFont(before);
  QVERIFY(isShown);
  const QString size = QString::number(large.pixelSize()) + u"px"_s;
  QCOMPARE(page.ask(u"getComputedStyle(document.querySelector(\"p\")).fontSize"_s), size);
}

void TestWebView::onlineCopyFollowsAnEngineThatEnded() {
  m_b->putLibrary(u"OstrakFetch"_s);
  LivePage page(*m_b);
  server().hold(u"/new.html"_s);
  QVERIFY(page.show(u"/new.html"_s));
  QVERIFY(page.hasTitle(u"local"_s));
  QTRY_VERIFY_WITH_TIMEOUT(!server().asked.isEmpty(), LivePage::patience);
  QVERIFY(endRenderers());
  QTRY_VERIFY_WITH_TIMEOUT(page->textView(), LivePage::patience);
  QCOMPARE(page->textView()->toPlainText(), u"Local page"_s);
  server().release();
  QTRY_COMPARE_WITH_TIMEOUT(page->textView()->toPlainText(), u"Online page"_s, LivePage::patience);
}

int main(int argc, char **argv) {
  return runWebTest<TestWebView>(argc, argv);
}
#include "tst_webview.moc"
