#pragma once

#include <QByteArray>
#include <QNetworkRequest>
#include <QString>
#include <QUrl>
#include <chrono>
#include <functional>
#include <optional>

class QObject;

namespace ostrak {

// Fetching what stands at an address: "http", "https", or "file" for a regular file. The result is
// the whole content, or nothing on any failure: another scheme, no connection, an answer other than
// success, more bytes or more time than the limits allow. An application object must exist.

struct FetchLimits {
  std::chrono::milliseconds timeout{30'000};  // for all of it, redirections included
  qint64 bytes = 256LL * 1024 * 1024;
};

using Fetched = std::function<void(const std::optional<QByteArray> &content)>;

// The request that the functions below send: redirections are followed, but never from https to
// http.
[[nodiscard]] QNetworkRequest request(const QUrl &address);
// The same for one's own changes.
[[nodiscard]] QNetworkRequest mutableRequest(const QUrl &address);

// Block the calling thread, whichever it is, without running its event loop, at most for the time
// limit.
[[nodiscard]] std::optional<QByteArray> download(const QUrl &address, FetchLimits limits = {});
[[nodiscard]] std::optional<QByteArray> download(const QString &address, FetchLimits limits = {});
[[nodiscard]] std::optional<QByteArray> performBlockingGET(const QUrl &address,
                                                           FetchLimits limits = {});
// Sends the address's query as the form's content, to the address without it. Not for "file".
[[nodiscard]] std::optional<QByteArray> performBlockingPOST(const QUrl &address,
                                                            FetchLimits limits = {});

// The same without blocking. `done` is called once, from the event loop of the calling thread;
// never when `context`, which lives on that thread, is gone before.
void performGET(const QUrl &address, QObject *context, Fetched done, FetchLimits limits = {});
void performPOST(const QUrl &address, QObject *context, Fetched done, FetchLimits limits = {});

}  // namespace ostrak
