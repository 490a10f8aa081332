#include "core/leg_distances.h"

#include "core/codes.h"
#include "core/great_circle.h"
#include "foundation/fixed_text.h"
#include "foundation/numbers.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

namespace vantor {

namespace {

constexpr std::size_t firstSize = 1024;
// Nautical miles. The arcsine is one of 32-bit floats, right to a ten-millionth: an estimate is off by a thousandth.
constexpr double estimateError = 0.003;
// Haversines of places that are neither one nor opposite: there the exact formula may fail by a last bit, and must.
constexpr double nearestEstimate = 1e-9;
constexpr double farthestEstimate = 0.9999;

std::uint64_t keyOf(const FixedText<6>& code) {
    constexpr std::uint64_t inUse = 1ULL << 63U;
    std::uint32_t first = 0;
    std::uint16_t last = 0;
    std::memcpy(&first, code.raw().data(), sizeof(first));
    std::memcpy(&last, code.raw().data() + sizeof(first), sizeof(last));
    return inUse | static_cast<std::uint64_t>(last) << 32U | first;
}

GlobePoint pointOf(const FixedText<6>& code) {
    const AirportRec* const airport = knownAirport(code.text());
    if (airport == nullptr) {
        return {std::numeric_limits<double>::quiet_NaN(), 0, 0};
    }
    const double latitude = convdegreestoradians(static_cast<double>(airport->latdeg));
    const double longitude = convdegreestoradians(static_cast<double>(airport->longdeg));
    return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude), std::sin(latitude)};
}

// Half the central angle in radians: the arcsine of a haversine's root. Where the arcsine is steep it is taken from the
// other end.
double halfAngle(double haversine) {
    constexpr double quarterTurn = 1.5707963267948966;
    const bool steep = haversine > 0.5;
    const auto root = std::sqrt(static_cast<float>(steep ? 1 - haversine : haversine));
    const auto arc = static_cast<double>(std::asin(root));
    return steep ? quarterTurn - arc : arc;
}

// Whether two neighbouring numbers above 0 round to one whole number: no half lies between them. Beyond a million,
// where nobody asks, it says no.
bool roundAlike(double low, double high) {
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): halves are what is looked for
    return high < 1e6 && static_cast<std::int32_t>(low + 0.5) == static_cast<std::int32_t>(high + 0.5);
}

} // namespace

LegDistances::LegDistances() : m_slots(firstSize) {}

GlobePoint LegDistances::find(const FixedText<6>& code) {
    const std::uint64_t key = keyOf(code);
    Slot& slot = slotOf(key);
    if (slot.key != 0) {
        return slot.point;
    }
    const GlobePoint point = pointOf(code);
    slot = {key, point};
    if (++m_used > m_slots.size() / 2) {
        grow();
    }
    return point;
}

double LegDistances::between(const FixedText<6>& fromCode, const GlobePoint& from, const FixedText<6>& toCode,
                             const GlobePoint& to, float speed) noexcept {
    const double x = from.x - to.x;
    const double y = from.y - to.y;
    const double z = from.z - to.z;
    const double haversine = (x * x + y * y + z * z) / 4; // half the chord, squared
    if (std::isnan(haversine)) {
        return 0; // an unknown airport
    }
    if (haversine > nearestEstimate && haversine < farthestEstimate) {
        const double estimate = halfAngle(haversine) * 2 * 180 * 60 / shortPi;
        const double low = estimate - estimateError;
        const double high = estimate + estimateError;
        const auto knots = static_cast<double>(speed);
        if (roundAlike(low, high) && roundAlike(low / knots, high / knots)) {
            return estimate;
        }
    }
    return flightdistance(fromCode.text(), toCode.text());
}

LegDistances::Slot& LegDistances::slotOf(std::uint64_t key) {
    constexpr std::uint64_t spread = 0x9E3779B97F4A7C15ULL; // 2^64 over the golden ratio: mixes upwards
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = static_cast<std::size_t>(key * spread >> 32U) & mask;
    while (m_slots[at].key != 0 && m_slots[at].key != key) {
        at = (at + 1) & mask;
    }
    return m_slots[at];
}

void LegDistances::grow() {
    const std::vector<Slot> old = std::exchange(m_slots, std::vector<Slot>(m_slots.size() * 2));
    for (const Slot& slot : old) {
        if (slot.key != 0) {
            slotOf(slot.key) = slot;
        }
    }
}

} // namespace vantor
