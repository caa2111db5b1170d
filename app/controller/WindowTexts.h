#pragma once

#include <QString>

namespace decant {

// Texts of the window that change with the queue, in the user's language. Pure but for the
// program's name and version, which `tk` knows.
[[nodiscard]] QString windowTitleText(bool paused, qsizetype jobs, int queued);
[[nodiscard]] QString addButtonText(bool paused);
// "Version: 1.2" and "Build: 34".
[[nodiscard]] QString versionText();
[[nodiscard]] QString buildText();

}  // namespace decant
