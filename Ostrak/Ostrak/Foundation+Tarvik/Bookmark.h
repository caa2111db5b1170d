#pragma once

#include <QByteArray>
#include <QString>
#include <optional>

namespace ostrak {

// A bookmark remembers a folder across restarts and renames: a small blob of its path, device,
// inode and file-system id. Equal folders give equal bookmarks. Any thread.

// Nothing when `folder` is no folder that can be read.
[[nodiscard]] std::optional<QByteArray> bookmarkOfFolder(const QString &folder);

// Where the folder is now: at its path; else under another name beside it, or below an ancestor
// that was renamed; else whatever folder of the same file system stands at its path by now. Nothing
// when it is gone.
[[nodiscard]] std::optional<QString> folderOfBookmark(const QByteArray &bookmark);

}  // namespace ostrak
