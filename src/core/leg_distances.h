// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// Distances of a million legs whose whole miles and whole hours alone are kept.
#pragma once

#include "core/code_map.h"
#include "foundation/fixed_text.h"

#include <cstdint>

namespace vantor {

/// A place on the unit sphere; x is not a number where the airport is unknown.
struct GlobePoint {
    double x;
    double y;
    double z;
};

/// What is kept of a leg's length.
struct FlownWay {
    float miles = 0; ///< nautical miles, a whole number
    std::int16_t hours = 0;
};

/// Distances between the airports of the table for a walk during which the table does not change. Each code is looked
/// up once. The exact formula costs more than the rest of a leg's reading, so that it runs only where it matters: an
/// estimate tells most distances closely enough to round them.
class LegDistances {
  public:
    /// Where an airport is, for many distances from it and to it.
    [[nodiscard]] GlobePoint find(const FixedText<6>& code);
    /// The way between two airports and their points at a speed in knots, above 0: flightdistance and its quotient by
    /// the speed, each rounded to a whole number. Hours beyond 16 bits are error 6.
    [[nodiscard]] static FlownWay between(const FixedText<6>& fromCode, const GlobePoint& from,
                                          const FixedText<6>& toCode, const GlobePoint& to, float speed);

  private:
    CodeMap<6, GlobePoint> m_points;
};

} // namespace vantor
