// Bulk: changes applied to many legs or schedules at once.
// The flight level of all legs from one airport to another.
#pragma once

#include "bulk/bulk_outcome.h"
#include "foundation/trap.h"

#include <string>

namespace vantor {

/// Texts of the panel.
struct FlightLevelBoxes {
    std::string newFL;
    std::string icao1; ///< origin; trimmed and in capitals after an accepted level
    std::string icao2; ///< destination; likewise
};

/// Sets the flight level of every leg from icao1 to icao2, in this one direction. The level is the number at the front
/// of its text, rounded; 0 is refused, and so is one beyond 32 bits (a fault in the ring), and of what passes the low
/// 16 bits are stored.
[[nodiscard]] BulkOutcome changeFlightLevel(const StandardTrap& trap, FlightLevelBoxes& boxes);

} // namespace vantor
