#pragma once

#include <QString>

namespace decant {

// The name, among the bundle's resources, of this document in the user's language; of the English
// one when there is none.
[[nodiscard]] QString documentName(const QString &name);

}  // namespace decant
