// Bulk: changes applied to many legs or schedules at once.
// The ATC percentage of all schedules of an aircraft.
#pragma once

#include "bulk/bulk_outcome.h"
#include "foundation/trap.h"

#include <string_view>

namespace vantor {

/// Sets the percentage (1 to 100, the number at the front of its text, rounded) of every schedule of an aircraft. The
/// whole code is compared, in capitals against the record as it is stored.
[[nodiscard]] BulkOutcome updateAtcPercentage(const StandardTrap& trap, std::string_view percentText,
                                              std::string_view aircraftText);

} // namespace vantor
