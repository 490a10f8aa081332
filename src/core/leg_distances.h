// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Distances of a million legs whose whole miles and whole hours alone are kept.
#pragma once

#include "foundation/fixed_text.h"
#include "foundation/text.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantor {

/// A place on the unit sphere; x is not a number where the airport is unknown.
struct GlobePoint {
    double x;
    double y;
    double z;
};

/// Distances between the airports of the table for a walk during which the table does not change. Each code is looked
/// up once. The exact formula costs more than the rest of a leg's reading, so that it runs only where it matters: an
/// estimate tells most distances closely enough to round them.
class LegDistances {
  public:
    LegDistances();
    /// Where an airport is, for many distances from it and to it.
    [[nodiscard]] GlobePoint find(const FixedText<6>& code);
    /// A distance in nautical miles between two airports and their points. It and its quotient by `speed` (knots, above
    /// 0), each rounded to a whole number, are the same as those of flightdistance.
    [[nodiscard]] static double between(const FixedText<6>& fromCode, const GlobePoint& from,
                                        const FixedText<6>& toCode, const GlobePoint& to, float speed) noexcept;

  private:
    // Codes are six bytes, so that they fit a number with a mark on top, and stand in one array that is searched from
    // a code's own place on.
    struct Slot {
        std::uint64_t key = 0; // 0: free
        GlobePoint point{};
    };

    [[nodiscard]] Slot& slotOf(std::uint64_t key);
    void grow();

    std::vector<Slot> m_slots; // a power of two, half of them free
    std::size_t m_used = 0;
};

} // namespace vantor
