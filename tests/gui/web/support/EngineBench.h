#pragma once

#include <chrono>

#include "EngineSteering.h"
#include "PageBench.h"
#include "VKWebView.h"

// A scratch program whose web engine is the scripted one, and the two pages of its views.
class EngineBench final {
 public:
  // Never tired of waiting while a test runs.
  static constexpr ostrak::WebPatience untiring{std::chrono::hours(1), std::chrono::hours(1)};

  EngineBench();

  // A view on both pages, not yet in sight.
  class View final : public ShownView<ostrak::VKWebView> {
   public:
    explicit View(const ostrak::WebPatience &patience = untiring);
  };
  // Shows the view and waits until it has asked for this many pages, counted over all views.
  [[nodiscard]] bool show(View &view, qsizetype pages = 2) const;

  [[nodiscard]] static QUrl local();
  [[nodiscard]] static QUrl online();
  // What becomes of the youngest page of this address; false when there is none.
  [[nodiscard]] bool arrives(const QUrl &address) const;
  [[nodiscard]] bool fails(const QUrl &address, int error) const;
  [[nodiscard]] bool dies(const QUrl &address) const;
  [[nodiscard]] bool shows(const View &view, const QUrl &address) const;

  PageBench pages;
  EngineSteering &engine;

 private:
  [[nodiscard]] EngineSteering &loadEngine() const;
};
