#pragma once

#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>

#include "ChildProcess.h"
#include "MKVFileInfo.h"

namespace decant {

// How ffmpeg is called for a conversion or its one-second test.
[[nodiscard]] ostrak::ChildSetup conversionTool(const QString &path, const QStringList &arguments);

// Whether a tool at this path can be run at all: an executable file that is not empty.
[[nodiscard]] bool isUsableTool(const QString &path);

// What the user is told of one that cannot be run.
[[nodiscard]] QString toolMissingText(const QString &path, const MKVFileInfo &fileInfo);

// How long the one-second test may take.
struct FixupPatience {
  ostrak::StopDelays delays = {};
  std::chrono::milliseconds deadline = std::chrono::seconds(30);
  std::function<bool()> interrupted = {};  // the program is to end; asked several times a second
};

// Whether the chosen track, one for which wantsFixupTest holds, needs the ADTS filter: asked of the
// tool by a conversion of one second to `destination`, which it writes over. Blocks for at most the
// deadline and the grace of the ladder; no answer in time is a no.
[[nodiscard]] bool needFixup(const QString &toolPath, const MKVFileInfo &fileInfo,
                             quint64 audioTrackIndex, const QString &destination,
                             const FixupPatience &patience = {});

}  // namespace decant
