#pragma once

#include <QString>

namespace decant {

// The name of a job's progress file, "movie.mkv.log" for "movie.mkv", the last path component of
// its source. A long one is cut between two characters, so that the name, with the number that
// makes it unique too, fits in the 255 bytes that a file system takes. Pure.
[[nodiscard]] QString progressFileName(const QString &fileName);

}  // namespace decant
