#pragma once

#include "ReportParser.h"

namespace decant {

// Every alert that the probe raises, as values; each is about `source`. Texts are in the user's
// language. Any thread.

[[nodiscard]] ProbeAlert aliasAlert(const ProbeSource &source);
[[nodiscard]] ProbeAlert refusedCodecAlert(const ProbeSource &source, const QString &codec);
[[nodiscard]] ProbeAlert unexpectedCodecAlert(const ProbeSource &source, const QString &codec);
[[nodiscard]] ProbeAlert tenBitAlert(const ProbeSource &source);
[[nodiscard]] ProbeAlert highResolutionAlert(const ProbeSource &source);
[[nodiscard]] ProbeAlert referenceFramesAlert(const ProbeSource &source);
[[nodiscard]] ProbeAlert noVideoAlert(const ProbeSource &source);

// Why the tool was not run on the source at all.
enum class FileRefusal { Missing, Folder, NotRegular, Unreadable };
[[nodiscard]] ProbeAlert refusedFileAlert(const ProbeSource &source, FileRefusal why);
// `tool` is the path at which it was looked for.
[[nodiscard]] ProbeAlert toolMissingAlert(const ProbeSource &source, const QString &tool);
// Its only answer ends the program.
[[nodiscard]] ProbeAlert processRefusedAlert(const ProbeSource &source);

// The last component of the source's path, as the texts name it.
[[nodiscard]] QString sourceName(const ProbeSource &source);

}  // namespace decant
