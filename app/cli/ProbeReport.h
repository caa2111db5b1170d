#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

#include "Alerts.h"
#include "MKVFileInfo.h"

namespace decant {

// What probe tells of one file. A value.
struct ProbeReport {
  QString given;  // the name as given
  std::optional<MKVFileInfo> record;
  std::optional<int> bestAudioTrack;  // index into the record's list
  QList<ostrak::Alert> alerts;        // without a record, they tell why
};

// One JSON object as a line.
[[nodiscard]] QByteArray probeJson(const ProbeReport &report);
// One block for people: a label and a value a line, aligned; no blank line at its end. Several
// lines have no control codes but their ends.
[[nodiscard]] QString probeText(const ProbeReport &report);

}  // namespace decant
