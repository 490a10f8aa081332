// Bench: measurements, as ratios in one run, on traffic made for them.
// A generated TrafficTools folder of any size, the same for the same options on every machine. Tests load it, too.
#pragma once

#include <cstdint>
#include <filesystem>

namespace vantor::bench {

/// What the generated traffic looks like.
struct WorldOptions {
    int schedules = 10000; ///< of 2 to 14 legs, weekly and hourly mixed
    int airports = 9000;
    int aircraft = 3000;
    bool unknownAircraft = false;  ///< no schedule's aircraft is in the aircraft file
    bool missingAirports = false;  ///< no leg's airport is in the airports file
    bool reversedAircraft = false; ///< the aircraft file stands in reverse order
    bool busyAirport = false;      ///< every leg flies to or from the first airport
};

/// Writes Aircraft.txt, Airports.txt, Flightplans.txt and "icao name.cfg" into `folder`. Returns their size in bytes.
std::uintmax_t writeWorld(const std::filesystem::path& folder, const WorldOptions& options);

} // namespace vantor::bench
