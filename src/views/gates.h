// Views: read-only views of one airport's traffic, computed without a window.
// The peak gates of an airport: how many aircraft stand there in each hour of the day.
#pragma once

#include "foundation/list_row.h"
#include "foundation/trap.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace vantor {

/// Aircraft on the ground in each clock hour, 0 to 23.
using GateHours = std::array<std::int16_t, 24>;

/// Counts the stays at the airport `code` (bare, in capitals) in displayed hours. The hours of landing and of leaving
/// count in full. A stay over midnight counts nothing. Weekly schedules count nothing. A leg whose clock
/// texts or period can't be read is a fault in the ring and left out.
[[nodiscard]] GateHours gateHours(const StandardTrap& trap, std::string_view code);

/// The rows of the gate table: a heading and, for each day from Monday on, its 24 hours and its peak. Repeating
/// schedules fly every day, so that all days read the same.
[[nodiscard]] ListRows gateRows(const StandardTrap& trap, std::string_view code);

} // namespace vantor
