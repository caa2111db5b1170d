#include "RealLauncherProgress.h"

#include <QDBusMessage>
#include <QVariantMap>
#include <algorithm>

using namespace Qt::StringLiterals;

RealLauncherProgress::RealLauncherProgress(const QDBusConnection &bus, const QString &desktopEntry)
    : m_bus(bus), m_applicationUri(u"application://"_s + desktopEntry + u".desktop"_s) {}

void RealLauncherProgress::show(std::optional<double> fraction, int count) {
  const int percent = fraction ? std::clamp(static_cast<int>(*fraction * 100), 0, 100) : -1;
  if (!m_bus.isConnected() || (percent == m_percent && count == m_count)) return;
  m_percent = percent;
  m_count = count;
  QDBusMessage update = QDBusMessage::createSignal(
      u"/org/decant/Decant"_s, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
  update << m_applicationUri
         << QVariantMap{{u"progress"_s, std::max(percent, 0) / 100.0},
                        {u"progress-visible"_s, percent >= 0},
                        {u"count"_s, static_cast<qlonglong>(count)},
                        {u"count-visible"_s, count > 0}};
  m_bus.send(update);
}
