#pragma once

namespace ostrak {

// Marks a text of a table for scripts/translations; `localized` gets it through a variable.
[[nodiscard]] constexpr const char *translatable(const char *text) {
  return text;
}

}  // namespace ostrak
