#pragma once

#include <QUrl>
#include <functional>
#include <optional>

#include "MKVFileInfo.h"

namespace decant {

class ClaimedNames;

// The file that a record is converted to.
struct Destination {
  QUrl url;
  QUrl securityURL;       // the folder whose access was started for the job; empty when none was
  bool replaces = false;  // the user has agreed to replace what is there; it is still there
};

// Told once, at once or when the user has answered; nothing when the user cancelled, or was told
// why it cannot be.
using DestinationAnswer = std::function<void(const std::optional<Destination> &destination)>;

// Decides where a record goes, avoiding the names that other jobs have claimed. May throw an
// ostrak::Exception instead of answering. Main thread.
using DestinationChooser = std::function<void(
    const MKVFileInfo &record, const ClaimedNames &claimed, const DestinationAnswer &answer)>;

}  // namespace decant
