#pragma once

namespace decant {

// The breaks that can end a line in what the tool writes: LF, VT, FF, CR.
[[nodiscard]] constexpr bool isLineBreak(char byte) {
  return byte >= '\n' && byte <= '\r';
}

}  // namespace decant
