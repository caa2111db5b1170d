#include "Fetching.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QThread>
#include <QTimer>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

enum class Method { Get, Post };

bool isWeb(const QUrl &address) {
  return address.isValid() && (address.scheme() == "http"_L1 || address.scheme() == "https"_L1);
}

std::optional<QByteArray> readFile(const QUrl &address, const FetchLimits &limits) {
  // Only a regular file: opening a pipe would wait for its writer.
  const QString path = address.toLocalFile();
  if (!QFileInfo(path).isFile()) return std::nullopt;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  QByteArray content = file.read(limits.bytes + 1);
  if (file.error() != QFile::NoError || content.size() > limits.bytes) return std::nullopt;
  return content;
}

std::optional<QByteArray> contentOf(QNetworkReply &reply, const FetchLimits &limits) {
  if (reply.error() != QNetworkReply::NoError) return std::nullopt;
  const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (status < 200 || status > 299) return std::nullopt;
  QByteArray content = reply.readAll();
  if (content.size() > limits.bytes) return std::nullopt;
  return content;
}

QNetworkReply *send(QNetworkAccessManager &manager, const QUrl &address, Method method) {
  if (method == Method::Get) return manager.get(request(address));
  QNetworkRequest post = mutableRequest(address.adjusted(QUrl::RemoveQuery));
  post.setHeader(QNetworkRequest::ContentTypeHeader, u"application/x-www-form-urlencoded"_s);
  return manager.post(post, address.query(QUrl::FullyEncoded).toLatin1());
}

// Sends the request and calls `done` once, from the event loop of the calling thread.
void fetch(const QUrl &address, Method method, const FetchLimits &limits, QObject *context,
           Fetched done) {
  const bool isFile = address.isLocalFile() && method == Method::Get;
  if (!isWeb(address)) {
    QTimer::singleShot(0, context,
                       [=] { done(isFile ? readFile(address, limits) : std::nullopt); });
    return;
  }
  auto *manager = new QNetworkAccessManager(context);
  QNetworkReply *reply = send(*manager, address, method);
  QTimer::singleShot(limits.timeout, reply, &QNetworkReply::abort);
  QObject::connect(reply, &QNetworkReply::downloadProgress, reply,
                   [reply, most = limits.bytes](qint64 received, qint64) {
                     if (received > most) reply->abort();
                   });
  QObject::connect(reply, &QNetworkReply::finished, manager,
                   [reply, manager, limits, done = std::move(done)] {
                     // The receiver may throw its context away, with the reply that is speaking.
                     manager->setParent(nullptr);
                     manager->deleteLater();
                     done(contentOf(*reply, limits));
                   });
}

std::optional<QByteArray> fetchBlocking(const QUrl &address, Method method,
                                        const FetchLimits &limits) {
  if (address.isLocalFile() && method == Method::Get) return readFile(address, limits);
  if (!isWeb(address)) return std::nullopt;
  // A thread of its own: an event loop on the caller's would run the caller's other handlers inside
  // this call.
  std::optional<QByteArray> result;
  const std::unique_ptr<QThread> worker(QThread::create([&] {
    QEventLoop loop;
    QObject context;
    fetch(address, method, limits, &context, [&](const std::optional<QByteArray> &content) {
      result = content;
      loop.quit();
    });
    loop.exec();
  }));
  worker->start();
  worker->wait();
  return result;
}

}  // namespace

QNetworkRequest request(const QUrl &address) {
  QNetworkRequest result(address);
  result.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                      QNetworkRequest::NoLessSafeRedirectPolicy);
  return result;
}

QNetworkRequest mutableRequest(const QUrl &address) {
  return request(address);
}

std::optional<QByteArray> download(const QUrl &address, FetchLimits limits) {
  return performBlockingGET(address, limits);
}

std::optional<QByteArray> download(const QString &address, FetchLimits limits) {
  return download(QUrl(address, QUrl::StrictMode), limits);
}

std::optional<QByteArray> performBlockingGET(const QUrl &address, FetchLimits limits) {
  return fetchBlocking(address, Method::Get, limits);
}

std::optional<QByteArray> performBlockingPOST(const QUrl &address, FetchLimits limits) {
  return fetchBlocking(address, Method::Post, limits);
}

void performGET(const QUrl &address, QObject *context, Fetched done, FetchLimits limits) {
  fetch(address, Method::Get, limits, context, std::move(done));
}

void performPOST(const QUrl &address, QObject *context, Fetched done, FetchLimits limits) {
  fetch(address, Method::Post, limits, context, std::move(done));
}

}  // namespace ostrak
