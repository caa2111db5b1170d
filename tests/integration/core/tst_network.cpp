#include <sys/stat.h>

#include <QFile>
#include <QNetworkRequest>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "Fetching.h"
#include "HttpAnswer.h"
#include "WholeFile.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace ostrak;

using Content = std::optional<QByteArray>;

namespace {

constexpr int deadline = 20'000;
const FetchLimits shortTime{300ms, 1000};

QByteArray answer(const QByteArray &status, const QByteArray &content,
                  const QByteArray &headers = {}) {
  return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(content.size()) +
         "\r\nConnection: close\r\n" + headers + "\r\n" + content;
}

// One answer for each path that the tests ask for.
QByteArray answerTo(const QByteArray &request) {
  const QByteArray path = request.split(' ').value(1);
  if (path == "/silent") return {};
  if (path == "/cut") return "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this";
  if (path == "/garbage") return "what?\r\n\r\n";
  if (path == "/empty") return answer("200 OK", "");
  if (path == "/missing") return answer("404 Not Found", "an error page");
  if (path == "/broken") return answer("500 Internal Server Error", "oh");
  if (path == "/moved") return answer("302 Found", "", "Location: /page\r\n");
  if (path == "/circle") return answer("302 Found", "", "Location: /circle\r\n");
  if (path == "/tofile") return answer("302 Found", "", "Location: file:///etc/hostname\r\n");
  if (path == "/1000") return answer("200 OK", QByteArray(1000, 'x'));
  if (path == "/1001") return answer("200 OK", QByteArray(1001, 'x'));
  return answer("200 OK", QByteArray("page\0\xFF", 6));
}

}  // namespace

class TestNetwork final : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    m_server = std::make_unique<HttpAnswer>(answerTo);
    QVERIFY(m_server->isListening());
  }
  void cleanup() { m_server.reset(); }

  void gets_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<Content>("expected");
    QTest::newRow("page") << u"/page"_s << Content(QByteArray("page\0\xFF", 6));
    QTest::newRow("empty") << u"/empty"_s << Content(QByteArray());
    QTest::newRow("moved") << u"/moved"_s << Content(QByteArray("page\0\xFF", 6));
    QTest::newRow("missing") << u"/missing"_s << Content();
    QTest::newRow("broken") << u"/broken"_s << Content();
    QTest::newRow("moved for ever") << u"/circle"_s << Content();
    QTest::newRow("moved to a file") << u"/tofile"_s << Content();
    QTest::newRow("cut") << u"/cut"_s << Content();
    QTest::newRow("garbage") << u"/garbage"_s << Content();
  }
  void gets() {
    QFETCH(QString, path);
    QFETCH(Content, expected);
    QCOMPARE(performBlockingGET(m_server->url(path)), expected);
    QCOMPARE(download(m_server->url(path)), expected);
    QCOMPARE(download(m_server->url(path).toString()), expected);
    QCOMPARE(fetched(&performGET, m_server->url(path), {}), expected);
  }

  void postsQuery() {
    const QUrl address = m_server->url(u"/form?a=1%2B2&b=%C3%A4#part"_s);
    QCOMPARE(performBlockingPOST(address), Content(QByteArray("page\0\xFF", 6)));
    QCOMPARE(fetched(&performPOST, address, {}), Content(QByteArray("page\0\xFF", 6)));
    QCOMPARE(m_server->requests().size(), 2);
    for (const QByteArray &request : m_server->requests()) {
      QVERIFY2(request.startsWith("POST /form HTTP/1.1\r\n"), request.constData());
      QVERIFY2(request.toLower().contains("content-type: application/x-www-form-urlencoded\r\n"),
               request.constData());
      QVERIFY2(request.endsWith("\r\n\r\na=1%2B2&b=%C3%A4"), request.constData());
    }
    QVERIFY(!performBlockingPOST(m_server->url(u"/missing?a=1"_s)));
  }

  void sendsQueryOfGet() {
    QVERIFY(performBlockingGET(m_server->url(u"/page?a=1%2B2"_s)));
    QVERIFY(m_server->requests().value(0).startsWith("GET /page?a=1%2B2 HTTP/1.1\r\n"));
  }

  void givesUpOnSilence() {
    QCOMPARE(performBlockingGET(m_server->url(u"/silent"_s), shortTime), Content());
    QCOMPARE(performBlockingPOST(m_server->url(u"/silent"_s), shortTime), Content());
    QCOMPARE(fetched(&performGET, m_server->url(u"/silent"_s), shortTime), Content());
  }

  void givesUpOnTooMuch() {
    const FetchLimits limits{30s, 1000};
    QCOMPARE(performBlockingGET(m_server->url(u"/1000"_s), limits), Content(QByteArray(1000, 'x')));
    QCOMPARE(performBlockingGET(m_server->url(u"/1001"_s), limits), Content());
  }

  void givesUpWithoutServer() {
    const QUrl address = m_server->url(u"/page"_s);
    m_server.reset();
    QCOMPARE(performBlockingGET(address), Content());
    QCOMPARE(fetched(&performGET, address, {}), Content());
  }

  void readsFiles() {
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"a b%20.txt"_s);
    QVERIFY(wholefile::write(file, QByteArray(1000, 'x')));
    const QUrl location = QUrl::fromLocalFile(file);
    QCOMPARE(download(location), Content(QByteArray(1000, 'x')));
    QCOMPARE(download(location.toString(QUrl::FullyEncoded)), Content(QByteArray(1000, 'x')));
    QCOMPARE(fetched(&performGET, location, {}), Content(QByteArray(1000, 'x')));
    QCOMPARE(download(location, {30s, 999}), Content());
    QCOMPARE(performBlockingPOST(location), Content());
    QCOMPARE(fetched(&performPOST, location, {}), Content());
    QCOMPARE(download(QUrl::fromLocalFile(folder.path())), Content());
    QCOMPARE(download(QUrl::fromLocalFile(folder.filePath(u"none"_s))), Content());
  }

  // Opening a pipe would wait for somebody to write into it.
  void readsNoPipe() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"pipe"_s);
    QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    QCOMPARE(download(QUrl::fromLocalFile(path)), Content());
    QCOMPARE(fetched(&performGET, QUrl::fromLocalFile(path), {}), Content());
  }

  void refusesAddresses_data() {
    QTest::addColumn<QString>("address");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("no scheme") << u"127.0.0.1/page"_s;
    QTest::newRow("other scheme") << u"ftp://127.0.0.1/page"_s;
    QTest::newRow("data") << u"data:,x"_s;
    QTest::newRow("not an address") << u"http://a b/"_s;
    QTest::newRow("no host") << u"http:///page"_s;
  }
  void refusesAddresses() {
    QFETCH(QString, address);
    QCOMPARE(download(address), Content());
    QCOMPARE(performBlockingPOST(QUrl(address)), Content());
    QCOMPARE(fetched(&performGET, QUrl(address, QUrl::StrictMode), {}), Content());
  }

  void runsNoHandlersWhileBlocked() {
    bool ran = false;
    QTimer::singleShot(0, this, [&] { ran = true; });
    QVERIFY(performBlockingGET(m_server->url(u"/page"_s)));
    QVERIFY(!ran);
    QTRY_VERIFY_WITH_TIMEOUT(ran, deadline);
  }

  void forgetsWithItsContext() {
    auto context = std::make_unique<QObject>();
    int calls = 0;
    const auto count = [&](const Content &) { ++calls; };
    performGET(m_server->url(u"/page"_s), context.get(), count);
    performGET(QUrl::fromLocalFile(u"/"_s), context.get(), count);
    context.reset();
    // What comes after is answered, what came before is not.
    QVERIFY(fetched(&performGET, m_server->url(u"/page"_s), {}));
    QCOMPARE(calls, 0);
  }

  void survivesItsContext() {
    auto context = std::make_unique<QObject>();
    int calls = 0;
    performGET(m_server->url(u"/page"_s), context.get(), [&](const Content &) {
      context.reset();
      ++calls;
    });
    QTRY_COMPARE_WITH_TIMEOUT(calls, 1, deadline);
  }

  void makesRequests() {
    const QUrl address(u"https://decant.example/a?b"_s);
    for (const QNetworkRequest &made : {request(address), mutableRequest(address)}) {
      QCOMPARE(made.url(), address);
      QCOMPARE(made.attribute(QNetworkRequest::RedirectPolicyAttribute).toInt(),
               int{QNetworkRequest::NoLessSafeRedirectPolicy});
    }
  }

 private:
  using Perform = void (*)(const QUrl &, QObject *, Fetched, FetchLimits);

  // The result of a request that does not block, which must come later and once.
  static Content fetched(Perform perform, const QUrl &address, FetchLimits limits) {
    QObject context;
    int calls = 0;
    Content result;
    perform(
        address, &context,
        [&](const Content &content) {
          ++calls;
          result = content;
        },
        limits);
    if (calls != 0) qFatal("answered from inside the call");
    if (!QTest::qWaitFor([&] { return calls > 0; }, deadline)) qFatal("never answered");
    QCoreApplication::processEvents();
    if (calls != 1) qFatal("answered more than once");
    return result;
  }

  std::unique_ptr<HttpAnswer> m_server;
};

QTEST_GUILESS_MAIN(TestNetwork)
#include "tst_network.moc"
