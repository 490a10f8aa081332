// Explorer: all flights in one table, on a world map, and checked.
// Whether a leg or a schedule meets a filter.
#pragma once

#include "core/code_map.h"
#include "core/records.h"
#include "explorer/filter.h"
#include "explorer/leg_values.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantor {

/// A filter made ready for a walk over the tables. Each term is a bit; what a schedule, an aircraft or an airport
/// meets is found out once. The tables must not change meanwhile.
class LegMatcher {
  public:
    LegMatcher() = default;
    explicit LegMatcher(const Filter& filter);

    [[nodiscard]] bool matches(std::int32_t recnum, const ScheduleRec& schedule, const LegRec& leg);
    /// Of a schedule without legs: what asks for a leg is not met.
    [[nodiscard]] bool matches(std::int32_t recnum, const ScheduleRec& schedule);

  private:
    using Bits = std::uint64_t;
    struct PlaceBits {
        Bits from = 0;
        Bits to = 0;
    };

    [[nodiscard]] Bits scheduleBits(std::int32_t recnum, const ScheduleRec& schedule);
    [[nodiscard]] Bits bitsOfSchedule(const ScheduleRec& schedule);
    [[nodiscard]] Bits bitsOfAircraft(const FixedText<10>& code) const;
    [[nodiscard]] PlaceBits bitsOfAirport(const FixedText<6>& code) const;
    void prepareWords(std::size_t term);
    [[nodiscard]] Bits wordBits(const ScheduleRec& schedule, const LegRec& leg);
    [[nodiscard]] bool meets(const FilterTerm& term, const ScheduleRec& schedule, const LegRec& leg) const;
    [[nodiscard]] bool holdsDigits(const std::string& text, const LegRec& leg) const;

    std::vector<FilterTerm> m_terms;
    std::vector<std::size_t> m_legTerms; // those that a leg's own fields may meet
    Bits m_all = 0;
    Bits m_negated = 0;
    bool m_places = false; // some term looks at airports
    bool m_words = false;  // some term looks at the words of a leg: flight number, states, day
    ShownMinutes m_shown;
    CodeMap<10, Bits> m_aircraft;
    CodeMap<6, PlaceBits> m_airports;
    std::vector<Bits> m_schedules;         // by record number
    std::vector<Bits> m_flights;           // by the number of the flight number's text
    std::array<Bits, 64> m_recordStates{}; // by the set of states
    std::array<Bits, 7> m_days{};
};

} // namespace vantor
