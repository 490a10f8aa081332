// The airports file: every line is an airport, and every distance a number.
#include "core/airports_file.h"
#include "core/great_circle.h"
#include "core/tables.h"
#include "foundation/text.h"
#include "fuzz.h"

#include <algorithm>
#include <cmath>

namespace vantor::fuzz {

void check(std::string_view input) {
    folder().put("Airports.txt", input);
    const int error = errorOf({ErrorCode::Overflow, ErrorCode::TypeMismatch, ErrorCode::Loader},
                              [] { LoadAirports(folder().path("Airports.txt"), bar()); });
    if (error != 0) {
        return;
    }
    const auto lines = splitLines(input);
    require(airportcount == std::ranges::count_if(lines,
                                                  [](std::string_view line) {
                                                      const auto columns = split(line, ",");
                                                      return columns.size() > 3 && !contains(columns[0], "//") &&
                                                             !contains(columns[0], ";");
                                                  }),
            "every airport line is a record");
    for (std::int32_t slot = 1; slot <= airportcount; ++slot) {
        const AirportRec& airport = airports.peek(slot);
        require(std::fabs(airport.latdeg) < 40000 && std::fabs(airport.longdeg) < 40000, "degrees are numbers");
        require(airports.HashFind(airport.icao.raw()).slot >= slot || airport.icao.text() == "-1",
                "a code finds its newest airport");
        const double distance = flightdistance(airport.icao.text(), airports.peek(1).icao.text());
        require(distance >= 0 && distance < 10801, "a distance is at most half the globe");
    }
}

} // namespace vantor::fuzz
