// Views: read-only views of one airport's traffic, computed without a window.
// The timetable of an airport, and its lines on paper.
#pragma once

#include "foundation/list_row.h"
#include "foundation/trap.h"

#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// Most rows that a timetable takes. Only periods of a tiny fraction of an hour come near it.
inline constexpr std::size_t timetableLimit = 500'000;

/// One row per departure and arrival at the airport `code` (bare, in capitals) in 24 hours, each repetition told
/// separately, in the order of the displayed time; one empty closing row at the end. Weekly schedules have none. A leg
/// whose clock text or period can't be read is a fault in the ring and left out.
[[nodiscard]] ListRows timetableRows(const StandardTrap& trap, std::string_view code);

/// What goes to the printer: a heading, and the rows without their quotes.
struct SchedulePrintout {
    std::string heading;
    std::vector<std::string> rows;
};

/// The printout of `rows` for the airport `code`. The heading shows the airport's whole title, commas included.
[[nodiscard]] SchedulePrintout schedulePrintout(std::string_view code, const ListRows& rows);

} // namespace vantor
