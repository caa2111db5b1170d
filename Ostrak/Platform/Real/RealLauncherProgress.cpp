#include "RealLauncherProgress.h"

#include <QDBusMessage>
#include <QVariantMap>
#include <algorithm>
#include <cmath>
#include <utility>

#include "Logging.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int hidden = -1;

int percentOf(std::optional<double> fraction) {
  if (!fraction || !std::isfinite(*fraction)) return hidden;
  // The small addition keeps 0.29, which is a little less than that, from being 28 percent.
  return static_cast<int>(std::clamp(*fraction, 0.0, 1.0) * 100 + 1e-9);
}

}  // namespace

RealLauncherProgress::RealLauncherProgress(const QDBusConnection &bus, const QString &desktopEntry)
    : m_bus(bus),
      m_applicationUri(u"application://"_s + desktopEntry + u".desktop"_s),
      m_percent(hidden) {}

RealLauncherProgress::~RealLauncherProgress() {
  show({}, 0);
}

void RealLauncherProgress::show(std::optional<double> fraction, int count) {
  const int percent = percentOf(fraction);
  if (percent == m_percent && count == m_count) return;
  m_percent = percent;
  m_count = count;
  if (!m_bus.isConnected()) {
    if (!std::exchange(m_complained, true)) {
      ostrak::tk_log_level(6, u"Info: the launcher shows no progress without a session bus"_s);
    }
    return;
  }
  QDBusMessage update = QDBusMessage::createSignal(
      u"/org/decant/Decant"_s, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
  update << m_applicationUri
         << QVariantMap{{u"progress"_s, std::max(percent, 0) / 100.0},
                        {u"progress-visible"_s, percent != hidden},
                        {u"count"_s, static_cast<qlonglong>(count)},
                        {u"count-visible"_s, count > 0}};
  m_bus.send(update);
}
