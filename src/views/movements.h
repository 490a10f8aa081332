// Views: read-only views of one airport's traffic, computed without a window.
// Departures and arrivals of an airport for each hour of the day, GMT.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vantor {

/// The day code of the view of repeating schedules; 0 (Sunday) to 6 are the views of weekly ones.
inline constexpr std::int16_t dailyView = -1;

/// Counts for each clock hour; element 24 is never written.
using MovementHours = std::array<std::int16_t, 25>;

/// Adds the movements of an airport (a row or a bare code) to two tables. With dailyView repeating schedules count and
/// weekly ones don't, with a day only the weekly legs of that day. A leg whose clock text is no time is a fault in the
/// ring and counts nothing; a period of 0 or less is one, too, and the leg counts once.
void countflights(MovementHours& departures, MovementHours& arrivals, std::string_view icao, std::int16_t day) noexcept;

} // namespace vantor
