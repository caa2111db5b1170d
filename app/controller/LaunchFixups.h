#pragma once

namespace decant {

// Repairs of the stored settings at every launch, in the documented order, on the store of `tk`,
// whose defaults are registered by then.

// Retired and impossible values: "ExternalSubtitleEncoding" 1, "CustomUnknownHandling" other than 0
// and 1.
void repairRetiredValues();
// Whether the hint about the faster style is due.
[[nodiscard]] bool speedHintIsDue();
// The hint was dismissed.
void speedHintShown();
// Once: a menu entry was inserted ahead of the destinations.
void migrateDestinationIndex();
// After invalid destinations were dropped.
void repairDestinationIndex();

}  // namespace decant
