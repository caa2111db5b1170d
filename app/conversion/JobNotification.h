#pragma once

#include <QString>

#include "MKVFileInfo.h"
#include "Notifier.h"

namespace decant {

// What the desktop shows when a run has ended. Each has an id of its own.
[[nodiscard]] Notification endNotification(const QString &appName, const MKVFileInfo &fileInfo,
                                           bool failed);

}  // namespace decant
