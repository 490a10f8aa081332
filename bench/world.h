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
    std::uint64_t seed = 20040601; ///< of all that is drawn
};

/// Sizes of what was written.
struct WorldSize {
    std::uintmax_t bytes = 0; ///< of the three traffic files
    std::int64_t legs = 0;
};

/// Writes Aircraft.txt, Airports.txt and Flightplans.txt into `folder`, and into its subfolder "FS" a simulator that
/// has every other aircraft, and names for three airports of four.
WorldSize writeWorld(const std::filesystem::path& folder, const WorldOptions& options);

} // namespace vantor::bench
