#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <optional>

namespace ostrak {

// What the library OstrakFetch, which brings the network, gives the documentation views.
class PageFetcher {
 public:
  virtual ~PageFetcher() = default;
  // The whole page at this web address; nothing on any failure. Blocks; any thread.
  [[nodiscard]] virtual std::optional<QByteArray> fetch(const QString &address) = 0;
};

}  // namespace ostrak

#define OstrakPageFetcher_iid "org.decant.Ostrak.PageFetcher"
Q_DECLARE_INTERFACE(ostrak::PageFetcher, OstrakPageFetcher_iid)
