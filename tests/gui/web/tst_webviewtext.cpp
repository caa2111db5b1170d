#include <QScrollBar>

#include "PageBrowser.h"
#include "PageTest.h"
#include "ScrollRows.h"
#include "VKWebView.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

constexpr int patience = 10'000;  // milliseconds

using View = ShownView<VKWebView>;

}  // namespace

// The web view where the engine cannot be had: the same page in a text view.
class TestWebViewText final : public PageTest {
  Q_OBJECT

 private Q_SLOTS:
  // First, because each reason is told once in a process.
  void missingEngineIsToldOnce() {
    View first;
    View second;
    for (View *view : {&first, &second}) {
      (*view)->setLocalHTMLName(u"page.html"_s);
      QVERIFY(view->show());
      QTRY_VERIFY((*view)->textView());
      QCOMPARE((*view)->textView()->toPlainText(), u"Local page"_s);
      QVERIFY((*view)->textView()->isVisible());
      QVERIFY(!(*view)->shownPage());
    }
    QCOMPARE(m_b->told().size(), 1);
    QVERIFY2(
        m_b->told().constFirst().startsWith(
            u"Warning: pages are shown in a text view because the web engine cannot be loaded: "_s),
        qPrintable(m_b->told().constFirst()));
  }

  void brokenEngineIsTold() {
    m_b->putPage(u"no-library"_s, "no library");
    m_b->putLibrary(u"OstrakWeb"_s, m_b->program.library().resDir() + u"/no-library"_s);
    View view;
    view->setLocalHTMLName(u"page.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY(view->textView());
    QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
    QCOMPARE(m_b->told().size(), 1);
  }

  void onlineCopyReplacesIt() {
    View view;
    view->setLocalHTMLName(u"page.html"_s);
    view->setRemoteHTMLURL(m_b->server.address(u"/new.html"_s));
    m_b->server.hold(u"/new.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY_WITH_TIMEOUT(!m_b->server.asked.isEmpty(), patience);
    QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
    m_b->server.release();
    QTRY_COMPARE_WITH_TIMEOUT(view->textView()->toPlainText(), u"Online page"_s, patience);
  }

  void linksGoWhereTheyShould_data() {
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("opens");
    QTest::newRow("web") << u"https://decant.example/a"_s << true;
    QTest::newRow("mail") << u"mailto:support@decant.example"_s << true;
    QTest::newRow("a file") << u"file:///etc/passwd"_s << false;
    QTest::newRow("a page beside it") << u"other.html"_s << false;
    QTest::newRow("a place in the page") << u"#below"_s << false;
  }
  void linksGoWhereTheyShould() {
    QFETCH(QString, link);
    QFETCH(bool, opens);
    m_b->putPage(u"page.html"_s, "<p><a href='" + link.toUtf8() + "'>Local page</a></p>");
    View view;
    view->setLocalHTMLName(u"page.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY(view->textView());
    QTextCursor cursor(view->textView()->document());
    cursor.setPosition(3);
    QTest::mouseClick(view->textView()->viewport(), Qt::LeftButton, {},
                      view->textView()->cursorRect(cursor).center());
    QCOMPARE(m_b->program.opener().opened, opens ? QList<QUrl>{QUrl(link)} : QList<QUrl>());
    QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
  }

  void scrolls_data() { addScrollRows(); }
  void scrolls() {
    QFETCH(QVariant, factor);
    QFETCH(bool, disabled);
    QByteArray page = "<h1>Local page</h1>";
    for (int i = 0; i < 100; ++i)
      page += "<p>line</p>";
    m_b->putPage(u"page.html"_s, page);
    View view;
    view->setLocalHTMLName(u"page.html"_s);
    view->setProperty("zoomFactor", factor);
    view->setDisableScrolling(disabled);
    QVERIFY(view.show());
    QTRY_VERIFY(view->textView());
    QScrollBar *bar = view->textView()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 0);
    QTest::keyClick(view->textView(), Qt::Key_PageDown);
    QTEST(bar->value() > 0, "scrolls");
    QTEST(view->zoomFactor().has_value(), "keepsFactor");
  }

  void zoomsLetters_data() {
    QTest::addColumn<QFont>("font");
    QFont points;
    points.setPointSizeF(20);
    QTest::newRow("of a size in points") << points;
    QFont pixels;
    pixels.setPixelSize(20);
    QTest::newRow("of a size in pixels") << pixels;
  }
  void zoomsLetters() {
    QFETCH(QFont, font);
    View view;
    view->setFont(font);
    view->setLocalHTMLName(u"page.html"_s);
    view->setZoomFactor(0.8);
    QVERIFY(view.show());
    QTRY_VERIFY(view->textView());
    const QFont shown = view->textView()->font();
    QCOMPARE(shown.pointSizeF(), font.pointSizeF() > 0 ? 16.0 : -1.0);
    QCOMPARE(shown.pixelSize(), font.pixelSize() > 0 ? 16 : -1);
  }

  void tellsWhatCannotBeRead() {
    View view;
    view->setLocalHTMLName(u"none.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY(m_b->told().contains(u"Error: the document none.html cannot be read"_s));
  }

  void properties() {
    VKWebView view;
    QCOMPARE(view.property("zoomFactor"), QVariant());
    QVERIFY(view.setProperty("zoomFactor", 0.5));
    QCOMPARE(view.zoomFactor(), std::optional(0.5));
    QVERIFY(view.setProperty("zoomFactor", QVariant()));
    QCOMPARE(view.zoomFactor(), std::nullopt);
    QVERIFY(view.setProperty("localHTMLName", u"a"_s) &&
            view.setProperty("remoteHTMLURL", u"b"_s) &&
            view.setProperty("disableScrolling", true));
    QCOMPARE(view.localHTMLName(), u"a"_s);
    QCOMPARE(view.remoteHTMLURL(), u"b"_s);
    QVERIFY(view.disableScrolling());
    QVERIFY(view.frameShape() != QFrame::NoFrame);
  }

 private:
  void furnish() override {
    m_b->putLibrary(u"OstrakFetch"_s);
    m_b->server.put(u"/new.html"_s, "<h1>Online page</h1>");
  }
};

int main(int argc, char **argv) {
  return runWebTest<TestWebViewText>(argc, argv);
}
#include "tst_webviewtext.moc"
