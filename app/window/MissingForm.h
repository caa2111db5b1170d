#pragma once

#include <QString>

namespace decant {

// What the user is told when the window of this form cannot be opened, in the user's language.
[[nodiscard]] QString missingFormText(const QString &form);
// Tells it as an alert.
void tellFormMissing(const QString &form);

}  // namespace decant
