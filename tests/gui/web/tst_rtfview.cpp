#include <QTextBlock>
#include <QTextList>

#include "PageTest.h"
#include "VKRTFView.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

constexpr int patience = 10'000;  // milliseconds
const QString notSet = u"Error: localHTMLName not set on VKRTFView"_s;

using View = ShownView<VKRTFView>;

}  // namespace

// The view of rich text: the document of the bundle, and its copy on a server of the test.
class TestRTFView final : public PageTest {
  Q_OBJECT

 private Q_SLOTS:
  void showsTheDocument() {
    View view;
    view->setLocalRTFName(u"text.rtf"_s);
    QCOMPARE(view->toPlainText(), u""_s);
    QVERIFY(view.show());
    QTRY_COMPARE(view->toPlainText(), u"Local bold\nlink\none"_s);
    const QTextDocument &document = *view->document();
    QTextCursor cursor(document.findBlockByNumber(0));
    cursor.setPosition(8);
    QCOMPARE(cursor.charFormat().fontWeight(), int(QFont::Bold));
    cursor.setPosition(2);
    QCOMPARE(cursor.charFormat().fontWeight(), int(QFont::Normal));
    cursor.setPosition(document.findBlockByNumber(1).position() + 1);
    QCOMPARE(cursor.charFormat().anchorHref(), u"https://decant.example/"_s);
    const QTextList *list = document.findBlockByNumber(2).textList();
    QVERIFY(list);
    QCOMPARE(list->format().style(), QTextListFormat::ListDecimal);
    QCOMPARE(m_b->told(), QStringList());
  }

  // Not in the middle of it.
  void loadsAfterThePaint() {
    View view;
    view->setLocalRTFName(u"text.rtf"_s);
    (void)view->grab();
    QCOMPARE(view->toPlainText(), u""_s);
    QTRY_VERIFY(!view->toPlainText().isEmpty());
  }

  void onlineCopyReplacesIt() {
    View view;
    view->setLocalRTFName(u"text.rtf"_s);
    view->setRemoteHTMLURL(m_b->server.address(u"/old.html"_s));
    m_b->server.redirect(u"/old.html"_s, u"/new.html"_s);
    m_b->server.hold(u"/new.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY_WITH_TIMEOUT(m_b->server.asked.contains(u"/new.html"_s), patience);
    QVERIFY(view->toPlainText().startsWith(u"Local bold"_s));
    m_b->server.release();
    QTRY_COMPARE_WITH_TIMEOUT(view->toPlainText(), u"Online copy"_s, patience);
  }

  void failedCopyLeavesIt_data() {
    QTest::addColumn<QString>("path");
    QTest::newRow("not found") << u"/none.html"_s;
    QTest::newRow("no answer") << u"/dropped.html"_s;
    QTest::newRow("nothing in it") << u"/empty.html"_s;
    QTest::newRow("an empty page") << u"/blank.html"_s;
    QTest::newRow("too large") << u"/huge.html"_s;
  }
  void failedCopyLeavesIt() {
    QFETCH(QString, path);
    m_b->server.drop(u"/dropped.html"_s);
    m_b->server.put(u"/empty.html"_s, {});
    m_b->server.put(u"/blank.html"_s, "<title>title</title><body> <p> </p></body>");
    m_b->server.put(u"/huge.html"_s, QByteArray(5 * 1024 * 1024, 'x'));
    View view;
    view->setLocalRTFName(u"text.rtf"_s);
    view->setRemoteHTMLURL(m_b->server.address(path));
    QVERIFY(view.show());
    QTRY_VERIFY_WITH_TIMEOUT(m_b->server.asked.contains(path), patience);
    QTRY_VERIFY_WITH_TIMEOUT(view->isIdle(), patience);
    QVERIFY(view->toPlainText().startsWith(u"Local bold"_s));
  }

  void closedPortLeavesIt() {
    View view;
    view->setLocalRTFName(u"text.rtf"_s);
    view->setRemoteHTMLURL(m_b->server.address(u"/new.html"_s));
    m_b->server.close();
    QVERIFY(view.show());
    QTRY_VERIFY(!view->toPlainText().isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(view->isIdle(), patience);
    QVERIFY(view->toPlainText().startsWith(u"Local bold"_s));
  }

  // A copy from this machine would not be an online one.
  void takesNoFileForACopy() {
    m_b->putPage(u"other.html"_s, "other");
    View view;
    view->setLocalRTFName(u"text.rtf"_s);
    view->setRemoteHTMLURL(
        QUrl::fromLocalFile(m_b->program.library().resDir() + u"/other.html"_s).toString());
    QVERIFY(view.show());
    QTRY_VERIFY(!view->toPlainText().isEmpty());
    QTRY_VERIFY_WITH_TIMEOUT(view->isIdle(), patience);
    QVERIFY(view->toPlainText().startsWith(u"Local bold"_s));
  }

  void withoutNameStaysEmptyUntilTheCopyArrives() {
    View view;
    view->setRemoteHTMLURL(m_b->server.address(u"/new.html"_s));
    m_b->server.hold(u"/new.html"_s);
    QVERIFY(view.show());
    QTRY_VERIFY_WITH_TIMEOUT(!m_b->server.asked.isEmpty(), patience);
    view->viewport()->repaint();
    QCOMPARE(view->toPlainText(), u""_s);
    QCOMPARE(m_b->told(), QStringList{notSet});
    QCOMPARE(m_b->program.loggedWithLevel().last().level, 3);
    m_b->server.release();
    QTRY_COMPARE_WITH_TIMEOUT(view->toPlainText(), u"Online copy"_s, patience);
    QCOMPARE(m_b->told(), QStringList{notSet});
  }

  void tellsWhatCannotBeRead() {
    View view;
    view->setLocalRTFName(u"none.rtf"_s);
    QVERIFY(view.show());
    QTRY_COMPARE(m_b->told(), QStringList{u"Error: the document none.rtf cannot be read"_s});
  }

  void loadsOncePerView() {
    View first;
    first->setLocalRTFName(u"text.rtf"_s);
    QVERIFY(first.show());
    QTRY_VERIFY(!first->toPlainText().isEmpty());
    m_b->putPage(u"text.rtf"_s, "{\\rtf1 Changed}");
    first->viewport()->repaint();
    QVERIFY(first->toPlainText().startsWith(u"Local bold"_s));
    View second;
    second->setLocalRTFName(u"text.rtf"_s);
    QVERIFY(second.show());
    QTRY_COMPARE(second->toPlainText(), u"Changed"_s);
  }

  void viewMayGoBeforeTheCopyArrives() {
    {
      View view;
      view->setRemoteHTMLURL(m_b->server.address(u"/new.html"_s));
      m_b->server.hold(u"/new.html"_s);
      QVERIFY(view.show());
      QTRY_VERIFY_WITH_TIMEOUT(!m_b->server.asked.isEmpty(), patience);
    }
    m_b->server.release();
    View next;
    next->setRemoteHTMLURL(m_b->server.address(u"/new.html"_s));
    QVERIFY(next.show());
    QTRY_COMPARE_WITH_TIMEOUT(next->toPlainText(), u"Online copy"_s, patience);
  }

 private:
  void furnish() override {
    m_b->putLibrary(u"OstrakFetch"_s);
    m_b->putPage(
        u"text.rtf"_s,
        "{\\rtf1\\ansi Local \\b bold\\b0\\par"
        "{\\field{\\*\\fldinst HYPERLINK \"https://decant.example/\"}{\\fldrslt link}}\\par"
        "\\pard{\\listtext 1.}\\ls1 one\\par}");
    m_b->server.put(u"/new.html"_s, "<p>Online <i>copy</i></p>");
  }
};

int main(int argc, char **argv) {
  return runWebTest<TestRTFView>(argc, argv);
}
#include "tst_rtfview.moc"
