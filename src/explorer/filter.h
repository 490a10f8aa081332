// Explorer: all flights in one table, on a world map, and checked.
// The filter that the pages share, as it is typed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantor {

/// What a term of the filter looks at.
enum class FilterField {
    Anything,  ///< all columns, and the names of both airports
    Aircraft,  ///< the aircraft's code
    CallSign,  ///< of the schedule
    Flight,    ///< flight number
    From,      ///< code of the airport of departure
    To,        ///< code of the airport of arrival
    AnyEnd,    ///< either of the two
    Type,      ///< title of the aircraft
    Day,       ///< day of departure, by its name
    Rules,     ///< IFR or VFR
    State,     ///< one of the states below
    Distance,  ///< nautical miles
    Departure, ///< minutes of the day as shown
    Arrival,   ///< minutes of the day as shown
    Level,     ///< flight level
    Repeat,    ///< hours; a week's are 168
    Percent,   ///< ATC percentage
};

/// How a field stands to the term's value.
enum class FilterRelation {
    Holds,  ///< the text occurs in the field
    Begins, ///< the field begins with the text
    Equals,
    Less,
    AtMost,
    Greater,
    AtLeast,
};

/// The states that `is:` names.
enum class LegState : std::uint8_t {
    Deleted,         ///< the leg, or its schedule
    Missing,         ///< the aircraft is missing from the simulator
    UnknownAircraft, ///< the aircraft is not in the table
    UnknownAirport,  ///< one of the airports is not in the table
    Weekly,
    Fixed,      ///< the arrival is fixed
    TouchAndGo, ///< touch and go
};

/// One condition of the filter.
struct FilterTerm {
    FilterField field = FilterField::Anything;
    FilterRelation relation = FilterRelation::Holds;
    bool negated = false;               ///< the condition must not hold
    std::string text;                   ///< in capitals; empty where the value is a number or a state
    double number = 0;                  ///< in the unit of the field
    LegState state = LegState::Deleted; ///< for the field State
    std::string typed;                  ///< as it was typed, for the eye
    friend bool operator==(const FilterTerm&, const FilterTerm&) = default;
};

/// The terms of a filter; all of them must hold. Terms stand apart by blanks; a pair of double quotes keeps blanks
/// together. `field:value`, `field=value` and, for numbers and times, `field<value`, `<=`, `>`, `>=` look at one field,
/// a hyphen ahead of them turns the condition round. Everything else, an unknown field or a value that the field can't
/// have too, is a plain text that must occur somewhere in the row, without regard to case. A field without a value yet
/// narrows nothing.
class Filter {
  public:
    /// Terms beyond this count are left out.
    static constexpr std::size_t mostTerms = 32;

    Filter() = default;
    explicit Filter(std::string_view text);

    [[nodiscard]] const std::vector<FilterTerm>& terms() const noexcept { return m_terms; }
    [[nodiscard]] bool empty() const noexcept { return m_terms.empty(); }
    friend bool operator==(const Filter&, const Filter&) = default;

  private:
    std::vector<FilterTerm> m_terms;
};

/// The text of a filter with one more term or several, as in "at=EGLL"; the same text when it has that already.
[[nodiscard]] std::string narrowedFilter(std::string_view text, std::string_view terms);
/// The text of a filter without its term number `index`, from 0.
[[nodiscard]] std::string filterWithout(std::string_view text, std::size_t index);

} // namespace vantor
