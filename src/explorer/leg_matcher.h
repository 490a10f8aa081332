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
    [[nodiscard]] bool meets(const FilterTerm& term, const ScheduleRec& schedule, const LegRec& leg) const;
    [[nodiscard]] bool anywhereInLeg(const std::string& text, const ScheduleRec& schedule, const LegRec& leg) const;

    std::vector<FilterTerm> m_terms;
    std::vector<std::size_t> m_legTerms; // those that a leg's own fields may meet
    Bits m_all = 0;
    Bits m_negated = 0;
    bool m_places = false; // some term looks at airports
    ShownMinutes m_shown;
    CodeMap<10, Bits> m_aircraft;
    CodeMap<6, PlaceBits> m_airports;
    std::vector<Bits> m_schedules; // by record number
};

} // namespace vantor
