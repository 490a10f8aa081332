// Bulk: changes applied to many legs or schedules at once.
// The split of an airport's arrivals between two others, and the change of airport for one aircraft.
#pragma once

#include "bulk/bulk_outcome.h"
#include "foundation/trap.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// Texts of the split's panel.
struct SplitBoxes {
    std::string icao;    ///< the airport to take flights from; looked at by nobody, not even when empty
    std::string icao1;   ///< first new airport; trimmed and in capitals afterwards
    std::string icao2;   ///< second new airport; likewise
    std::string percent; ///< share of the first, as in "30%"
};

/// What is left of 100 behind a share, as in "70%" for "30%".
[[nodiscard]] std::string remainingShare(std::string_view percent);

/// Looks at the texts and splits.
[[nodiscard]] BulkOutcome splitAirport(const StandardTrap& trap, SplitBoxes& boxes);

/// Shares the legs into `source` between two airports by a counter that steps by 0.5 up to 10.5 and starts anew: of
/// each 21 legs, percent / 5 go to `first`. The next leg's origin follows. Returns the message for the user.
[[nodiscard]] std::string replaceicao(const StandardTrap& trap, std::string_view source, std::string_view first,
                                      std::string_view second, std::int16_t percent);

/// Texts of the panel for one aircraft, all trimmed and in capitals afterwards.
struct SplitAircraftBoxes {
    std::string aircraftCode;
    std::string newIcao;
    std::string oldIcao;
};

/// Looks at the texts and moves the aircraft's flights.
[[nodiscard]] BulkOutcome splitAircraft(const StandardTrap& trap, SplitAircraftBoxes& boxes);

/// Moves all flights of an aircraft from one airport to another. Only destinations are counted. Returns the message
/// for the user.
[[nodiscard]] std::string replaceicaobyac(const StandardTrap& trap, std::string_view oldIcao, std::string_view newIcao,
                                          std::string_view aircraftCode);

} // namespace vantor
