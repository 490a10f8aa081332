// Core: the traffic itself, its records, tables, text files and the way they are loaded.
// The arithmetic of the Earth and of flight time. Faults go to the ring and a value left unset reads 0.
#pragma once

#include "foundation/clock.h"

#include <string_view>

namespace vantor {

/// The pi of all distances: exactly these seven digits, since what is printed and stored follows from them.
inline constexpr double shortPi = 3.141592;

/// Degrees (south and west negative) of a text such as S31* 56.40'. The digits behind the point are SECONDS of arc,
/// not a fraction of a minute; every distance depends on it.
[[nodiscard]] double convertlatlongtodegrees(std::string_view text) noexcept;
/// Degrees in radians, by the short pi.
[[nodiscard]] double convdegreestoradians(double degrees) noexcept;
/// The arcsine in radians by the identity 2 atan(x / (1 + sqrt(1 - x x))). |x| above 1 is a fault and gives 0.
[[nodiscard]] double bmmatharcsine(double x) noexcept;
/// Great-circle distance in nautical miles of two positions in radians, by the haversine formula.
[[nodiscard]] double gcdistance(double lat1, double long1, double lat2, double long2) noexcept;
/// Distance in nautical miles between two airports of the table, unrounded; 0 when either is unknown.
[[nodiscard]] double flightdistance(std::string_view icao1, std::string_view icao2) noexcept;
/// The time that a distance (nautical miles) takes at a speed (knots): whole minutes, truncated. Flights of a day and
/// more give 1.0 and more.
[[nodiscard]] DateTime gettimeinhours(float speed, double distance) noexcept;

} // namespace vantor
