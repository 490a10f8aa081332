// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The aircraft table: its order, and the way to a row by code.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// The number inside an aircraft code: what stands from the fourth character on, whatever the first three are.
[[nodiscard]] std::int32_t trueacnum(std::string_view code) noexcept;
/// Sorts rows 1 to aircraftcount by that number; rows with equal numbers keep their order.
void SortAircraft();
/// The row of a code in the aircraft table, or -1. Deleted aircraft are found like any other.
[[nodiscard]] std::int32_t aircraftrecord(std::string_view code) noexcept;
/// The aircraft's title, or the code as it was given.
[[nodiscard]] std::string aircrafttitle(std::string_view code);

} // namespace vantor
