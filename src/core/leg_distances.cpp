#include "core/leg_distances.h"

#include "core/codes.h"
#include "core/great_circle.h"
#include "foundation/fixed_text.h"
#include "foundation/numbers.h"

#include <array>
#include <cmath>
#include <limits>

namespace vantor {

namespace {

// Nautical miles: twice what the arcsine's error makes. Of the hours it is the error where the speed is 1 and more.
constexpr double estimateError = 0.0003;
constexpr double slowestEstimate = 1; // knots
// Haversines of places that are neither one nor opposite: there the exact formula may fail by a last bit, and must.
constexpr double nearestEstimate = 1e-9;
constexpr double farthestEstimate = 0.9999;

GlobePoint pointOf(const FixedText<6>& code) {
    const AirportRec* const airport = knownAirport(code.text());
    if (airport == nullptr) {
        return {std::numeric_limits<double>::quiet_NaN(), 0, 0};
    }
    const double latitude = convdegreestoradians(static_cast<double>(airport->latdeg));
    const double longitude = convdegreestoradians(static_cast<double>(airport->longdeg));
    return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude), std::sin(latitude)};
}

// Half the central angle in radians: the arcsine of a haversine's root. The polynomial is the Chebyshev fit of degree 7
// to asin(sqrt(x)) / sqrt(x) over 0 to 0.5, right to 1.3e-8. Where the arcsine is steep it is taken from the other end.
double halfAngle(double haversine) {
    constexpr double quarterTurn = 1.5707963267948966;
    const bool steep = haversine > 0.5;
    const double x = steep ? 1 - haversine : haversine;
    constexpr std::array coefficients = {0.9999999868,  0.1666699324,  0.07486847096,  0.04663621561,
                                         0.01582790453, 0.07822891895, -0.09404627593, 0.1119608986};
    double sum = 0;
    for (std::size_t power = coefficients.size(); power-- > 0;) {
        sum = sum * x + coefficients[power];
    }
    const double arc = std::sqrt(x) * sum;
    return steep ? quarterTurn - arc : arc;
}

// Rounds a number of 0 and more whose error is below `error`; -1 where a half may lie in between.
std::int32_t roundedWithin(double value, double error) {
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): halves are what is looked for
    const auto high = static_cast<std::int32_t>(value + error + 0.5);
    return high == static_cast<std::int32_t>(value - error + 0.5) ? high : -1;
}

} // namespace

GlobePoint LegDistances::find(const FixedText<6>& code) {
    return m_points.get(code, [&] { return pointOf(code); });
}

FlownWay LegDistances::between(const FixedText<6>& fromCode, const GlobePoint& from, const FixedText<6>& toCode,
                               const GlobePoint& to, float speed) {
    const double x = from.x - to.x;
    const double y = from.y - to.y;
    const double z = from.z - to.z;
    const double haversine = (x * x + y * y + z * z) / 4; // half the chord, squared
    const auto knots = static_cast<double>(speed);
    if (haversine > nearestEstimate && haversine < farthestEstimate && knots >= slowestEstimate) {
        const double estimate = halfAngle(haversine) * (2 * 180 * 60 / shortPi);
        const std::int32_t miles = roundedWithin(estimate, estimateError);
        const std::int32_t hours = roundedWithin(estimate / knots, estimateError);
        if (miles >= 0 && hours >= 0) {
            return {static_cast<float>(miles), static_cast<std::int16_t>(hours)};
        }
    }
    if (std::isnan(haversine)) {
        return {}; // an unknown airport
    }
    const double distance = flightdistance(fromCode.text(), toCode.text());
    return {static_cast<float>(roundHalfEven(distance)), toInt16(distance / knots)};
}

} // namespace vantor
