#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include "PageBrowser.h"
#include "PageTest.h"
#include "VKRTFView.h"
#include "VKWebView.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

constexpr int patience = 10'000;  // milliseconds
constexpr int farBelow = 10000;   // pixels

QPalette paletteWithLinks(const QColor &color) {
  QPalette palette;
  palette.setColor(QPalette::Link, color);
  palette.setColor(QPalette::AlternateBase, color);
  return palette;
}

// Of the first link.
QColor linkColor(const QTextDocument &document) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (const QTextLayout::FormatRange &range : block.textFormats()) {
      if (range.format.isAnchor()) return range.format.foreground().color();
    }
  }
  return {};
}

QColor headerColor(const QTextDocument &document) {
  const QTextCursor header = document.find(u"header"_s);
  return header.currentTable() ? header.currentTable()->cellAt(header).format().background().color()
                               : QColor();
}

}  // namespace

// A page that is shown while the desktop goes from light to dark goes with it.
class TestPageColours final : public PageTest {
  Q_OBJECT

 private Q_SLOTS:
  void page() {
    ShownView<VKWebView> view;
    view->setLocalHTMLName(u"page.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY(view->textView());
    PageBrowser &page = *view->textView();
    QVERIFY(isLaidOut(page));
    page.verticalScrollBar()->setValue(farBelow);
    for (const QColor &color : {QColor(1, 2, 3), QColor(200, 100, 50)}) {
      view.window.setPalette(paletteWithLinks(color));
      QCOMPARE(linkColor(*page.document()), color);
      QCOMPARE(headerColor(*page.document()), color);
      QVERIFY(isLaidOut(page));
      QCOMPARE(page.verticalScrollBar()->value(), farBelow);
    }
  }

  void richText() {
    ShownView<VKRTFView> view;
    view->setLocalRTFName(u"text.rtf"_s);
    QVERIFY(view.show());
    QTRY_VERIFY(!view->toPlainText().isEmpty());
    QVERIFY(isLaidOut(*view.view));
    view->verticalScrollBar()->setValue(farBelow);
    for (const QColor &color : {QColor(1, 2, 3), QColor(200, 100, 50)}) {
      view.window.setPalette(paletteWithLinks(color));
      QCOMPARE(linkColor(*view->document()), color);
      QVERIFY(isLaidOut(*view.view));
      QCOMPARE(view->verticalScrollBar()->value(), farBelow);
    }
  }

  void onlineCopyStays() {
    ShownView<VKRTFView> view;
    view->setLocalRTFName(u"text.rtf"_s);
    view->setRemoteHTMLURL(m_b->server.address(u"/new.html"_s));
    QVERIFY(view.show());
    QTRY_COMPARE_WITH_TIMEOUT(view->toPlainText(), u"Online link"_s, patience);
    view.window.setPalette(paletteWithLinks(QColor(1, 2, 3)));
    QCOMPARE(view->toPlainText(), u"Online link"_s);
    QCOMPARE(linkColor(*view->document()), QColor(1, 2, 3));
  }

 private:
  void furnish() override {
    m_b->putLibrary(u"OstrakFetch"_s);
    m_b->putPage(u"page.html"_s,
                 "<p>Local <a href='https://decant.example/'>link</a></p>"
                 "<table><tr><th>header</th></tr></table>" +
                     QByteArray("<p>line</p>").repeated(1000));
    m_b->putPage(u"text.rtf"_s,
                 "{\\rtf1\\ansi Local {\\field{\\*\\fldinst HYPERLINK "
                 "\"https://decant.example/\"}{\\fldrslt link}}\\par" +
                     QByteArray("line\\par ").repeated(1000) + "}");
    m_b->server.put(u"/new.html"_s, "<p>Online <a href='https://decant.example/'>link</a></p>");
  }
  // The end of a long page is laid out later than its beginning.
  [[nodiscard]] static bool isLaidOut(const QTextEdit &page) {
    return QTest::qWaitFor([&] { return page.verticalScrollBar()->maximum() > farBelow; },
                           patience);
  }
};

int main(int argc, char **argv) {
  return runWebTest<TestPageColours>(argc, argv);
}
#include "tst_pagecolours.moc"
