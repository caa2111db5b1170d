#include "EngineTest.h"
#include "PageBrowser.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

namespace {

constexpr int aborted = -3;
constexpr int refused = -102;
constexpr int unknownHost = -105;
constexpr int offline = -106;

}  // namespace

// Which of its two pages the web view asks its engine for, when, and which one it shows.
class TestWebViewOnline final : public EngineTest {
  Q_OBJECT

 private Q_SLOTS:
  void engineThatEndsIsToldOnce();
  void localThatFailsIsTold();
  void asksForLocalThenOnline();
  void onlineTakesThePlaceOfLocal();
  void onlineThatIsFasterStays();
  void asksForOneAlone_data();
  void asksForOneAlone();
  void emptyOnlineIsNotShown();
  void offlineBringsLocalBack_data();
  void offlineBringsLocalBack();
  void otherFailureKeepsWhatIsShown_data();
  void otherFailureKeepsWhatIsShown();
  void offlineKeepsLocalThatIsThere();
  void abortedIsNoFailure();
  void pageThatCannotComeKeepsWhatIsShown_data();
  void pageThatCannotComeKeepsWhatIsShown();
  void endOfShownOnlineBringsLocalText();
  void redirectsAreForTheOnlineCopyOnItsWay();

 private:
  // The view with the online page in it.
  [[nodiscard]] bool showOnline(View &view) const {
    return m_b->show(view) && m_b->arrives(local()) && m_b->arrives(online()) &&
           m_b->shows(view, online());
  }
  // What a click on a link in the page of one address to the other does.
  [[nodiscard]] bool click(const QUrl &from, const QUrl &to, qsizetype askedThen) const {
    PageStep step;
    step.address = to;
    step.isClick = true;
    SteeredPage *page = m_b->engine.page(from);
    return page && page->take(step) == StepTarget::Nowhere &&
           QTest::qWaitFor([&] { return asked().size() == askedThen; });
  }
  [[nodiscard]] QStringList warnings() const {
    return m_b->pages.told().filter(u"Warning: pages are shown in a text view"_s);
  }
};

// First, as the next one, because each reason is told once in a process.
void TestWebViewOnline::engineThatEndsIsToldOnce() {
  View first;
  View second;
  int askedThen = 0;
  for (View *view : {&first, &second}) {
    (*view)->setRemoteHTMLURL({});
    QVERIFY(m_b->show(*view, ++askedThen));
    QVERIFY(m_b->arrives(local()));
    QVERIFY(m_b->shows(*view, local()));
    QVERIFY(m_b->dies(local()));
    QVERIFY((*view)->textView());
    QCOMPARE((*view)->textView()->toPlainText(), u"Local page"_s);
    QVERIFY(!(*view)->shownPage());
    QCOMPARE(m_b->engine.pages(), 0);
  }
  QCOMPARE(warnings(), QStringList{u"Warning: pages are shown in a text view because the web "
                                   "engine has ended"_s});
}

void TestWebViewOnline::localThatFailsIsTold() {
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->fails(local(), refused));
  QVERIFY(view->textView());
  QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
  QCOMPARE(m_b->engine.pages(), 0);
  QCOMPARE(warnings(), QStringList{u"Warning: pages are shown in a text view because the web "
                                   "engine does not open them"_s});
}

void TestWebViewOnline::asksForLocalThenOnline() {
  View view;
  QCOMPARE(asked(), QList<QUrl>());
  QVERIFY(m_b->show(view));
  QCOMPARE(asked(), (QList{local(), online()}));
  QVERIFY(!view->shownPage() && !view->textView());
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->shows(view, local()));
  QVERIFY(view->shownPage()->widget().isVisible());
  QVERIFY(view->isLoadingOnlineCopy());
}

void TestWebViewOnline::onlineTakesThePlaceOfLocal() {
  View view;
  QVERIFY(showOnline(view));
  QVERIFY(view->shownPage()->widget().isVisible());
  QVERIFY(!view->isLoadingOnlineCopy());
  QVERIFY(!m_b->engine.page(local()));
  QCOMPARE(asked(), (QList{local(), online()}));
  QCOMPARE(m_b->pages.told(), QStringList());
}

void TestWebViewOnline::onlineThatIsFasterStays() {
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->arrives(online()));
  QVERIFY(m_b->shows(view, online()));
  QVERIFY(!m_b->engine.page(local()));
}

void TestWebViewOnline::asksForOneAlone_data() {
  QTest::addColumn<QString>("localName");
  QTest::addColumn<QString>("onlineAddress");
  QTest::newRow("local") << u"page.html"_s << u""_s;
  QTest::newRow("online") << u""_s << online().toString();
}

void TestWebViewOnline::asksForOneAlone() {
  QFETCH(QString, localName);
  QFETCH(QString, onlineAddress);
  const QUrl only = localName.isEmpty() ? online() : local();
  View view;
  view->setLocalHTMLName(localName);
  view->setRemoteHTMLURL(onlineAddress);
  QVERIFY(m_b->show(view, 1));
  QVERIFY(m_b->arrives(only));
  QVERIFY(m_b->shows(view, only));
  QCOMPARE(asked(), QList{only});
}

void TestWebViewOnline::emptyOnlineIsNotShown() {
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->engine.page(online()));
  m_b->engine.page(online())->arriveEmpty();
  QVERIFY(m_b->shows(view, local()));
  QVERIFY(!m_b->engine.page(online()));
}

void TestWebViewOnline::offlineBringsLocalBack_data() {
  QTest::addColumn<int>("error");
  QTest::addColumn<QUrl>("address");
  QTest::newRow("offline") << offline << online();
  QTest::newRow("an unknown host") << unknownHost << online();
  QTest::newRow("a place in the page") << offline << QUrl(online().toString() + u"#below"_s);
}

void TestWebViewOnline::offlineBringsLocalBack() {
  QFETCH(int, error);
  QFETCH(QUrl, address);
  View view;
  QVERIFY(showOnline(view));
  QVERIFY(click(online(), online(), 3));
  m_b->engine.page(online())->fail(error, address);
  QCOMPARE(asked(), (QList{local(), online(), online(), local()}));
  QVERIFY(m_b->shows(view, online()));
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->shows(view, local()));
  QVERIFY(!m_b->engine.page(online()));
  QCOMPARE(m_b->pages.told(), QStringList());
}

void TestWebViewOnline::otherFailureKeepsWhatIsShown_data() {
  QTest::addColumn<int>("error");
  QTest::addColumn<QUrl>("address");
  QTest::newRow("refused") << refused << online();
  QTest::newRow("no answer") << -324 << online();
  QTest::newRow("not found") << 404 << online();
  QTest::newRow("an unknown host that it was sent on to")
      << unknownHost << QUrl(u"https://elsewhere.example/"_s);
}

void TestWebViewOnline::otherFailureKeepsWhatIsShown() {
  QFETCH(int, error);
  QFETCH(QUrl, address);
  View view;
  QVERIFY(showOnline(view));
  const WebPage *shown = view->shownPage();
  QVERIFY(click(online(), online(), 3));
  m_b->engine.page(online())->fail(error, address);
  QVERIFY(!view->isLoadingOnlineCopy());
  QCOMPARE(asked(), (QList{local(), online(), online()}));
  QCOMPARE(view->shownPage(), shown);
  QVERIFY(!view->textView());
  QCOMPARE(m_b->pages.told(), QStringList());
}

void TestWebViewOnline::offlineKeepsLocalThatIsThere() {
  for (const bool hasArrived : {false, true}) {
    m_b->engine.startOver();
    View view;
    QVERIFY(m_b->show(view));
    if (hasArrived) QVERIFY(m_b->arrives(local()));
    QVERIFY(m_b->fails(online(), offline));
    if (!hasArrived) QVERIFY(m_b->arrives(local()));
    QVERIFY(m_b->shows(view, local()));
    QVERIFY(!view->isLoadingOnlineCopy());
    QCOMPARE(asked(), (QList{local(), online()}));
  }
}

// What was broken off may have gone on elsewhere.
void TestWebViewOnline::abortedIsNoFailure() {
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->fails(local(), aborted));
  QVERIFY(!view->textView());
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->shows(view, local()));
  QVERIFY(m_b->fails(local(), aborted));
  QVERIFY(m_b->shows(view, local()));
  QVERIFY(m_b->fails(online(), aborted));
  QVERIFY(m_b->arrives(online()));
  QVERIFY(m_b->shows(view, online()));
  QCOMPARE(asked(), (QList{local(), online()}));
  QCOMPARE(m_b->pages.told(), QStringList());
}

void TestWebViewOnline::pageThatCannotComeKeepsWhatIsShown_data() {
  QTest::addColumn<bool>("isLocal");
  QTest::addColumn<bool>("dies");
  QTest::newRow("local fails") << true << false;
  QTest::newRow("the end of local") << true << true;
  QTest::newRow("the end of online") << false << true;
}

void TestWebViewOnline::pageThatCannotComeKeepsWhatIsShown() {
  QFETCH(bool, isLocal);
  QFETCH(bool, dies);
  const QUrl next = isLocal ? local() : online();
  View view;
  QVERIFY(showOnline(view));
  const WebPage *shown = view->shownPage();
  QVERIFY(click(online(), next, 3));
  QVERIFY(dies ? m_b->dies(next) : m_b->fails(next, refused));
  QCOMPARE(view->shownPage(), shown);
  QVERIFY(!view->textView());
  QCOMPARE(m_b->engine.pages(), 1);
  QCOMPARE(asked(), (QList{local(), online(), next}));
}

void TestWebViewOnline::endOfShownOnlineBringsLocalText() {
  View view;
  QVERIFY(showOnline(view));
  QVERIFY(m_b->dies(online()));
  QVERIFY(view->textView() && view->textView()->isVisible());
  QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
  QCOMPARE(m_b->engine.pages(), 0);
}

void TestWebViewOnline::redirectsAreForTheOnlineCopyOnItsWay() {
  View view;
  QVERIFY(m_b->show(view));
  PageStep sentOn;
  sentOn.address = QUrl(u"https://elsewhere.example/new.html"_s);
  sentOn.isArrivingRedirect = true;
  QCOMPARE(m_b->engine.page(local())->take(sentOn), StepTarget::Nowhere);
  QCOMPARE(m_b->engine.page(online())->take(sentOn), StepTarget::View);
  QVERIFY(m_b->arrives(online()));
  QCOMPARE(m_b->engine.page(online())->take(sentOn), StepTarget::Nowhere);
  QCOMPARE(m_b->pages.program.opener().opened, QList<QUrl>());
}

int main(int argc, char **argv) {
  return runWebTest<TestWebViewOnline>(argc, argv);
}
#include "tst_webviewonline.moc"
