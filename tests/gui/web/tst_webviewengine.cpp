#include <QPalette>

#include "EngineTest.h"
#include "PageBrowser.h"
#include "ScrollRows.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

// What the web view tells its engine about each page, and what it makes of an engine that is none.
class TestWebViewEngine final : public EngineTest {
  Q_OBJECT

 private Q_SLOTS:
  void engineThatCannotRunIsNotAsked();
  void libraryOfAnotherKindIsTold();
  void localSeesItsFolderAndOnlineNone();
  void darkPaletteReachesTheEngine_data();
  void darkPaletteReachesTheEngine();
  void scrollsAsItWasTold_data();
  void scrollsAsItWasTold();
  void zoomsTheFirstPageThatIsThere_data();
  void zoomsTheFirstPageThatIsThere();
  void hardlyAZoomRunsNothing();
  void zoomOutlivesTheText();
  void zoomDoesNotOutliveTheEngine();
  void loadsOncePerView();
  void linksLeaveTheView_data();
  void linksLeaveTheView();
  void pageOnItsWayIsFollowedNowhere();
  void linkToTheOtherPageBringsIt();
  void linkToAPlaceInTheOtherPageLeadsThere();

 private:
  [[nodiscard]] QStringList scriptsOf(const QUrl &address) const {
    const SteeredPage *page = m_b->engine.page(address);
    return page ? page->scripts() : QStringList{u"no page"_s};
  }
};

void TestWebViewEngine::engineThatCannotRunIsNotAsked() {
  m_b->engine.refuse(u"misses its papers"_s);
  View first;
  View second;
  for (View *view : {&first, &second}) {
    (*view)->setRemoteHTMLURL({});
    QVERIFY(view->show());
    QTRY_VERIFY((*view)->textView());
    QCOMPARE((*view)->textView()->toPlainText(), u"Local page"_s);
  }
  QCOMPARE(asked(), QList<QUrl>());
  QCOMPARE(m_b->pages.told(),
           QStringList{u"Warning: pages are shown in a text view because the web engine misses "
                       "its papers"_s});
}

void TestWebViewEngine::libraryOfAnotherKindIsTold() {
  m_b->pages.putLibrary(u"OstrakWeb"_s, buildtree::bundle(u"lib/libOstrakFetch.so"_s));
  View view;
  view->setRemoteHTMLURL({});
  QVERIFY(view.show());
  QTRY_VERIFY(view->textView());
  QCOMPARE(view->textView()->toPlainText(), u"Local page"_s);
  QCOMPARE(m_b->pages.told(),
           QStringList{u"Warning: pages are shown in a text view because the web engine cannot be "
                       "loaded: the library holds something else"_s});
}

void TestWebViewEngine::localSeesItsFolderAndOnlineNone() {
  View view;
  QVERIFY(m_b->show(view));
  QCOMPARE(m_b->engine.page(local())->setup().folder, tk->resDir());
  QCOMPARE(m_b->engine.page(online())->setup().folder, QString());
}

void TestWebViewEngine::darkPaletteReachesTheEngine_data() {
  QTest::addColumn<QColor>("paper");
  QTest::addColumn<bool>("isDark");
  QTest::newRow("white") << QColor(Qt::white) << false;
  QTest::newRow("black") << QColor(Qt::black) << true;
  QTest::newRow("dark") << QColor(42, 46, 50) << true;
  QTest::newRow("light grey") << QColor(239, 240, 241) << false;
}

void TestWebViewEngine::darkPaletteReachesTheEngine() {
  QFETCH(QColor, paper);
  View view;
  QPalette palette;
  palette.setColor(QPalette::Base, paper);
  view.window.setPalette(palette);
  QVERIFY(m_b->show(view));
  const WebPageSetup &localSetup = m_b->engine.page(local())->setup();
  QTEST(localSetup.prefersDark, "isDark");
  QCOMPARE(localSetup.background, paper);
  // Pages of the web count on white where they say nothing.
  const WebPageSetup &onlineSetup = m_b->engine.page(online())->setup();
  QTEST(onlineSetup.prefersDark, "isDark");
  QCOMPARE(onlineSetup.background, QColor(Qt::white));
}

void TestWebViewEngine::scrollsAsItWasTold_data() {
  addScrollRows();
}

void TestWebViewEngine::scrollsAsItWasTold() {
  QFETCH(QVariant, factor);
  QFETCH(bool, disabled);
  View view;
  view->setProperty("zoomFactor", factor);
  view->setDisableScrolling(disabled);
  QVERIFY(m_b->show(view));
  QTEST(m_b->engine.page(local())->setup().scrolls, "scrolls");
  // A factor that zooms is forgotten with the first page; that it was there is not.
  QVERIFY(m_b->arrives(local()));
  QTEST(view->zoomFactor().has_value(), "keepsFactor");
  QTEST(m_b->engine.page(online())->setup().scrolls, "scrolls");
}

void TestWebViewEngine::zoomsTheFirstPageThatIsThere_data() {
  QTest::addColumn<bool>("isOnlineFirst");
  QTest::newRow("local") << false;
  QTest::newRow("online") << true;
}

void TestWebViewEngine::zoomsTheFirstPageThatIsThere() {
  QFETCH(bool, isOnlineFirst);
  const QUrl first = isOnlineFirst ? online() : local();
  View view;
  view->setZoomFactor(0.9);
  QVERIFY(m_b->show(view));
  QCOMPARE(scriptsOf(first), QStringList());
  QVERIFY(m_b->arrives(first));
  QCOMPARE(scriptsOf(first), QStringList{u"document.documentElement.style.zoom = \"0.9000\""_s});
  QCOMPARE(view->zoomFactor(), std::nullopt);
  if (isOnlineFirst) return;
  QVERIFY(m_b->arrives(online()));
  QCOMPARE(scriptsOf(online()), QStringList());
}

void TestWebViewEngine::hardlyAZoomRunsNothing() {
  View view;
  view->setZoomFactor(1.00005);
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->arrives(local()));
  QCOMPARE(scriptsOf(local()), QStringList());
  QCOMPARE(view->zoomFactor(), std::optional(1.00005));
}

// The letters of a text that only bridges the time do not use it up.
void TestWebViewEngine::zoomOutlivesTheText() {
  View view({std::chrono::milliseconds(1), std::chrono::hours(1)});
  view->setZoomFactor(2);
  QVERIFY(m_b->show(view));
  QTRY_VERIFY(view->textView());
  QCOMPARE(view->textView()->font().pointSizeF(), 2 * view->font().pointSizeF());
  QVERIFY(m_b->arrives(local()));
  QCOMPARE(scriptsOf(local()), QStringList{u"document.documentElement.style.zoom = \"2.0000\""_s});
}

void TestWebViewEngine::zoomDoesNotOutliveTheEngine() {
  View view;
  view->setZoomFactor(2);
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->dies(local()));
  QVERIFY(view->textView());
  QCOMPARE(view->textView()->font().pointSizeF(), 2 * view->font().pointSizeF());
  QCOMPARE(view->zoomFactor(), std::nullopt);
}

void TestWebViewEngine::loadsOncePerView() {
  View first;
  QVERIFY(m_b->show(first));
  first->setLocalHTMLName(u"other.html"_s);
  first->repaint();
  first.window.hide();
  QVERIFY(first.show());
  // When the second view has asked, another question of the first would have been heard.
  View second;
  QVERIFY(m_b->show(second, 4));
  QCOMPARE(asked(), (QList{local(), online(), local(), online()}));
}

void TestWebViewEngine::linksLeaveTheView_data() {
  QTest::addColumn<QString>("link");
  QTest::addColumn<bool>("isClick");
  QTest::addColumn<bool>("isMainFrame");
  QTest::addColumn<bool>("opens");
  const QString web = u"https://decant.example/other.html"_s;
  QTest::newRow("web") << web << true << true << true;
  QTest::newRow("mail") << u"mailto:support@decant.example"_s << true << true << true;
  QTest::newRow("not by a click") << web << false << true << false;
  QTest::newRow("in a frame") << web << true << false << false;
  QTest::newRow("a file") << u"file:///etc/passwd"_s << true << true << false;
}

void TestWebViewEngine::linksLeaveTheView() {
  QFETCH(bool, opens);
  QFETCH(QString, link);
  QFETCH(bool, isClick);
  QFETCH(bool, isMainFrame);
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->arrives(local()));
  const StepTarget target = m_b->engine.page(local())->take({QUrl(link), isMainFrame, isClick});
  QCOMPARE(target, opens ? StepTarget::Browser : StepTarget::Nowhere);
  QCOMPARE(m_b->pages.program.opener().opened, opens ? QList{QUrl(link)} : QList<QUrl>());
  QVERIFY(m_b->shows(view, local()));
  QCOMPARE(asked(), (QList{local(), online()}));
}

void TestWebViewEngine::pageOnItsWayIsFollowedNowhere() {
  View view;
  QVERIFY(m_b->show(view));
  QCOMPARE(m_b->engine.page(local())->take({local()}), StepTarget::View);
  QCOMPARE(m_b->engine.page(online())->take({online()}), StepTarget::View);
  QCOMPARE(m_b->engine.page(online())->take({QUrl(u"https://elsewhere.example/"_s)}),
           StepTarget::Nowhere);
}

void TestWebViewEngine::linkToTheOtherPageBringsIt() {
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->arrives(online()));
  QCOMPARE(m_b->engine.page(online())->take({local(), true, true}), StepTarget::Nowhere);
  QTRY_COMPARE(asked(), (QList{local(), online(), local()}));
  QVERIFY(m_b->shows(view, online()));
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->shows(view, local()));
  QCOMPARE(m_b->engine.page(local())->take({online(), true, true}), StepTarget::Nowhere);
  QTRY_COMPARE(asked().size(), 4);
  QVERIFY(m_b->arrives(online()));
  QVERIFY(m_b->shows(view, online()));
  QCOMPARE(m_b->pages.program.opener().opened, QList<QUrl>());
}

void TestWebViewEngine::linkToAPlaceInTheOtherPageLeadsThere() {
  View view;
  QVERIFY(m_b->show(view));
  QVERIFY(m_b->arrives(local()));
  QVERIFY(m_b->fails(online(), 404));
  QUrl place = online();
  place.setFragment(u"below"_s);
  QCOMPARE(m_b->engine.page(local())->take({place, true, true}), StepTarget::Nowhere);
  QTRY_COMPARE(asked(), (QList{local(), online(), place}));
  QVERIFY(m_b->arrives(place));
  QVERIFY(m_b->shows(view, place));
  place = local();
  place.setFragment(u"below"_s);
  QCOMPARE(m_b->engine.page(asked().constLast())->take({place, true, true}), StepTarget::Nowhere);
  QTRY_COMPARE(asked().constLast(), place);
}

int main(int argc, char **argv) {
  return runWebTest<TestWebViewEngine>(argc, argv);
}
#include "tst_webviewengine.moc"
