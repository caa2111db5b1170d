#pragma once

#include <QString>
#include <functional>

namespace decant {

// Looks into a folder on a worker before the main thread does, so that a disk that has to wake up
// or a share far away keeps the worker waiting and not the window.
using FolderLook = std::function<void(const QString &folder)>;

// Reads it and writes to it, as far as it can be; nothing stays, and no name appears in it. Any
// thread.
void lookIntoFolder(const QString &folder);

}  // namespace decant
