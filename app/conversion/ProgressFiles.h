#pragma once

#include <QString>

#include "OwnFile.h"

namespace decant {

// The files that the tool writes its progress to, one for each run. The program that made one holds
// a lock on it for as long as it lives; so the files of a program that was killed can be told from
// those of one that runs. Any thread.

// An empty file for a run on `fileName`, the last path component of its source, in `folder`, which
// is made if it is missing; two programs that convert files of one name at the same time do not
// share it. Where none can be made it is not there.
[[nodiscard]] OwnFile claimProgressFile(const QString &fileName, const QString &folder);
// The same, or in `spare` where none can be made in `folder`: a run that cannot tell its progress
// would fail by that alone.
[[nodiscard]] OwnFile claimProgressFile(const QString &fileName, const QString &folder,
                                        const QString &spare);
// Which of both that would be, for who makes none.
[[nodiscard]] QString progressFolder(const QString &folder, const QString &spare);

// Deletes the progress files in `folder` that no running program holds. Whatever does not look as
// if the tool had written it stays, as do links and files of other users.
void sweepProgressFiles(const QString &folder);

}  // namespace decant
