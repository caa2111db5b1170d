#pragma once

#include <QString>

namespace ostrak {

// A time span as text: "2m 5s" for 125.9, "59s" for 59.9, "120m 0s" for 7200; there is no hour unit.
[[nodiscard]] QString formattedTimeFromTimeInterval(double seconds);

}  // namespace ostrak
