// Explorer: all flights in one table, on a world map, and checked.
// The legs that a filter leaves, as numbers of 32 bits, found in slices.
#pragma once

#include "core/records.h"
#include "explorer/filter.h"
#include "explorer/leg_matcher.h"
#include "explorer/leg_number.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace vantor {

/// The search for the rows of a filter over the tables. It is done in slices; what it found so far is there after
/// each. Any change of the tables makes it worthless, though never unsafe: start it again.
class LegIndex {
  public:
    /// Drops what it found and begins anew. `order` names all rows in the order in which they are looked at, and
    /// stays with the caller, unchanged while the search goes on; null stands for the order of the tables.
    void start(const Filter& filter, RowKind kind, const std::vector<LegNumber>* order);
    /// Looks further until all is seen, which gives true, or until `enough` says so, which is asked every few hundred
    /// rows.
    bool step(const std::function<bool()>& enough);
    [[nodiscard]] bool done() const noexcept { return m_done; }
    /// How much of the tables was looked at, 0 to 1.
    [[nodiscard]] double progress() const noexcept;

    /// The rows of the list in its order: legs, or schedules (their leg is 0).
    [[nodiscard]] const std::vector<LegNumber>& rows() const noexcept {
        return m_kind == RowKind::Legs ? m_legs : m_schedules;
    }
    /// The legs that the filter leaves, in the order of the list.
    [[nodiscard]] const std::vector<LegNumber>& legs() const noexcept { return m_legs; }

  private:
    void lookAtLeg(LegNumber number);
    void lookAtSchedule(std::int32_t recnum);
    [[nodiscard]] std::size_t size() const noexcept;

    LegMatcher m_matcher;
    RowKind m_kind = RowKind::Legs;
    const std::vector<LegNumber>* m_order = nullptr;
    std::size_t m_next = 0; // in the order, or the record number less 1
    bool m_done = true;
    std::vector<LegNumber> m_legs;
    std::vector<LegNumber> m_schedules;
};

} // namespace vantor
