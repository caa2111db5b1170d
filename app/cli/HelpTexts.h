#pragma once

#include <QString>

#include "Invocation.h"

namespace decant {

// "usage: decant convert …", with a line end; for the program and for settings one line each form.
[[nodiscard]] QString usageText(Topic topic);
// What --help prints, the usage first.
[[nodiscard]] QString helpText(Topic topic);

}  // namespace decant
