#pragma once

#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

#include "Alerts.h"
#include "MKVFileInfo.h"

namespace decant {

// An alert that the probe wants shown. Scheduled ones come 0.1 s after the probe, on the main
// thread; the others at once.
struct ProbeAlert {
  ostrak::Alert alert;
  bool scheduled = false;

  bool operator==(const ProbeAlert &) const = default;
};

// What is known before the report is read.
struct ProbeSource {
  QUrl fileURL;
  quint64 fileSize = 0;
  QString appName;  // for the texts
};

struct ProbeSettings {
  bool heAACConvert =
      false;  // "HEAACConvert": name HE-AAC tracks "he-aac", so that they are transcoded
  // Asked several times a second while the tool runs, on its thread: whether nobody waits for the
  // answer any more. Empty means that somebody does.
  std::function<bool()> giveUp = {};
};

// Without a record the file must not be queued, and the alerts tell why.
struct ProbeOutcome {
  std::optional<MKVFileInfo> record;
  QList<ProbeAlert> alerts;
};

// Reads what `ffmpeg -i FILE` prints. Pure; any thread. Throws ostrak::RangeError when a line
// breaks the grammar that the tool promises.
[[nodiscard]] ProbeOutcome parseReport(const QString &report, const ProbeSource &source,
                                       const ProbeSettings &settings);

// The running time in whole seconds, when the report has exactly one line with "Duration: ". Pure.
[[nodiscard]] std::optional<int> durationInReport(const QString &report, const QUrl &source);

}  // namespace decant
