#include <QTest>

#include "PageLinks.h"

using namespace Qt::StringLiterals;
using namespace ostrak;

Q_DECLARE_METATYPE(ostrak::StepTarget)

class TestPageLinks final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void targets_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isClick");
    QTest::addColumn<bool>("isMainFrame");
    QTest::addColumn<bool>("isRedirect");
    QTest::addColumn<StepTarget>("expected");
    const auto row = [](const char *name, const QString &address, const char *how,
                        StepTarget expected) {
      const QByteArrayView marks(how);
      QTest::newRow(name) << address << marks.contains('c') << !marks.contains('f')
                          << marks.contains('r') << expected;
    };
    const auto view = StepTarget::View;
    const auto browser = StepTarget::Browser;
    const auto nowhere = StepTarget::Nowhere;
    row("the local page", u"file:///b/resources/a.html"_s, "", view);
    row("a place in it", u"file:///b/resources/a.html#x"_s, "c", view);
    row("the online page", u"https://decant.example/a"_s, "", view);
    row("clicked", u"https://decant.example/a"_s, "c", view);
    row("written otherwise", u"HTTPS://Decant.example/x/../a"_s, "c", view);
    row("with a question", u"https://decant.example/a?b"_s, "c", browser);
    row("another page", u"https://decant.example/b"_s, "c", browser);
    row("without encryption", u"http://decant.example/a"_s, "c", browser);
    row("mail", u"mailto:a@b.example"_s, "c", browser);
    row("not by a click", u"https://decant.example/b"_s, "", nowhere);
    row("in a frame", u"https://decant.example/b"_s, "cf", nowhere);
    row("the page in a frame", u"https://decant.example/a"_s, "f", nowhere);
    row("another file", u"file:///etc/passwd"_s, "c", nowhere);
    row("a script", u"javascript:alert(1)"_s, "c", nowhere);
    row("data", u"data:text/html,x"_s, "c", nowhere);
    row("sent on", u"https://other.example/c"_s, "r", view);
    row("sent on to less secrecy", u"http://other.example/c"_s, "r", nowhere);
    row("sent on to a file", u"file:///etc/passwd"_s, "r", nowhere);
    row("a frame sent on", u"https://other.example/c"_s, "rf", nowhere);
    row("nothing", u""_s, "c", nowhere);
  }
  void targets() {
    QFETCH(QString, address);
    QFETCH(bool, isClick);
    QFETCH(bool, isMainFrame);
    QFETCH(bool, isRedirect);
    const PageStep step{QUrl(address), isMainFrame, isClick, isRedirect};
    QTEST(
        targetOf(step, QUrl(u"file:///b/resources/a.html"_s), QUrl(u"https://decant.example/a"_s)),
        "expected");
  }

  void noPageIsNoPlace() {
    QCOMPARE(targetOf({QUrl(), true, false, false}, QUrl(), QUrl()), StepTarget::Nowhere);
    QVERIFY(isSamePage(QUrl(u"http://a.example"_s), QUrl(u"http://a.example/"_s)));
    QVERIFY(!isSamePage(QUrl(), QUrl()));
  }

  void zoom_data() {
    QTest::addColumn<double>("factor");
    QTest::addColumn<bool>("changes");
    QTest::addColumn<QString>("script");
    const auto row = [](const char *name, double factor, bool changes, const QString &number) {
      QTest::newRow(name) << factor << changes
                          << QString(u"document.documentElement.style.zoom = \""_s + number + u'"');
    };
    row("one", 1, false, u"1.0000"_s);
    row("hardly", 1.00005, false, u"1.0001"_s);
    row("hardly less", 0.99995, false, u"1.0000"_s);
    row("a little", 1.0002, true, u"1.0002"_s);
    row("smaller", 0.9, true, u"0.9000"_s);
    row("much", 12.3456789, true, u"12.3457"_s);
  }
  void zoom() {
    QFETCH(double, factor);
    QTEST(changesZoom(factor), "changes");
    QVERIFY(!changesZoom({}));
    if (factor != 1.00005 && factor != 0.99995) QTEST(zoomScript(factor), "script");
  }

  void notConnected() {
    QVERIFY(isNotConnected(-106));
    QVERIFY(isNotConnected(-105));
    for (const int other : {0, -3, -102, -1009, 404})
      QVERIFY(!isNotConnected(other));
    QVERIFY(isAborted(-3));
    for (const int other : {0, 3, -105, -106})
      QVERIFY(!isAborted(other));
  }
};

QTEST_GUILESS_MAIN(TestPageLinks)
#include "tst_pagelinks.moc"
