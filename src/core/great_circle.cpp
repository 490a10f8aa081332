#include "core/great_circle.h"

#include "core/codes.h"
#include "foundation/code_page.h"
#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/trap.h"

#include <cmath>
#include <string>

namespace vantor {

namespace {

constexpr std::string_view module = "modGreatCircle";

double squareRoot(double x) {
    if (x < 0) {
        throw Error(ErrorCode::InvalidCall);
    }
    return std::sqrt(x);
}

struct Position {
    double latitude;  // radians
    double longitude; // radians
};

Position positionOf(const AirportRec& airport) {
    return {convdegreestoradians(static_cast<double>(airport.latdeg)),
            convdegreestoradians(static_cast<double>(airport.longdeg))};
}

} // namespace

double convertlatlongtodegrees(std::string_view text) noexcept {
    const StandardTrap trap{"function convertlatlongtodegrees", module};
    // 1-based positions, 0 for none, taken ahead of everything else.
    const std::size_t star = text.find('*') + 1;
    const std::size_t dot = text.find('.') + 1;
    const char hemisphere = text.empty() ? ' ' : upperChar(text.front());
    std::int16_t degrees = 0;
    std::int16_t minutes = 0;
    std::int16_t seconds = 0;
    trap([&] { degrees = toInt16(val(text.empty() ? text : text.substr(1))); });
    trap([&] {
        if (dot < star) {
            throw Error(ErrorCode::InvalidCall); // a text of negative length
        }
        minutes = toInt16(val(text.substr(star, dot - star)));
    });
    trap([&] { seconds = toInt16(val(text.substr(dot))); });
    const double value = degrees + minutes / 60.0 + seconds / 3600.0;
    return hemisphere == 'S' || hemisphere == 'W' ? -value : value;
}

double convdegreestoradians(double degrees) noexcept {
    return degrees * shortPi / 180;
}

double bmmatharcsine(double x) noexcept {
    const StandardTrap trap{"bmmatharcsine", module};
    double result = 0;
    trap([&] { result = 2.0 * std::atan(x / (1.0 + squareRoot(1.0 - x * x))); });
    return result;
}

double gcdistance(double lat1, double long1, double lat2, double long2) noexcept {
    const StandardTrap trap{"function gcdistance", module};
    const double a = std::cos(lat1);
    const double c = std::cos(lat2);
    const double s = std::sin((long1 - long2) / 2.0);
    const double t = std::sin((lat1 - lat2) / 2.0);
    const double h = t * t + a * c * (s * s); // haversine of the central angle
    double result = 0;
    trap([&] { result = bmmatharcsine(squareRoot(h)) * 2 * 180 * 60 / shortPi; });
    return result;
}

double flightdistance(std::string_view icao1, std::string_view icao2) noexcept {
    try {
        const AirportRec* const from = knownAirport(icao1);
        const AirportRec* const to = knownAirport(icao2);
        if (from == nullptr || to == nullptr) {
            return 0;
        }
        const Position start = positionOf(*from);
        const Position end = positionOf(*to);
        return gcdistance(start.latitude, start.longitude, end.latitude, end.longitude);
    } catch (...) {
        try {
            logit("Error in FlightDistance - either " + std::string(icao1) + " or " + std::string(icao2) +
                  " may have a problem with lat/long");
        } catch (...) { // NOLINT(bugprone-empty-catch): the log is out of reach, and the distance is 0 all the same
        }
        return 0;
    }
}

DateTime gettimeinhours(float speed, double distance) noexcept {
    const StandardTrap trap{"function gettimeinhours", module};
    double time = 0;
    std::int16_t hours = 0;
    std::int16_t minutes = 0;
    trap([&] {
        if (speed == 0) {
            throw Error(ErrorCode::DivisionByZero);
        }
        time = distance / static_cast<double>(speed);
    });
    trap([&] { hours = toInt16(std::floor(time)); });
    trap([&] { minutes = toInt16(std::floor((time - std::trunc(time)) * 60.0)); });
    return (hours + minutes / 60.0) / 24.0;
}

} // namespace vantor
