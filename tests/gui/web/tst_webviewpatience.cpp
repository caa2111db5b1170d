#include <QTimer>

#include "EngineTest.h"
#include "PageBrowser.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

constexpr std::chrono::milliseconds none{1};
constexpr std::chrono::hours endless{1};

// Until a timer has fired that was started after those of the view and takes longer than this
// patience of theirs: had one of them not been stopped, it has fired, too.
bool waitBeyond(std::chrono::milliseconds patience) {
  QTimer later;
  later.setSingleShot(true);
  later.start(patience + 20 * none);
  return QTest::qWaitFor([&] { return !later.isActive(); });
}

}  // namespace

// How long the web view waits for its two pages, and what it does then.
class TestWebViewPatience final : public EngineTest {
  Q_OBJECT

 private Q_SLOTS:
  void isShortForLocalAndLongForOnline() {
    QCOMPARE(WebPatience().local, std::chrono::milliseconds(1500));
    QCOMPARE(WebPatience().online, std::chrono::milliseconds(60'000));
  }

  void localThatDoesNotComeIsReadAsText() {
    View view({none, endless});
    QVERIFY(m_b->show(view));
    QTRY_VERIFY(view->textView());
    QVERIFY(view->textView()->isVisible());
    QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
    // The engine may still answer.
    QVERIFY(view->isLoadingOnlineCopy());
    QVERIFY(m_b->engine.page(local()));
    QCOMPARE(m_b->pages.told(), QStringList());
  }

  void lateAnswerReplacesTheText_data() {
    QTest::addColumn<bool>("isOnline");
    QTest::newRow("local") << false;
    QTest::newRow("online") << true;
  }
  void lateAnswerReplacesTheText() {
    QFETCH(bool, isOnline);
    const QUrl address = isOnline ? online() : local();
    View view({none, endless});
    QVERIFY(m_b->show(view));
    QTRY_VERIFY(view->textView());
    QVERIFY(m_b->arrives(address));
    QVERIFY(m_b->shows(view, address));
    QVERIFY(view->shownPage()->widget().isVisible());
  }

  void answerInTimeEndsIt_data() { lateAnswerReplacesTheText_data(); }
  void answerInTimeEndsIt() {
    QFETCH(bool, isOnline);
    const QUrl address = isOnline ? online() : local();
    m_b->engine.whenAsked([address](SteeredPage &page) {
      if (page.address() == address) page.arrive();
    });
    constexpr std::chrono::milliseconds some{200};
    View view({some, endless});
    QVERIFY(m_b->show(view));
    QVERIFY(waitBeyond(some));
    QVERIFY(m_b->shows(view, address));
  }

  void onlineThatDoesNotComeIsGivenUp() {
    View view({endless, none});
    QVERIFY(m_b->show(view));
    QVERIFY(m_b->arrives(local()));
    QTRY_VERIFY(!view->isLoadingOnlineCopy());
    QVERIFY(!m_b->engine.page(online()));
    QVERIFY(m_b->shows(view, local()));
    QCOMPARE(asked(), (QList{local(), online()}));
    QCOMPARE(m_b->pages.told(), QStringList());
  }

  void givingUpOnlineDoesNotTouchLocal() {
    View view({endless, none});
    QVERIFY(m_b->show(view));
    QTRY_VERIFY(!view->isLoadingOnlineCopy());
    QVERIFY(!view->textView());
    QVERIFY(m_b->arrives(local()));
    QVERIFY(m_b->shows(view, local()));
  }

  void abortedLocalIsReadAsText() {
    View view({none, endless});
    m_b->engine.whenAsked([](SteeredPage &page) {
      if (page.address() == local()) page.fail(-3, page.address());
    });
    QVERIFY(m_b->show(view));
    QTRY_VERIFY(view->textView());
    QVERIFY(view->isLoadingOnlineCopy());
  }

  // The page of an engine that ends after the text was opened stays the text.
  void textStaysWhenTheEngineEnds() {
    View view({none, endless});
    QVERIFY(m_b->show(view));
    QTRY_VERIFY(view->textView());
    const PageBrowser *text = view->textView();
    QVERIFY(m_b->dies(local()));
    QCOMPARE(view->textView(), text);
    QCOMPARE(text->toPlainText(), u"Local page"_s);
    QCOMPARE(m_b->engine.pages(), 0);
  }

  // The page that is back already is not put away again for the patience with the first one.
  void whatIsShownNeedsNone() {
    m_b->engine.whenAsked([&](SteeredPage &page) {
      if (page.address() == online()) page.arrive();
    });
    View view({none, endless});
    QVERIFY(m_b->show(view));
    QTRY_VERIFY(m_b->shows(view, online()));
    PageStep click;
    click.address = local();
    click.isClick = true;
    QCOMPARE(m_b->engine.page(online())->take(click), StepTarget::Nowhere);
    QTRY_COMPARE(asked().size(), 3);
    QVERIFY(waitBeyond(none));
    QVERIFY(m_b->shows(view, online()));
  }
};

int main(int argc, char **argv) {
  return runWebTest<TestWebViewPatience>(argc, argv);
}
#include "tst_webviewpatience.moc"
