// Latitude and longitude texts, and the distances between what they say.
#include "core/great_circle.h"
#include "foundation/text.h"
#include "fuzz.h"

#include <array>
#include <cmath>

namespace vantor::fuzz {

void check(std::string_view input) {
    // Two positions: latitude and longitude of each, between commas.
    std::array<double, 4> radians{};
    std::size_t count = 0;
    for (const std::string_view text : split(input, ",")) {
        const double degrees = convertlatlongtodegrees(text);
        require(std::fabs(degrees) < 34000, "degrees are a number");
        const std::string behind(text.substr(text.empty() ? 0 : 1));
        const double north = convertlatlongtodegrees("N" + behind);
        require(convertlatlongtodegrees("w" + behind) == -north, "the hemisphere turns the sign alone");
        radians.at(count) = convdegreestoradians(degrees);
        if (++count == radians.size()) {
            break;
        }
    }
    const double there = gcdistance(radians[0], radians[1], radians[2], radians[3]);
    require(there >= 0 && there < 10801, "a distance is at most half the globe");
    require(std::fabs(gcdistance(radians[2], radians[3], radians[0], radians[1]) - there) < 0.01,
            "the way back is as long");
    require(std::isfinite(gettimeinhours(static_cast<float>(radians[0]), there)), "a flight takes a time");
}

} // namespace vantor::fuzz
