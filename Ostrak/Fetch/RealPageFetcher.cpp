#include "RealPageFetcher.h"

#include "Fetching.h"

namespace ostrak {

namespace {

constexpr FetchLimits limitsOfPage{std::chrono::seconds(10), 4LL * 1024 * 1024};

}  // namespace

std::optional<QByteArray> RealPageFetcher::fetch(const QString &address) {
  const QUrl url(address, QUrl::StrictMode);
  // An online copy is nothing on this machine.
  if (url.scheme() != QLatin1StringView("http") && url.scheme() != QLatin1StringView("https"))
    return std::nullopt;
  return download(url, limitsOfPage);
}

}  // namespace ostrak
