#include "PageLinks.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace ostrak {

namespace {

constexpr double leastZoom = 0.0001;

bool isWeb(const QUrl &address) {
  return address.scheme() == "http"_L1 || address.scheme() == "https"_L1;
}

QUrl page(const QUrl &address) {
  QUrl page = address.adjusted(QUrl::RemoveFragment | QUrl::NormalizePathSegments);
  if (isWeb(page) && page.path().isEmpty()) page.setPath(u"/"_s);
  return page;
}

}  // namespace

StepTarget targetOf(const PageStep &step, const QUrl &localPage, const QUrl &onlinePage) {
  if (step.isMainFrame &&
      (isSamePage(step.address, localPage) || isSamePage(step.address, onlinePage)))
    return StepTarget::View;
  if (step.isMainFrame && step.isArrivingRedirect && isWeb(step.address)) {
    const bool givesUpSecrecy =
        onlinePage.scheme() == "https"_L1 && step.address.scheme() == "http"_L1;
    return givesUpSecrecy ? StepTarget::Nowhere : StepTarget::View;
  }
  if (step.isMainFrame && step.isClick && isForTheBrowser(step.address)) return StepTarget::Browser;
  return StepTarget::Nowhere;
}

bool isForTheBrowser(const QUrl &address) {
  return address.isValid() && (isWeb(address) || address.scheme() == "mailto"_L1);
}

bool isSamePage(const QUrl &one, const QUrl &other) {
  return !one.isEmpty() && !other.isEmpty() && page(one) == page(other);
}

bool changesZoom(const std::optional<double> &factor) {
  return factor && std::abs(*factor - 1) >= leastZoom;
}

QString zoomScript(double factor) {
  return u"document.documentElement.style.zoom = \""_s + QString::number(factor, 'f', 4) + u'"';
}

bool isNotConnected(int error) {
  constexpr int nameNotResolved = -105;
  constexpr int internetDisconnected = -106;
  return error == internetDisconnected || error == nameNotResolved;
}

bool isAborted(int error) {
  constexpr int brokenOff = -3;
  return error == brokenOff;
}

}  // namespace ostrak
