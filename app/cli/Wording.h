#pragma once

#include "Format.h"
#include "Text.h"

namespace decant {

// A sentence for the user: the format in the user's language, filled with makeString's rules.
template <typename... Values>
[[nodiscard]] QString worded(const QString &format, const Values &...values) {
  return ostrak::makeString(ostrak::localized(format), values...);
}

}  // namespace decant
