#pragma once

#include <QObject>

#include "PageFetcher.h"

namespace ostrak {

// Fetches with the time and the room that a page of documentation may take.
class RealPageFetcher final : public QObject, public PageFetcher {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID OstrakPageFetcher_iid)
  Q_INTERFACES(ostrak::PageFetcher)

 public:
  [[nodiscard]] std::optional<QByteArray> fetch(const QString &address) override;
};

}  // namespace ostrak
