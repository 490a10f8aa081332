// Simulator: what the traffic needs of the simulator's own files.
// Repairs of the aircraft table against the simulator: substitution, addition, deletion, and the rows to pick from.
#pragma once

#include "foundation/list_row.h"
#include "foundation/trap.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// Marks an aircraft (a row or code) as deleted. It stays in the table until the next load.
void deleteaircraft(std::string_view text) noexcept;

/// What came of an addition.
struct NewAircraft {
    std::int32_t found = 0; ///< aircraft of the simulator that the table lacks
    std::int32_t added = 0; ///< fewer than found where the codes ran out, which the ring tells
    std::string message;    ///< "No new aircraft found" when there was none, else empty
};

/// Adds every simulator aircraft whose title the table lacks (deleted aircraft count as present; case, quotes and all
/// 80 characters count). Repeats of a title become aircraft of their own. Each gets the first free code from the one
/// after that given out last in this run, also over reloads. Numbers have 16 bits: where none is left the ring gets
/// error 6 (Overflow) and the aircraft is not added, so that no code stands twice; the table keeps all it had.
[[nodiscard]] NewAircraft addnewfsaircraft() noexcept;

/// Rows on offer under a filter text, without regard to case. Without a filter one empty row closes them.
[[nodiscard]] ListRows filterAircraftRows(const ListRows& all, std::string_view filter);

/// "{code of current} - {title of row}", the answer of the dialog.
[[nodiscard]] std::string substituteText(std::string_view current, std::string_view row);

/// Gives the aircraft named at the front of `substitutetext` the title behind it; false when there is none. Its
/// missing flag stays set until the next load.
[[nodiscard]] bool substituteAircraft(const StandardTrap& trap, std::string_view substitutetext) noexcept;

} // namespace vantor
