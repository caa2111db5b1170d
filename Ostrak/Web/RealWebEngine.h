#pragma once

#include <QObject>

#include "WebEngine.h"

namespace ostrak {

// QtWebEngine. It draws without the graphics hardware: a page of text needs none, and the program
// then starts without what would make it ready.
class RealWebEngine final : public QObject, public WebEngine {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID OstrakWebEngine_iid)
  Q_INTERFACES(ostrak::WebEngine)

 public:
  [[nodiscard]] QString problem() const override;
  [[nodiscard]] std::unique_ptr<WebPage> makePage(const WebPageSetup &setup,
                                                  WebPageOwner &owner) override;
};

}  // namespace ostrak
