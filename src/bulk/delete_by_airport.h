// Bulk: changes applied to many legs or schedules at once.
// The deletion of everything that touches an airport or a family of airports.
#pragma once

#include "foundation/trap.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// What is to be asked or told before a deletion.
struct AirportDeletion {
    bool valid = false;
    std::string message; ///< the question when valid, the refusal otherwise
};

/// What a deletion touched: schedules that went as a whole, and the legs that went in the others.
struct AirportDeletionCounts {
    std::int32_t schedules = 0;
    std::int32_t legs = 0;
};

/// Puts the text of the panel into capitals, trimmed, and looks at it.
[[nodiscard]] AirportDeletion prepareAirportDeletion(std::string& icao);

/// Marks as deleted the legs whose destination or origin begins with `icao` (trimmed, in capitals), and the schedules
/// of which every leg does. A "*" at the end is taken off; alone it marks every schedule. In a schedule of more than
/// two legs the leg before one deleted by its destination flies on to that leg's origin.
/// The unsaved-changes flag is not for this change.
AirportDeletionCounts deleteByAirport(const StandardTrap& trap, std::string_view icao) noexcept;

} // namespace vantor
