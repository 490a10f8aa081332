// Explorer: all flights in one table, on a world map, and checked.
// What the columns show of a leg or a schedule, and the values behind it.
#pragma once

#include "core/records.h"
#include "explorer/leg_number.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// The columns of the list of flights, in their first order.
enum class LegColumn : std::uint8_t {
    Aircraft,
    CallSign,
    Flight,
    From,
    To,
    Departure,
    Arrival,
    Days,
    Distance,
    Level,
    Repeat,
    Percent,
    Rules,
    Status,
};
inline constexpr std::size_t legColumns = 14;

/// A column's title.
[[nodiscard]] std::string_view columnTitle(LegColumn column) noexcept;
/// Whether a column's texts are numbers or times, which stand at the right and in the middle.
[[nodiscard]] bool isNumeric(LegColumn column) noexcept;

/// What a cell shows; empty when the tables have no such row (any more). A schedule shows its number of legs as flight,
/// all its airports, its first departure and last arrival, and the sum of its distances.
[[nodiscard]] std::string cellText(LegNumber row, LegColumn column);
/// What a cell tells besides: the names of airports and the title of the aircraft.
[[nodiscard]] std::string cellHint(LegNumber row, LegColumn column);

/// Terms of the filter that narrow to what a row shows: its aircraft, its call sign, and a leg's airports and route.
[[nodiscard]] std::vector<std::string> termsOf(LegNumber row);

/// States of a row, as a set of bits in the order in which they are told.
namespace row_state {
inline constexpr unsigned deleted = 1;
inline constexpr unsigned scheduleDeleted = 2;
inline constexpr unsigned missing = 4;
inline constexpr unsigned unknownAircraft = 8;
inline constexpr unsigned unknownAirport = 16;
inline constexpr unsigned touchAndGo = 32;
} // namespace row_state

/// The states in words, with commas between them.
[[nodiscard]] std::string statesText(unsigned states);
/// The states of an aircraft by its code.
[[nodiscard]] unsigned aircraftStates(std::string_view code);
/// The states that stand in the records themselves.
[[nodiscard]] inline unsigned recordStates(const ScheduleRec& schedule, const LegRec* leg) noexcept {
    return (schedule.deleted ? row_state::scheduleDeleted : 0U) |
           (leg != nullptr && leg->deleted ? row_state::deleted : 0U) |
           (leg != nullptr && leg->tng ? row_state::touchAndGo : 0U);
}
/// Whether the table has the airport of a code.
[[nodiscard]] bool airportKnown(std::string_view code);

/// Minute of the day (0 to 1439) of a stored clock text, -1 for one that is no time.
[[nodiscard]] int storedMinute(std::string_view text) noexcept;
/// Hours after which a schedule repeats, 168 for a weekly one; 0 for a repeat that is no number.
[[nodiscard]] double repeatHours(const ScheduleRec& schedule) noexcept;

/// The minutes of the day as they are shown under the time offset of this moment.
class ShownMinutes {
  public:
    ShownMinutes();
    /// Of a stored clock text; -1 for one that is no time.
    [[nodiscard]] int operator()(std::string_view text) const noexcept {
        const int minute = storedMinute(text);
        return minute < 0 ? -1 : m_shown[static_cast<std::size_t>(minute)];
    }

    [[nodiscard]] int operator()(const LegText& text) const noexcept {
        const int minute = text.minute();
        return minute < 0 ? (*this)(text.raw()) : m_shown[static_cast<std::size_t>(minute)];
    }

  private:
    std::array<std::int16_t, 1440> m_shown{};
};

} // namespace vantor
