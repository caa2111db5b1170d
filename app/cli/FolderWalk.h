#pragma once

#include <QList>

#include "GivenFile.h"

namespace decant {

// The movies and subtitle files below a folder, in byte order of their paths; hidden files and
// folders and links to folders are left out. What cannot be read or named comes as refused.
[[nodiscard]] QList<GivenFile> filesBelow(const QByteArray &folder,
                                          const QByteArray &workingFolder);

}  // namespace decant
