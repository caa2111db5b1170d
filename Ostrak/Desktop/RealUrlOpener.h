#pragma once

#include "UrlOpener.h"

// The desktop's own choice of program for an address.
class RealUrlOpener final : public UrlOpener {
 public:
  bool open(const QUrl &url) override;
};
