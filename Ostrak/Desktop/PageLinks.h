#pragma once

#include <QUrl>
#include <optional>

namespace ostrak {

// What the documentation views decide about addresses and numbers. Pure.

// Where a step of a page leads: within the view, to the user's own program, or nowhere.
enum class StepTarget { View, Browser, Nowhere };

struct PageStep {
  QUrl address;
  bool isMainFrame = true;  // not a frame within the page
  bool isClick = false;     // by the user on a link
  // The page that was asked for is still on its way and was sent on to another address.
  bool isArrivingRedirect = false;
};

// `localPage` and `onlinePage` are the two addresses that belong in the view, either may be empty.
[[nodiscard]] StepTarget targetOf(const PageStep &step, const QUrl &localPage,
                                  const QUrl &onlinePage);
// The web and mail: what a page may hand to the desktop.
[[nodiscard]] bool isForTheBrowser(const QUrl &address);
// Whether both name the same page, written as the engine writes them, whatever place in it.
[[nodiscard]] bool isSamePage(const QUrl &one, const QUrl &other);

// Whether this factor makes a difference that can be seen.
[[nodiscard]] bool changesZoom(const std::optional<double> &factor);
// What applies it to a page, once it is there.
[[nodiscard]] QString zoomScript(double factor);
// The engine's numbers for a machine without a connection.
[[nodiscard]] bool isNotConnected(int error);
// Its number for a load that was broken off, which is no failure of the page.
[[nodiscard]] bool isAborted(int error);

}  // namespace ostrak
