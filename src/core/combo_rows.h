// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The rows of the combo boxes that offer the aircraft and the airports of the tables.
#pragma once

#include "foundation/list_row.h"

namespace vantor {

/// Rows of an aircraft combo box, item data the row of the aircraft table. Deleted aircraft are left out, missing ones
/// unless `includeMissing`.
[[nodiscard]] ListRows aircraftRows(bool includeMissing) noexcept;
/// Rows of an airport combo box, item data the slot of the airport.
[[nodiscard]] ListRows airportRows() noexcept;

} // namespace vantor
