// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Conversions between a list row, a bare code and a record, leg numbers and the time zone.
#pragma once

#include "foundation/clock.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantor {

/// The code at the front of a row (ahead of the first hyphen), trimmed, in capitals.
[[nodiscard]] std::string extractcode(std::string_view text);
/// The title behind the first hyphen, trimmed; a text without one unchanged, not even trimmed (that is meant).
[[nodiscard]] std::string extracttitle(std::string_view text);
/// The first AC# code inside a text, empty when there is none.
[[nodiscard]] std::string extractaircraft(std::string_view text);

/// recnum * 1000 + legnum, the one number that identifies a leg. It wraps beyond 32 bits.
[[nodiscard]] std::int32_t hashindex(std::int32_t recnum, std::int16_t legnum) noexcept;
/// Turns the item data of a list's current row back into a record and leg number. With an item data of 0 (or no
/// current row, which callers hand over as 0) both keep the values that the caller gave them.
void extractindexes(std::int32_t itemData, std::int32_t& recnum, std::int32_t& legnum) noexcept;

/// The label of the configured time zone, as in "GMT" or "(GMT-6:30)".
[[nodiscard]] std::string gmtstring();
/// A time of day shifted by gmtoffset. Only a wrap below zero is handled; a result of 1.0 or more stays, a day on.
[[nodiscard]] DateTime applygmtoffset(DateTime value);

/// The airport's title (it may be empty), or the trimmed code when the airport is unknown.
[[nodiscard]] std::string airporttitle(std::string_view code);

} // namespace vantor
