#pragma once

#include <QString>
#include <optional>

namespace decant {

// One line that shows how far a job is: name, bar, percent, time left, within `columns` cells.
// Where it gets narrow the name is shortened and then the bar left out. Without a percentage there
// is no bar. Pure.
[[nodiscard]] QString progressLine(const QString &name, std::optional<double> percent,
                                   std::optional<double> etaSeconds, int columns);

}  // namespace decant
