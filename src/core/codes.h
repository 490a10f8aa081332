// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Conversions between a list row, a bare code and a record, leg numbers and the time zone.
#pragma once

#include "core/records.h"
#include "foundation/clock.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// The code at the front of a row (ahead of the first hyphen), trimmed, in capitals.
[[nodiscard]] std::string extractcode(std::string_view text);
/// The title behind the first hyphen, trimmed; a text without one unchanged.
[[nodiscard]] std::string extracttitle(std::string_view text);
/// The first AC# code inside a text, empty when there is none.
[[nodiscard]] std::string extractaircraft(std::string_view text);

/// recnum * 1000 + legnum, the one number that identifies a leg. It wraps beyond 32 bits.
[[nodiscard]] std::int32_t hashindex(std::int32_t recnum, std::int16_t legnum) noexcept;
/// The leg that the item data of a list's current row stands for; nothing for 0, which callers also hand over when
/// there is no current row.
[[nodiscard]] std::optional<LegId> extractindexes(std::int32_t itemData) noexcept;

/// The label of the configured time zone, as in "GMT" or "(GMT-6:30)".
[[nodiscard]] std::string gmtstring();
/// A time of day shifted by gmtoffset. Only a wrap below zero is handled; a result of 1.0 or more stays, a day on.
[[nodiscard]] DateTime applygmtoffset(DateTime value);

/// The airport of a code in place, null for an unknown one. It holds until the table changes.
[[nodiscard]] const AirportRec* knownAirport(std::string_view code);
/// The airport's title (it may be empty), or the trimmed code when the airport is unknown.
[[nodiscard]] std::string airporttitle(std::string_view code);

} // namespace vantor
